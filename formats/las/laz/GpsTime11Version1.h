// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "kit/LittleEndian.h"
#include "las/laz/Arithmetic.h"
#include "las/laz/DifferenceCoder.h"
#include "las/laz/SymbolModel.h"
#include "las/laz/TimeSequences.h"

namespace Ovr::Formats::Laz {

/// The time of a record of formats 1 and 3 to 5, in version 1 of old files: one sequence. A time
/// is the bit pattern of its double.
///
/// | state | at first |
/// |---|---|
/// | the last time | the first point's |
/// | delta, the usual step | 0 |
/// | extreme: odd multiples of delta in a row | 0 |
///
/// | model | symbols | meaning |
/// |---|---|---|
/// | zero, while delta is 0 | 3 | stays, a step, a time as it is |
/// | multi, else | 512 | 0 to 509 a multiple of delta, 510 a time as it is, 511 stays |
/// | difference, 32 bits | 6 contexts | the step |
///
/// | symbol of the multi model | context | predicted from | then |
/// |---|---|---|---|
/// | 0 | 2 | delta / 4 | extreme |
/// | 1 | 1 | delta | becomes delta, extreme ends |
/// | 2 to 9, 10 to 49, 50 to 509 | 3, 4, 5 | symbol * delta | for 509: extreme |
///
/// The fourth extreme in a row makes its step the new delta.
class GpsTime11Version1 {
  public:
    static constexpr std::size_t SIZE = 8;

    void begin(const char* first) { time_ = loadLittle<std::int64_t>(first); }

    template <class Coder>
    void code(Coder& coder, typename Coder::Bytes bytes) {
        std::int64_t time = 0;
        if constexpr (!Coder::DECODES) {
            time = loadLittle<std::int64_t>(bytes);
        }
        if (delta_ == 0) {
            codeFirstStep(coder, time);
        } else {
            codeMultiple(coder, time);
        }
        if constexpr (Coder::DECODES) {
            storeLittle(bytes, time_);
        }
    }

  private:
    static constexpr std::int32_t kHighest = 509;
    static constexpr unsigned kAsItIs = 510;
    static constexpr unsigned kStays = 511;

    template <class Coder>
    std::int32_t codeStep(Coder& coder, std::int64_t time, std::int32_t prediction,
                          unsigned context) {
        const std::int32_t step = steps_.code(
            coder, prediction, static_cast<std::int32_t>(wrappedDifference(time, time_)), context);
        time_ = wrappedSum(time_, std::int64_t{step});
        return step;
    }

    template <class Coder>
    void codeAsItIs(Coder& coder, std::int64_t time) {
        constexpr unsigned kHalf = 32;
        const std::uint64_t low = coder.raw(kHalf, static_cast<std::uint32_t>(time));
        const std::uint64_t high = coder.raw(kHalf, static_cast<std::uint32_t>(time >> kHalf));
        time_ = static_cast<std::int64_t>(high << kHalf | low);
    }

    template <class Coder>
    void codeFirstStep(Coder& coder, std::int64_t time) {
        const std::int64_t wanted = wrappedDifference(time, time_);
        const unsigned kind =
            coder.symbol(zero_, wanted == 0 ? 0U : (fitsIn32Bits(wanted) ? 1U : 2U));
        if (kind == 1) {
            delta_ = codeStep(coder, time, 0, 0);
            extreme_ = 0;
        } else if (kind == 2) {
            codeAsItIs(coder, time);
        }
    }

    unsigned choose(std::int64_t time) const {
        const std::int64_t step = wrappedDifference(time, time_);
        if (step == 0) {
            return kStays;
        }
        if (!fitsIn32Bits(step)) {
            return kAsItIs;
        }
        return static_cast<unsigned>(
            std::clamp(multipleOf(static_cast<std::int32_t>(step), delta_), 0, kHighest));
    }

    template <class Coder>
    void codeMultiple(Coder& coder, std::int64_t time) {
        const unsigned symbol = coder.symbol(multi_, Coder::DECODES ? 0U : choose(time));
        if (symbol == kStays) {
            return;
        }
        if (symbol == kAsItIs) {
            codeAsItIs(coder, time);
            return;
        }
        if (symbol == 1) {
            delta_ = codeStep(coder, time, delta_, 1);
            extreme_ = 0;
            return;
        }
        const auto factor = static_cast<std::int32_t>(symbol);
        const unsigned context = factor == 0 ? 2 : factor < 10 ? 3 : factor < 50 ? 4 : 5;
        const std::int32_t step = codeStep(
            coder, time, factor == 0 ? delta_ / 4 : wrappedProduct(factor, delta_), context);
        if ((factor == 0 || factor == kHighest) && ++extreme_ > 3) {
            delta_ = step;
            extreme_ = 0;
        }
    }

    std::int64_t time_ = 0;
    std::int32_t delta_ = 0;
    unsigned extreme_ = 0;
    SymbolsOf<3> zero_;
    SymbolsOf<512> multi_;
    DifferenceCoder<32> steps_{6};
};

}  // namespace Ovr::Formats::Laz
