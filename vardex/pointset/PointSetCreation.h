// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include "Hx/PointSet.h"
#include "Tq/String.h"

#include "module/frame/IoResult.h"

namespace Vardex {

/// Makes a point set of a class with two sizes, which the host takes in the order given here. The
/// host's check in between also runs checks of other modules, which may change the size; the second
/// sizing sets it again.
/// @return empty when the host refuses a size or finds the set faulty
template <typename PointSetClass>
std::shared_ptr<Hx::PointSet> createSizedPointSet(int size1, int size2,
                                                  const Tq_1_1::String& name) {
    auto created = std::make_shared<PointSetClass>(name);
    if (!created->resize(size1, size2) || isFailure(created->validateData()) ||
        !created->resize(size1, size2)) {
        return nullptr;
    }
    return created;
}

}  // namespace Vardex
