// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <utility>

#include "Ovr/Modification.h"

namespace Hx {

/// The host's view of a modification: holds the scan data's scope and ends it.
class ModificationScope {
  public:
    /// Requires: @p scope is not empty.
    explicit ModificationScope(
        std::unique_ptr<Ovr::DataStructures::ScanDataModificationScope> scope)
        : scope_(std::move(scope)) {}

    Ovr::DataStructures::ScanDataModificationScope& getScanDataScope() const { return *scope_; }

  private:
    std::unique_ptr<Ovr::DataStructures::ScanDataModificationScope> scope_;
};

}  // namespace Hx
