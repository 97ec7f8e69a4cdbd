// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "las/laz/SymbolModel.h"

namespace Ovr::Formats::Laz {

/// Writes a stream of arithmetic code. Every operation gives its value back, as the decoder's
/// operation of that name gives the value that it reads: what is coded is written down once and run
/// by either.
///
/// | register | at first |
/// |---|---|
/// | low end of the interval | 0 |
/// | length of the interval | 0xFFFFFFFF |
class Encoder {
  public:
    static constexpr bool DECODES = false;
    using Bytes = const char*;  ///< of a record

    unsigned symbol(SymbolModel& model, unsigned value) {
        model.ready(DECODES);
        const std::uint32_t share = length_ >> SymbolModel::SHARE_BITS;
        const std::uint32_t begin = model.below(value) * share;
        length_ = (model.isLast(value) ? length_ : model.below(value + 1) * share) - begin;
        add(begin);
        renormalise();
        model.count(value);
        return value;
    }

    unsigned bit(BitModel& model, unsigned value) {
        const std::uint32_t zeros = model.zeroShare() * (length_ >> BitModel::SHARE_BITS);
        length_ = value == 0 ? zeros : length_ - zeros;
        add(value == 0 ? 0 : zeros);
        renormalise();
        model.count(value);
        return value;
    }

    /// Writes the lowest @p bits of a value, 1 to 32, without a model.
    std::uint32_t raw(unsigned bits, std::uint32_t value) {
        constexpr unsigned kMostAtOnce = 19;
        if (bits > kMostAtOnce) {
            raw(16, value & 0xFFFFU);
            raw(bits - 16, value >> 16U);
            return value;
        }
        length_ >>= bits;
        add(value * length_);
        renormalise();
        return value;
    }

    /// Layers of a chunk are left out when nothing in them was needed.
    void need(bool isNeeded) { needed_ = needed_ || isNeeded; }
    bool isNeeded() const { return needed_; }
    static constexpr bool isPresent() { return true; }
    /// The decoder's, which an encoder has no use for.
    static constexpr void damaged(const char*, const char*) {}

    /// Ends the stream, with as many bytes as its decoder will have read.
    /// @return all of it, valid as long as the encoder. Nothing more can be coded.
    std::span<const char> finish();

  private:
    void add(std::uint32_t part) {
        low_ += part;
        if (low_ < part) {
            carry();
        }
    }
    void renormalise() {
        constexpr std::size_t kAtMost = 4;
        if (size_ + kAtMost > bytes_.size()) {
            grow();
        }
        for (unsigned i = 0; i < kAtMost; ++i) {
            bytes_[size_ + i] = static_cast<char>(low_ >> (24U - 8U * i));
        }
        const unsigned bits = static_cast<unsigned>(std::countl_zero(length_)) & 24U;
        size_ += bits / 8U;
        low_ <<= bits;
        length_ <<= bits;
    }
    void carry();
    void grow();

    std::uint32_t low_ = 0;
    std::uint32_t length_ = 0xFFFFFFFFU;
    std::size_t size_ = 0;  ///< of what is written; the vector is longer
    std::vector<char> bytes_;
    bool needed_ = false;
};

}  // namespace Ovr::Formats::Laz
