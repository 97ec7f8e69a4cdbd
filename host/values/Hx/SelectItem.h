// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

namespace Hx {

/// The address of one point in a point set.
struct SelectItem {
    /// Flat index of the invalid item: all bits set.
    static constexpr std::uint64_t INVALID_INDEX = ~std::uint64_t{0};

    std::uint64_t index = INVALID_INDEX;  ///< row x cols + col
    std::int32_t row = 0;                 ///< 0 in an item made from an index alone
    std::int32_t col = 0;                 ///< 0 in an item made from an index alone
    std::uint64_t extra = 0;              ///< for the host's own use; point sets set it to 0

    constexpr bool isValid() const { return index != INVALID_INDEX; }
    friend constexpr bool operator==(const SelectItem&, const SelectItem&) = default;
};

}  // namespace Hx
