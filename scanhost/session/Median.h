// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace ScanHost {

/// The middle value, or the mean of the two in the middle. The values change their order.
/// Requires: there are values, and none is not-a-number.
template <typename Value>
double medianOf(std::vector<Value>& values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    const double upper = *middle;
    if (values.size() % 2 == 1) {
        return upper;
    }
    const double lower = *std::max_element(values.begin(), middle);
    return lower + (upper - lower) / 2;
}

}  // namespace ScanHost
