// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

#include "Tq/String.h"

namespace Hx {

/// What an attribute is used for.
enum AttrUsage : std::uint32_t {
    ATTR_STORED = 0,  ///< kept with the object and copied with it
    ATTR_NO_USE = 54  ///< of the entry that closes a table
};

/// Type of an attribute's value.
enum AttrType : std::uint32_t {
    ATTR_END = 1,  ///< of the entry that closes a table
    ATTR_INT32 = 16,
    ATTR_STRING = 32
};

/// One line of a class's attribute table. A table ends with an entry whose name holds no value.
struct AttrDefinition {
    /// The token of no attribute.
    static constexpr unsigned int NO_TOKEN = 0xFFFFFFFF;

    std::uint32_t token = NO_TOKEN;
    Tq_1_1::String name;
    std::uint32_t usage = ATTR_NO_USE;  ///< AttrUsage
    std::uint32_t type = ATTR_END;      ///< AttrType
};

}  // namespace Hx
