// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <type_traits>

#include "HostExport.h"
#include "Tq/Color4d.h"
#include "Tq/UnitVec3d.h"
#include "Tq/Vec3d.h"

namespace Tq_1_1 {

/// Bit of colour channel 3 that tells a colour (set) from a reflection in channels 0-1 (clear).
inline constexpr unsigned char kColorFlag = 1;

#pragma pack(push, 2)

template <typename Vector>
struct ScanPtColor;

/// The host's scan point: a packed record, of which point sets keep millions.
///
/// | offset | width | field |
/// |---|---|---|
/// | 0 | 3 x 4 | position x, y, z [m], scanner coordinates |
/// | 12 | 2 | packed normal |
/// | 14 | 4 | colour channels 0-3; see kColorFlag |
///
/// Coordinates are not aligned in records: read them as values and never bind a reference to one.
template <>
struct HOST_EXPORT ScanPtColor<Vec3d<float>> {
    float x = 0.0F;
    float y = 0.0F;
    float z = 0.0F;
    UnitVec3d<double> normal;
    Color4d<unsigned char> color;

    Vec3d<float> position() const { return {x, y, z}; }
    void setPosition(const Vec3d<float>& p) {
        x = p.x;
        y = p.y;
        z = p.z;
    }
    bool hasColor() const { return (color[3] & kColorFlag) != 0; }

    /// The null point: a cell without a return. All fields are zero unless the host chose another.
    static const ScanPtColor& nullReference;
};

#pragma pack(pop)

/// Chooses the null point of this host. Requires: no scan has points yet.
HOST_EXPORT void setNullPoint(const ScanPtColor<Vec3d<float>>& point);

static_assert(sizeof(ScanPtColor<Vec3d<float>>) == 18);
static_assert(alignof(ScanPtColor<Vec3d<float>>) <= 2);
static_assert(offsetof(ScanPtColor<Vec3d<float>>, normal) == 12);
static_assert(offsetof(ScanPtColor<Vec3d<float>>, color) == 14);
static_assert(std::is_trivially_copyable_v<ScanPtColor<Vec3d<float>>>);

}  // namespace Tq_1_1
