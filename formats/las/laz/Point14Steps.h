// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

// The steps of Point14, in the order in which they are coded.

#include <span>

#include "las/laz/Point14.h"

namespace Ovr::Formats::Laz {

inline unsigned Point14::differences(const Point14Fields& now, const Point14Fields& last) {
    const unsigned number = (now.returnNumber() - last.returnNumber()) & 15U;
    constexpr unsigned kOneLess = 15;
    return (number < 2           ? number
            : number == kOneLess ? 2U
                                 : 3U) |
           (now.returnCount() != last.returnCount() ? kCount : 0U) |
           (now.angle != last.angle ? kAngle : 0U) | (now.time != last.time ? kTime : 0U) |
           (now.source != last.source ? kSource : 0U);
}

/// Brings the point's channel up. @return the mask
template <class Coder>
unsigned Point14::codeChannel(Coder& coder, const Point14Fields& now) {
    Point14Context& before = *contexts_[current_];
    const Point14Fields& last = before.last;
    unsigned mask = 0;
    if constexpr (!Coder::DECODES) {
        const auto& own = contexts_[now.channel()];
        mask =
            differences(now, own ? own->last : last) | (now.channel() != current_ ? kChannel : 0U);
    }
    const unsigned which = (last.returnNumber() == 1 ? 1U : 0U) |
                           (last.returnNumber() >= last.returnCount() ? 2U : 0U) |
                           (before.timeChanged ? 4U : 0U);
    mask = coder.symbol(before.change[which], mask);
    if ((mask & kChannel) != 0) {
        const unsigned ahead = coder.symbol(before.channel, (now.channel() - current_ - 1) & 3U);
        current_ = (current_ + 1 + ahead) & 3U;
        if (!contexts_[current_]) {
            contexts_[current_] = std::make_unique<Point14Context>(last);
            contexts_[current_]->last.setChannel(current_);
        }
    }
    return mask;
}

template <class Coder>
void Point14::codeReturns(Coder& coder, Point14Context& context, Point14Fields& now,
                          unsigned mask) {
    const unsigned lastNumber = context.last.returnNumber();
    unsigned count = now.returnCount();
    unsigned number = now.returnNumber();
    if ((mask & kCount) != 0) {
        count = coder.symbol(context.count[context.last.returnCount()], count);
    }
    switch (mask & kNumber) {
        case 0:
            number = lastNumber;
            break;
        case 1:
            number = lastNumber + 1;
            break;
        case 2:
            number = lastNumber - 1;
            break;
        default:
            number = (mask & kTime) != 0 ? coder.symbol(context.number[lastNumber], number)
                                         : lastNumber + 2 +
                                               coder.symbol(context.numberOfSameTime,
                                                            (number - lastNumber - 2) & 15U);
    }
    now.setReturns(number & 15U, count);
}

template <class Coder>
void Point14::codePosition(std::span<Coder> layers, Point14Context& context, Point14Fields& now,
                           unsigned mask) {
    const unsigned which = 2 * now.kind() + ((mask & kTime) != 0 ? 1U : 0U);
    const unsigned single = now.returnCount() == 1 ? 1 : 0;
    Median& medianX = context.medianX[which];
    const std::int32_t xStep = context.x.code(layers[kXY], medianX.value(),
                                              wrappedDifference(now.x, context.last.x), single);
    medianX.add(xStep);
    now.x = wrappedSum(context.last.x, xStep);
    const unsigned xBits = context.x.k();
    Median& medianY = context.medianY[which];
    const std::int32_t yStep =
        context.y.code(layers[kXY], medianY.value(), wrappedDifference(now.y, context.last.y),
                       single + (xBits < 20 ? xBits & ~1U : 20U));
    medianY.add(yStep);
    now.y = wrappedSum(context.last.y, yStep);
    if (layers[kZ].isPresent()) {
        const unsigned bits = (xBits + context.y.k()) / 2;
        std::int32_t& height = context.heights[now.level()];
        height = context.z.code(layers[kZ], height, now.z, single + (bits < 18 ? bits & ~1U : 18U));
        now.z = height;
    }
}

template <class Coder>
void Point14::codeAttributes(std::span<Coder> layers, Point14Context& context, Point14Fields& now,
                             unsigned mask) {
    const Point14Fields& last = context.last;
    const unsigned v =
        (now.returnNumber() == 1 ? 2U : 0U) + (now.returnNumber() >= now.returnCount() ? 1U : 0U);
    if (Coder& layer = layers[kClassLayer]; layer.isPresent()) {
        layer.need(now.classification != last.classification);
        auto& model = context.classification[(last.classification & 31U) * 2 + (v == 3 ? 1 : 0)];
        now.classification = static_cast<std::uint8_t>(layer.symbol(model, now.classification));
    }
    if (Coder& layer = layers[kFlagsLayer]; layer.isPresent()) {
        layer.need(now.flags() != last.flags());
        now.setFlags(layer.symbol(context.flags[last.flags()], now.flags()));
    }
    if (Coder& layer = layers[kIntensityLayer]; layer.isPresent()) {
        layer.need(now.intensity != last.intensity);
        std::uint16_t& intensity = context.intensities[2 * v + ((mask & kTime) != 0 ? 1 : 0)];
        intensity =
            static_cast<std::uint16_t>(context.intensity.code(layer, intensity, now.intensity, v));
        now.intensity = intensity;
    }
    if (Coder& layer = layers[kUserLayer]; layer.isPresent()) {
        layer.need(now.user != last.user);
        now.user = static_cast<std::uint8_t>(layer.symbol(context.user[last.user >> 2U], now.user));
    }
    codeMasked(layers, context, now, mask);
}

/// What is coded only where the mask says so, each in its own layer.
template <class Coder>
void Point14::codeMasked(std::span<Coder> layers, Point14Context& context, Point14Fields& now,
                         unsigned mask) {
    const auto asked = [&](unsigned bit, Layer at) {
        if ((mask & bit) == 0) {
            return false;
        }
        Coder& layer = layers[at];
        layer.need(true);
        if (!layer.isPresent()) {
            layers[kXY].damaged("a change of a field whose layer is empty", "no change");
        }
        return layer.isPresent();
    };
    if (asked(kAngle, kAngleLayer)) {
        now.angle = static_cast<std::uint16_t>(context.angle.code(
            layers[kAngleLayer], context.last.angle, now.angle, (mask & kTime) != 0 ? 1 : 0));
    }
    if (asked(kSource, kSourceLayer)) {
        now.source = static_cast<std::uint16_t>(
            context.source.code(layers[kSourceLayer], context.last.source, now.source));
    }
    if (asked(kTime, kTimeLayer)) {
        now.time = context.times.code(layers[kTimeLayer], now.time);
    }
}

}  // namespace Ovr::Formats::Laz
