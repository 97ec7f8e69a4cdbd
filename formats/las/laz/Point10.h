// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "las/laz/Arithmetic.h"
#include "las/laz/DifferenceCoder.h"
#include "las/laz/Median.h"
#include "las/laz/Point10Fields.h"
#include "las/laz/SymbolModel.h"

namespace Ovr::Formats::Laz {

/// The 20 bytes that every record of formats 0 to 5 begins with, in version 2.
/// r is the point's return number and n the number of its pulse's returns; m and l come from both.
///
/// | field, in order | coded by | context | predicted from | at first |
/// |---|---|---|---|---|
/// | mask of what differs | 64 symbols | - | - | |
/// | return byte | 256 symbols | the last one | - | |
/// | intensity | difference, 16 bits | min(m, 3) of 4 | the last of this m | 0 |
/// | classification | 256 symbols | the last one | - | |
/// | scan angle | 256 symbols | scan direction of 2 | the last one | |
/// | user data | 256 symbols | the last one | - | |
/// | point source | difference, 16 bits | - | the last one | |
/// | x, to the last | difference, 32 bits | n = 1 of 2 | median of this m | 0 |
/// | y, to the last | difference, 32 bits | n = 1, bits of x: of 22 | median of this m | 0 |
/// | z | difference, 32 bits | n = 1, bits of x and y: of 20 | the last of this l | 0 |
///
/// The fields from the return byte to the point source are coded only where the mask says so.
class Point10 {
  public:
    static constexpr std::size_t SIZE = Point10Fields::SIZE;

    void begin(const char* first) { last_ = Point10Fields::load(first); }

    template <class Coder>
    void code(Coder& coder, typename Coder::Bytes bytes) {
        Point10Fields now = last_;
        if constexpr (!Coder::DECODES) {
            now = Point10Fields::load(bytes);
        }
        codeAttributes(coder, now);
        codePosition(coder, now);
        last_ = now;
        if constexpr (Coder::DECODES) {
            now.store(bytes);
        }
    }

  private:
    enum Mask : unsigned {
        kSource = 1,
        kUser = 2,
        kAngle = 4,
        kClass = 8,
        kIntensity = 16,
        kReturns = 32
    };

    static constexpr std::array<std::array<std::uint8_t, 8>, 8> kMap{{
        {15, 14, 13, 12, 11, 10, 9, 8},
        {14, 0, 1, 3, 6, 10, 10, 9},
        {13, 1, 2, 4, 7, 11, 11, 10},
        {12, 3, 4, 5, 8, 12, 12, 11},
        {11, 6, 7, 8, 9, 13, 13, 12},
        {10, 10, 11, 12, 13, 14, 14, 13},
        {9, 10, 11, 12, 13, 14, 15, 14},
        {8, 9, 10, 11, 12, 13, 14, 15},
    }};
    static unsigned mapped(const Point10Fields& point) {
        return kMap[point.returnCount()][point.returnNumber()];
    }

    unsigned differences(const Point10Fields& now) const {
        return (now.returns != last_.returns ? kReturns : 0U) |
               (now.intensity != intensities_[mapped(now)] ? kIntensity : 0U) |
               (now.classification != last_.classification ? kClass : 0U) |
               (now.angle != last_.angle ? kAngle : 0U) | (now.user != last_.user ? kUser : 0U) |
               (now.source != last_.source ? kSource : 0U);
    }

    template <class Coder>
    void codeAttributes(Coder& coder, Point10Fields& now) {
        const unsigned mask = coder.symbol(mask_, Coder::DECODES ? 0U : differences(now));
        if ((mask & kReturns) != 0) {
            now.returns = byte(coder.symbol(returns_[last_.returns], now.returns));
        }
        const unsigned m = mapped(now);
        if ((mask & kIntensity) != 0) {
            intensities_[m] = static_cast<std::uint16_t>(
                intensity_.code(coder, intensities_[m], now.intensity, std::min(m, 3U)));
        }
        now.intensity = intensities_[m];
        if ((mask & kClass) != 0) {
            now.classification =
                byte(coder.symbol(class_[last_.classification], now.classification));
        }
        if ((mask & kAngle) != 0) {
            now.angle = codeByte(coder, angle_[now.scanDirection()], last_.angle, now.angle);
        }
        if ((mask & kUser) != 0) {
            now.user = byte(coder.symbol(user_[last_.user], now.user));
        }
        if ((mask & kSource) != 0) {
            now.source = static_cast<std::uint16_t>(source_.code(coder, last_.source, now.source));
        }
    }

    template <class Coder>
    void codePosition(Coder& coder, Point10Fields& now) {
        const unsigned m = mapped(now);
        const unsigned single = now.returnCount() == 1 ? 1 : 0;
        now.x = codeStep(coder, x_, medianX_[m], last_.x, now.x, single);
        const unsigned xBits = x_.k();
        now.y = codeStep(coder, y_, medianY_[m], last_.y, now.y,
                         single + (xBits < 20 ? xBits & ~1U : 20U));
        const unsigned bits = (xBits + y_.k()) / 2;
        std::int32_t& height = heights_[now.level()];
        height = z_.code(coder, height, now.z, single + (bits < 18 ? bits & ~1U : 18U));
        now.z = height;
    }

    template <class Coder>
    static std::int32_t codeStep(Coder& coder, DifferenceCoder<32>& steps, Median& median,
                                 std::int32_t last, std::int32_t now, unsigned context) {
        const std::int32_t step =
            steps.code(coder, median.value(), wrappedDifference(now, last), context);
        median.add(step);
        return wrappedSum(last, step);
    }
    static std::uint8_t byte(unsigned symbol) { return static_cast<std::uint8_t>(symbol); }

    Point10Fields last_;
    std::array<std::uint16_t, 16> intensities_{};
    std::array<std::int32_t, 8> heights_{};
    std::array<Median, 16> medianX_;
    std::array<Median, 16> medianY_;
    SymbolsOf<64> mask_;
    std::array<SymbolsOf<256>, 256> returns_;
    std::array<SymbolsOf<256>, 256> class_;
    std::array<SymbolsOf<256>, 2> angle_;
    std::array<SymbolsOf<256>, 256> user_;
    DifferenceCoder<16> intensity_{4};
    DifferenceCoder<16> source_;
    DifferenceCoder<32> x_{2};
    DifferenceCoder<32> y_{22};
    DifferenceCoder<32> z_{20};
};

}  // namespace Ovr::Formats::Laz
