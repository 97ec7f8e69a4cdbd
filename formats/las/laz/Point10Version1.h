// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "las/laz/Arithmetic.h"
#include "las/laz/DifferenceCoder.h"
#include "las/laz/Point10Fields.h"
#include "las/laz/SymbolModel.h"

namespace Ovr::Formats::Laz {

/// The 20 bytes that every record of formats 0 to 5 begins with, in version 1 of old files.
///
/// | field, in order | coded by | context | predicted from | at first |
/// |---|---|---|---|---|
/// | x, to the last | difference, 32 bits | - | median of the last three | 0 |
/// | y, to the last | difference, 32 bits | bits of x: of 20 | median of the last three | 0 |
/// | z | difference, 32 bits | bits of x and y: of 20 | the last one | |
/// | mask of what differs | 64 symbols | - | - | |
/// | intensity | difference, 16 bits | - | the last one | |
/// | return byte | 256 symbols | the last one | - | |
/// | classification | 256 symbols | the last one | - | |
/// | scan angle | difference, 8 bits | bits of x and y below 3: of 2 | the last one | |
/// | user data | 256 symbols | the last one | - | |
/// | point source | difference, 16 bits | - | the last one | |
///
/// The fields after the mask are coded only where it says so.
class Point10Version1 {
  public:
    static constexpr std::size_t SIZE = Point10Fields::SIZE;

    void begin(const char* first) { last_ = Point10Fields::load(first); }

    template <class Coder>
    void code(Coder& coder, typename Coder::Bytes bytes) {
        Point10Fields now = last_;
        if constexpr (!Coder::DECODES) {
            now = Point10Fields::load(bytes);
        }
        const unsigned bits = codePosition(coder, now);
        codeAttributes(coder, now, bits);
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
        kReturns = 16,
        kIntensity = 32
    };
    using Three = std::array<std::int32_t, 3>;

    static std::int32_t median(const Three& v) {
        return std::max(std::min(v[0], v[1]), std::min(std::max(v[0], v[1]), v[2]));
    }

    /// @return number of bits of the steps in x and y, halved
    template <class Coder>
    unsigned codePosition(Coder& coder, Point10Fields& now) {
        constexpr unsigned kMostBits = 19;
        const std::int32_t xStep =
            x_.code(coder, median(xSteps_), wrappedDifference(now.x, last_.x));
        const std::int32_t yStep = y_.code(
            coder, median(ySteps_), wrappedDifference(now.y, last_.y), std::min(x_.k(), kMostBits));
        const unsigned bits = (x_.k() + y_.k()) / 2;
        now.x = wrappedSum(last_.x, xStep);
        now.y = wrappedSum(last_.y, yStep);
        now.z = z_.code(coder, last_.z, now.z, std::min(bits, kMostBits));
        xSteps_[oldest_] = xStep;
        ySteps_[oldest_] = yStep;
        oldest_ = (oldest_ + 1) % xSteps_.size();
        return bits;
    }

    unsigned differences(const Point10Fields& now) const {
        return (now.intensity != last_.intensity ? kIntensity : 0U) |
               (now.returns != last_.returns ? kReturns : 0U) |
               (now.classification != last_.classification ? kClass : 0U) |
               (now.angle != last_.angle ? kAngle : 0U) | (now.user != last_.user ? kUser : 0U) |
               (now.source != last_.source ? kSource : 0U);
    }

    template <class Coder>
    void codeAttributes(Coder& coder, Point10Fields& now, unsigned bits) {
        const unsigned mask = coder.symbol(mask_, Coder::DECODES ? 0U : differences(now));
        if ((mask & kIntensity) != 0) {
            now.intensity =
                static_cast<std::uint16_t>(intensity_.code(coder, last_.intensity, now.intensity));
        }
        if ((mask & kReturns) != 0) {
            now.returns = byte(coder.symbol(returns_[last_.returns], now.returns));
        }
        if ((mask & kClass) != 0) {
            now.classification =
                byte(coder.symbol(class_[last_.classification], now.classification));
        }
        if ((mask & kAngle) != 0) {
            now.angle = static_cast<std::uint8_t>(
                angle_.code(coder, last_.angle, now.angle, bits < 3 ? 1 : 0));
        }
        if ((mask & kUser) != 0) {
            now.user = byte(coder.symbol(user_[last_.user], now.user));
        }
        if ((mask & kSource) != 0) {
            now.source = static_cast<std::uint16_t>(source_.code(coder, last_.source, now.source));
        }
    }
    static std::uint8_t byte(unsigned symbol) { return static_cast<std::uint8_t>(symbol); }

    Point10Fields last_;
    Three xSteps_{};
    Three ySteps_{};
    std::size_t oldest_ = 0;
    SymbolsOf<64> mask_;
    std::array<SymbolsOf<256>, 256> returns_;
    std::array<SymbolsOf<256>, 256> class_;
    std::array<SymbolsOf<256>, 256> user_;
    DifferenceCoder<32> x_;
    DifferenceCoder<32> y_{20};
    DifferenceCoder<32> z_{20};
    DifferenceCoder<16> intensity_;
    DifferenceCoder<8> angle_{2};
    DifferenceCoder<16> source_;
};

}  // namespace Ovr::Formats::Laz
