// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "las/CrsUnit.h"

namespace Ovr::Formats {

/// A coordinate system or a part of one, as a file names it.
struct CrsPart {
    std::string name{};  ///< empty when the file has none
    std::string code{};  ///< "EPSG:2903"; empty when the file has none
    CrsUnit unit{};

    friend bool operator==(const CrsPart&, const CrsPart&) = default;
};

/// What a file says of the coordinate system of its points.
struct CrsDescription {
    std::string kind{};  ///< "projected", "geographic", "geocentric", "local"; empty: not said
    std::string name{};  ///< of the whole
    std::string code{};  ///< of the whole
    std::string base{};  ///< name of the geographic system below a projected one; GeoTIFF keys only
    CrsPart horizontal{};
    std::optional<CrsPart> vertical{};
    std::vector<std::string> oddities{};  ///< what in it does not fit together
};

/// Names the coordinate system of a well-known text.
/// @return empty when it is no well-known text of a coordinate system
std::optional<CrsDescription> describeWkt(const std::string& text);

/// Names the coordinate system of GeoTIFF keys.
/// @param directory  the key directory, numbers of 16 bits
/// @param doubles    the numbers that keys refer to
/// @param texts      the texts that keys refer to
/// @return empty when the directory holds no keys
std::optional<CrsDescription> describeGeoKeys(const std::vector<unsigned>& directory,
                                              const std::vector<double>& doubles,
                                              const std::string& texts);

}  // namespace Ovr::Formats
