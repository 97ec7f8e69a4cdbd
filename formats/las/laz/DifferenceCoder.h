// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <bit>
#include <cstdint>
#include <vector>

#include "las/laz/SymbolModel.h"

namespace Ovr::Formats::Laz {

/// Codes an integer as its difference to a prediction: how many bits that has, then which it is.
///
/// | model | number | symbols | chosen by |
/// |---|---|---|---|
/// | interval: the number of bits k | one per context | Bits + 1 | the caller's context |
/// | bit: 0 or 1, for k = 0 | 1 | 2 | - |
/// | corrector: the upper 8 bits | one for each k, 1 to min(Bits, 31) | 2^min(k, 8) | k |
///
/// The bits of a difference below its upper 8 are coded without a model.
/// @tparam Bits  8, 16 or 32
template <unsigned Bits>
class DifferenceCoder {
  public:
    explicit DifferenceCoder(unsigned contexts = 1) {
        intervals_.reserve(contexts);
        for (unsigned context = 0; context < contexts; ++context) {
            intervals_.emplace_back(Bits + 1);
        }
        correctors_.reserve(kMostCorrected);
        for (unsigned k = 1; k <= kMostCorrected; ++k) {
            correctors_.emplace_back(1U << std::min(k, kModelled));
        }
    }

    /// @param value    what an encoder writes
    /// @return the value: of less than 32 bits it is not negative
    template <class Coder>
    std::int32_t code(Coder& coder, std::int32_t prediction, std::int32_t value,
                      unsigned context = 0) {
        std::uint32_t difference = 0;
        if constexpr (!Coder::DECODES) {
            difference =
                fold(static_cast<std::uint32_t>(value) - static_cast<std::uint32_t>(prediction));
            k_ = bitsOf(difference);
        }
        k_ = coder.symbol(intervals_[context], k_);
        if (k_ == 0) {
            difference = coder.bit(bit_, difference);
        } else if (k_ == 32) {
            difference = kSign;
        } else {
            difference = correct(coder, difference);
        }
        return static_cast<std::int32_t>((static_cast<std::uint32_t>(prediction) + difference) &
                                         kMask);
    }

    /// Number of bits of the last difference, on which callers choose contexts.
    unsigned k() const { return k_; }

  private:
    static constexpr unsigned kMostCorrected = std::min(Bits, 31U);
    static constexpr unsigned kModelled = 8;  ///< bits of a difference with a model
    static constexpr std::uint32_t kSign = 0x80000000U;
    static constexpr std::uint32_t kMask = Bits < 32 ? (1U << (Bits % 32)) - 1U : ~0U;

    /// The shorter way round from the prediction to the value.
    static std::uint32_t fold(std::uint32_t difference) {
        const std::uint32_t low = difference & kMask;
        return Bits < 32 && (low >> (Bits - 1U)) != 0 ? low | ~kMask : low;
    }
    static unsigned bitsOf(std::uint32_t difference) {
        const bool isPositive = difference != 0 && difference < kSign;
        return static_cast<unsigned>(std::bit_width(isPositive ? difference - 1 : 0 - difference));
    }

    /// A difference of k bits, 1 to 31: from -(2^k - 1) to -2^(k - 1), or from 2^(k - 1) + 1 to
    /// 2^k, coded as 0 to 2^k - 1.
    template <class Coder>
    std::uint32_t correct(Coder& coder, std::uint32_t difference) {
        const std::uint32_t offset = (1U << k_) - 1U;
        std::uint32_t place = (difference & kSign) != 0 ? difference + offset : difference - 1U;
        SymbolModel& model = correctors_[k_ - 1];
        if (k_ <= kModelled) {
            place = coder.symbol(model, place);
        } else {
            const unsigned rest = k_ - kModelled;
            const std::uint32_t upper = coder.symbol(model, place >> rest);
            place = upper << rest | coder.raw(rest, place & ((1U << rest) - 1U));
        }
        return place >> (k_ - 1U) != 0 ? place + 1U : place - offset;
    }

    std::vector<SymbolModel> intervals_;
    std::vector<SymbolModel> correctors_;
    BitModel bit_;
    unsigned k_ = 0;
};

}  // namespace Ovr::Formats::Laz
