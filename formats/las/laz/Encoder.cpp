// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "las/laz/Encoder.h"

#include <algorithm>

namespace Ovr::Formats::Laz {

/// Never runs past the first byte: the interval lies below 1.
void Encoder::carry() {
    std::size_t at = size_ - 1;
    while (bytes_[at] == '\xFF') {
        bytes_[at--] = 0;
    }
    ++bytes_[at];
}

void Encoder::grow() {
    constexpr std::size_t kSmallest = 1024;
    bytes_.resize(std::max(kSmallest, 2 * bytes_.size()));
}

std::span<const char> Encoder::finish() {
    constexpr std::uint32_t kLong = 1U << 25U;
    const bool isLong = length_ > kLong;
    add(isLong ? 1U << 24U : 1U << 23U);
    length_ = isLong ? 1U << 23U : 1U << 15U;
    renormalise();
    const std::size_t zeros = isLong ? 3 : 2;
    bytes_.resize(size_ + zeros);
    std::fill_n(bytes_.end() - static_cast<std::ptrdiff_t>(zeros), zeros, '\0');
    return bytes_;
}

}  // namespace Ovr::Formats::Laz
