// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <string_view>

namespace Vardex {

/// What a point set keeps for each of its points. The numbers follow each other without a gap.
enum class PointRecordLayout : std::int32_t {
    None = 0,                   ///< no records
    Plain = 1,                  ///< scan point; it holds either a colour or a reflection
    WithReflection = 2,         ///< scan point and a reflection of its own
    WithTime = 3,               ///< scan point and time; either a colour or a reflection
    WithReflectionAndTime = 4,  ///< scan point, a reflection of its own, and time
};

/// The name of a layout, as the enumeration spells it; empty for a number that is no layout.
constexpr std::string_view layoutName(PointRecordLayout layout) {
    switch (layout) {
        case PointRecordLayout::None:
            return "None";
        case PointRecordLayout::Plain:
            return "Plain";
        case PointRecordLayout::WithReflection:
            return "WithReflection";
        case PointRecordLayout::WithTime:
            return "WithTime";
        case PointRecordLayout::WithReflectionAndTime:
            return "WithReflectionAndTime";
    }
    return {};
}

}  // namespace Vardex
