// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

#include "HostExport.h"
#include "Tq/Vec3d.h"

namespace Tq_1_1 {

template <typename T>
struct UnitVec3d;

/// A direction packed into 16 bits by the octahedral map of the unit sphere, one byte per axis.
///
/// | bits | meaning |
/// |---|---|
/// | 0-7 | second octahedral coordinate, 1..255 for -1..1 (128 is 0) |
/// | 8-15 | first octahedral coordinate, 1..255 for -1..1 |
///
/// The value 0 means "no normal"; no direction packs to it. The angle between a direction and its
/// packed form stays below one degree.
/// Source: Cigolle et al., "A Survey of Efficient Representations for Independent Unit Vectors",
/// JCGT 3(2), 2014.
template <>
struct HOST_EXPORT UnitVec3d<double> {
    std::uint16_t packed = 0;

    /// @param direction  any length; a zero or not finite vector gives "no normal"
    static UnitVec3d fromDirection(const Vec3d<double>& direction);

    bool isSet() const { return packed != 0; }

    /// @return vector of length 1; (0, 0, 0) for "no normal"
    Vec3d<double> direction() const;

    friend constexpr bool operator==(const UnitVec3d&, const UnitVec3d&) = default;
};

static_assert(sizeof(UnitVec3d<double>) == 2);

}  // namespace Tq_1_1
