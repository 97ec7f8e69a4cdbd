// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>

#include "Ovr/Errors.h"
#include "Tq/Vec3d.h"
#include "kit/AtomicFile.h"

namespace Ovr::Formats {

/// What stands in front of the points of one scan.
struct PtxScan {
    int columns = 0;  ///< above 0
    int rows = 0;     ///< above 0
    /// 4 x 4 by columns, from the scanner's frame to the world, translation [m] in values 12 to 14.
    std::array<double, 16> pose{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    bool colored = false;
};

struct PtxCell {
    Tq_1_1::Vec3d<double> position;  ///< [m], scanner's frame
    double intensity = 0.0;          ///< 0 to 1
    std::array<std::uint8_t, 3> color{};
};

/// Writes scans into a PTX file, which appears when it is finished and leaves no trace when it is
/// not. Coordinates and intensities are written with 6 decimals, poses in full precision.
class PtxWriter {
  public:
    /// @return empty on success. Requires: called once.
    [[nodiscard]] ErrorPtr open(const std::filesystem::path& file, Existing existing);

    /// Begins a scan; its cells follow, column after column.
    /// @return InvalidValue when cells of the scan before are missing
    [[nodiscard]] ErrorPtr beginScan(const PtxScan& scan);
    [[nodiscard]] ErrorPtr write(const PtxCell& cell);
    [[nodiscard]] ErrorPtr writeNoReturn();

    /// Brings the file to its name. @return InvalidValue when cells are missing.
    [[nodiscard]] ErrorPtr finish();

  private:
    [[nodiscard]] ErrorPtr put(const std::string& line);
    [[nodiscard]] ErrorPtr checkComplete() const;

    AtomicFile file_;
    std::string name_;
    bool colored_ = false;
    std::uint64_t cellsLeft_ = 0;
    std::string line_;
};

}  // namespace Ovr::Formats
