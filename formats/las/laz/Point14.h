// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

#include "las/laz/Arithmetic.h"
#include "las/laz/ChannelStates.h"
#include "las/laz/Point14Context.h"
#include "las/laz/Point14Fields.h"

namespace Ovr::Formats::Laz {

/// The 30 bytes that every record of formats 6 to 10 begins with, versions 3 and 4: nine layers.
/// Each scanner channel has a context of its own; one that comes up is made from the point before.
/// r is the point's return number, n the number of its pulse's returns, m and l come from both; g
/// is 1 when the time changes; v is 2 for r = 1, plus 1 for r >= n.
///
/// | value, in order | layer | coded by | chosen by, of how many | predicted from | at first |
/// |---|---|---|---|---|---|
/// | mask of what changes | 0 | 128 symbols | last r = 1, last r >= n, last g: 8 | - | |
/// | channel | 0 | 3 symbols | - | the last point's | |
/// | n | 0 | 16 symbols | last n: 16 | - | |
/// | r, other than +1 and -1 | 0 | 16 symbols with g, else 13 | last r: 16, else 1 | - | |
/// | x, to the last | 0 | difference, 32 bits | n = 1: 2 | median of 2m + g | 0 |
/// | y, to the last | 0 | difference, 32 bits | n = 1, bits of x: 22 | median of 2m + g | 0 |
/// | z | 1 | difference, 32 bits | n = 1, bits of x and y: 20 | last of this l | z |
/// | classification | 2 | 256 symbols | last one, single return: 64 | - | |
/// | flags | 3 | 64 symbols | last ones: 64 | - | |
/// | intensity | 4 | difference, 16 bits | v: 4 | last of 2v + g | intensity |
/// | scan angle | 5 | difference, 16 bits | g: 2 | the last one | |
/// | user data | 6 | 256 symbols | last one / 4: 64 | - | |
/// | point source | 7 | difference, 16 bits | - | the last one | |
/// | time | 8 | time sequences | - | see TimeSequences | |
///
/// Number of returns, return number, scan angle, point source and time are coded only where the
/// mask says so. "At first" is the value of the point that made the context.
class Point14 {
  public:
    static constexpr std::size_t SIZE = Point14Fields::SIZE;
    static constexpr std::size_t LAYERS = 9;

    ChannelStep begin(const char* first) {
        const Point14Fields point = Point14Fields::load(first);
        current_ = point.channel();
        contexts_[current_] = std::make_unique<Point14Context>(point);
        return {current_, true};
    }

    /// @param layers  LAYERS of them
    template <class Coder>
    ChannelStep code(std::span<Coder> layers, typename Coder::Bytes bytes) {
        Point14Fields now;
        if constexpr (!Coder::DECODES) {
            now = Point14Fields::load(bytes);
        }
        const unsigned mask = codeChannel(layers[kXY], now);
        Point14Context& context = *contexts_[current_];
        if constexpr (Coder::DECODES) {
            now = context.last;
        }
        codeReturns(layers[kXY], context, now, mask);
        codePosition(layers, context, now, mask);
        codeAttributes(layers, context, now, mask);
        context.last = now;
        context.timeChanged = (mask & kTime) != 0;
        if constexpr (Coder::DECODES) {
            now.store(bytes);
        }
        return {current_, (mask & kChannel) != 0};
    }

  private:
    enum Layer : std::size_t {
        kXY,
        kZ,
        kClassLayer,
        kFlagsLayer,
        kIntensityLayer,
        kAngleLayer,
        kUserLayer,
        kSourceLayer,
        kTimeLayer
    };
    enum Mask : unsigned {
        kNumber = 3,  ///< 0 as it was, 1 one more, 2 one less, 3 another
        kCount = 4,
        kAngle = 8,
        kTime = 16,
        kSource = 32,
        kChannel = 64
    };

    static unsigned differences(const Point14Fields& now, const Point14Fields& last);

    template <class Coder>
    unsigned codeChannel(Coder& coder, const Point14Fields& now);
    template <class Coder>
    void codeReturns(Coder& coder, Point14Context& context, Point14Fields& now, unsigned mask);
    template <class Coder>
    void codePosition(std::span<Coder> layers, Point14Context& context, Point14Fields& now,
                      unsigned mask);
    template <class Coder>
    void codeAttributes(std::span<Coder> layers, Point14Context& context, Point14Fields& now,
                        unsigned mask);
    template <class Coder>
    void codeMasked(std::span<Coder> layers, Point14Context& context, Point14Fields& now,
                    unsigned mask);

    std::array<std::unique_ptr<Point14Context>, 4> contexts_;
    unsigned current_ = 0;
};

}  // namespace Ovr::Formats::Laz

#include "las/laz/Point14Steps.h"  // IWYU pragma: keep
