// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "las/laz/SymbolModel.h"

#include <algorithm>
#include <bit>
#include <limits>

namespace Ovr::Formats::Laz {

namespace {

constexpr std::uint32_t kHalf = 0x80000000U;
constexpr std::uint32_t kLargestTotal = 1U << SymbolModel::SHARE_BITS;
constexpr std::uint32_t kLargestBitTotal = 1U << BitModel::SHARE_BITS;
constexpr std::uint32_t kLongestBitCycle = 64;
constexpr unsigned kScaleBits = 31;
/// A decoder's share may exceed the largest total by 64: a start more than the shares have.
constexpr std::uint32_t kLargestShare = kLargestTotal + 64;

std::uint32_t longer(std::uint32_t cycle, std::uint32_t longest) {
    return std::min(5 * cycle / 4, longest);
}

}  // namespace

void SymbolModel::make(bool searched) {
    if (searched) {
        // Twice as many starts as symbols: most searches end at once.
        const unsigned bits =
            std::max(3U, static_cast<unsigned>(std::bit_width(symbols_ - 1U))) + 1U;
        shift_ = static_cast<std::uint8_t>(SHARE_BITS - bits);
        starts_ = static_cast<std::uint16_t>((kLargestShare >> shift_) + 1);
    }
    tables_ = std::make_unique<std::uint16_t[]>(std::size_t{2} * symbols_ + 1 + starts_);
    tables_[symbols_] = std::numeric_limits<std::uint16_t>::max();
    std::fill_n(tables_.get() + symbols_ + 1, symbols_, std::uint16_t{1});
    total_ = symbols_;
    spread();
    cycle_ = (symbols_ + 6U) / 2U;
    left_ = cycle_;
}

void SymbolModel::update() {
    total_ += cycle_;
    if (total_ > kLargestTotal) {
        halve();
    }
    spread();
    cycle_ = longer(cycle_, 8U * (symbols_ + 6U));
    left_ = cycle_;
}

void SymbolModel::halve() {
    std::uint16_t* const counts = tables_.get() + symbols_ + 1;
    total_ = 0;
    for (unsigned symbol = 0; symbol < symbols_; ++symbol) {
        counts[symbol] = static_cast<std::uint16_t>((counts[symbol] + 1U) / 2U);
        total_ += counts[symbol];
    }
}

void SymbolModel::spread() {
    std::uint16_t* const sums = tables_.get();
    const std::uint16_t* const counts = sums + symbols_ + 1;
    const std::uint32_t scale = kHalf / total_;
    std::uint32_t sum = 0;
    for (unsigned symbol = 0; symbol < symbols_; ++symbol) {
        sums[symbol] = static_cast<std::uint16_t>((scale * sum) >> (kScaleBits - SHARE_BITS));
        sum += counts[symbol];
    }
    std::uint16_t* const starts = tables_.get() + std::size_t{2} * symbols_ + 1;
    unsigned symbol = 0;
    for (std::uint32_t start = 0; start < starts_; ++start) {
        while (sums[symbol + 1] <= start << shift_) {
            ++symbol;
        }
        starts[start] = static_cast<std::uint16_t>(symbol);
    }
}

void BitModel::update() {
    total_ += cycle_;
    if (total_ > kLargestBitTotal) {
        total_ = (total_ + 1) / 2;
        zeros_ = (zeros_ + 1) / 2;
        total_ += zeros_ == total_ ? 1U : 0U;
    }
    share_ = (zeros_ * (kHalf / total_)) >> (kScaleBits - SHARE_BITS);
    cycle_ = longer(cycle_, kLongestBitCycle);
    left_ = cycle_;
}

}  // namespace Ovr::Formats::Laz
