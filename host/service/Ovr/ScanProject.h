// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <mutex>
#include <optional>

#include "HostExport.h"
#include "Tq/Vec3d.h"

namespace Ovr {

/// What the scans of one project share: the origin that their single-precision coordinates count
/// from. Shared by the scans' sources; threads: any.
class HOST_EXPORT ScanProject {
  public:
    /// The project's origin [m, world]; chosen on the first call, and kept: per axis the whole
    /// hundred of metres nearest to @p nearby, halves away from 0. No zero of it is negative.
    /// Requires: @p nearby is finite.
    Tq_1_1::Vec3d<double> chooseOrigin(const Tq_1_1::Vec3d<double>& nearby);

    /// @return empty until an origin was chosen
    std::optional<Tq_1_1::Vec3d<double>> origin() const;

  private:
    mutable std::mutex mutex_;
    std::optional<Tq_1_1::Vec3d<double>> origin_;
};

}  // namespace Ovr
