// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/PointSetFactory.h"

#include <utility>

#include "Hx/PointSet.h"

namespace Hx {

PointSetFactory::~PointSetFactory() = default;

bool PointSetFactory::registerPointSet(const Tq_1_1::String& identifier, Creator creator,
                                       const Tq_1_1::String& further) {
    if (identifier.isNullOrEmpty() || !creator || !further.isNullOrEmpty()) {
        return false;
    }
    return creators_.emplace(identifier, std::move(creator)).second;
}

bool PointSetFactory::unregisterPointSet(const Tq_1_1::String& identifier) {
    return creators_.erase(identifier) != 0;
}

std::shared_ptr<PointSet> PointSetFactory::create(const Tq_1_1::String& identifier) const {
    const auto found = creators_.find(identifier);
    return found == creators_.end() ? nullptr : found->second();
}

std::vector<Tq_1_1::String> PointSetFactory::identifiers() const {
    std::vector<Tq_1_1::String> names;
    names.reserve(creators_.size());
    for (const auto& [identifier, creator] : creators_) {
        names.push_back(identifier);
    }
    return names;
}

}  // namespace Hx
