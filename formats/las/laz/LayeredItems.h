// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

#include "kit/LittleEndian.h"
#include "las/laz/Arithmetic.h"
#include "las/laz/ChannelStates.h"
#include "las/laz/Colors.h"
#include "las/laz/SymbolModel.h"
#include "las/laz/WavePackets.h"

namespace Ovr::Formats::Laz {

// What records of formats 6 to 10 hold beyond the first 30 bytes. Every item has models and a last
// value for each scanner channel, see ChannelStates, and one layer or more, each left out when
// nothing in it changes.

/// The colour of formats 7, 8 and 10, coded like that of format 3: one layer. It is needed when
/// the mask of some point is not 0, so also for a colour that stays and is not grey.
class Rgb14 {
  public:
    static constexpr std::size_t SIZE = 6;
    static constexpr std::size_t LAYERS = 1;

    explicit Rgb14(bool isVersion3) : states_(isVersion3) {}

    void begin(const ChannelStep& step, const char* first) {
        states_.begin(step.channel, {}, loadColor(first));
    }

    template <class Coder>
    void code(std::span<Coder> layers, const ChannelStep& step, typename Coder::Bytes bytes) {
        auto [models, last] = states_.next(step, [] { return ColorModels(); });
        Color now = last;
        if constexpr (!Coder::DECODES) {
            now = loadColor(bytes);
        }
        if (layers[0].isPresent()) {
            layers[0].need(models.code(layers[0], last, now) != 0);
        }
        last = now;
        if constexpr (Coder::DECODES) {
            storeColor(bytes, now);
        }
    }

  private:
    ChannelStates<ColorModels, Color> states_;
};

/// Colour and near infrared of formats 8 and 10: two layers.
///
/// | value of the second layer, in order | coded by | predicted from |
/// |---|---|---|
/// | mask: low byte differs, high byte differs | 4 symbols | - |
/// | low byte, high byte where the mask says so | 256 symbols each | the last one |
class RgbNir14 {
  public:
    static constexpr std::size_t SIZE = 8;
    static constexpr std::size_t LAYERS = 2;

    explicit RgbNir14(bool isVersion3) : states_(isVersion3) {}

    void begin(const ChannelStep& step, const char* first) {
        states_.begin(step.channel, {}, load(first));
    }

    template <class Coder>
    void code(std::span<Coder> layers, const ChannelStep& step, typename Coder::Bytes bytes) {
        auto [models, last] = states_.next(step, [] { return Models(); });
        Value now = last;
        if constexpr (!Coder::DECODES) {
            now = load(bytes);
        }
        if (layers[0].isPresent()) {
            layers[0].need(models.color.code(layers[0], last.color, now.color) != 0);
        }
        if (layers[1].isPresent()) {
            codeInfrared(layers[1], models, last.infrared, now.infrared);
        }
        last = now;
        if constexpr (Coder::DECODES) {
            storeColor(bytes, now.color);
            storeLittle(bytes + Rgb14::SIZE, now.infrared);
        }
    }

  private:
    struct Models {
        ColorModels color;
        SymbolsOf<4> mask;
        std::array<SymbolsOf<256>, 2> bytes;
    };
    struct Value {
        Color color{};
        std::uint16_t infrared = 0;
    };

    static Value load(const char* bytes) {
        return {loadColor(bytes), loadLittle<std::uint16_t>(bytes + Rgb14::SIZE)};
    }

    template <class Coder>
    static void codeInfrared(Coder& layer, Models& models, std::uint16_t last, std::uint16_t& now) {
        unsigned mask =
            (lowByte(now) != lowByte(last) ? 1U : 0U) | (highByte(now) != highByte(last) ? 2U : 0U);
        mask = layer.symbol(models.mask, mask);
        layer.need(mask != 0);
        unsigned low = lowByte(last);
        unsigned high = highByte(last);
        if ((mask & 1U) != 0) {
            low = codeByte(layer, models.bytes[0], lowByte(last), lowByte(now));
        }
        if ((mask & 2U) != 0) {
            high = codeByte(layer, models.bytes[1], highByte(last), highByte(now));
        }
        now = joinBytes(low, high);
    }

    ChannelStates<Models, Value> states_;
};

/// The wave packet of formats 9 and 10, coded like that of format 4: one layer.
class WavePacket14 {
  public:
    static constexpr std::size_t SIZE = WavePacket::SIZE;
    static constexpr std::size_t LAYERS = 1;

    explicit WavePacket14(bool isVersion3) : states_(isVersion3) {}

    void begin(const ChannelStep& step, const char* first) {
        states_.begin(step.channel, {}, WavePacket::load(first));
    }

    template <class Coder>
    void code(std::span<Coder> layers, const ChannelStep& step, typename Coder::Bytes bytes) {
        auto [models, last] = states_.next(step, [] { return WavePacketModels(); });
        WavePacket now = last;
        if constexpr (!Coder::DECODES) {
            now = WavePacket::load(bytes);
        }
        if (layers[0].isPresent()) {
            layers[0].need(now != last);
            models.code(layers[0], last, now);
        }
        last = now;
        if constexpr (Coder::DECODES) {
            now.store(bytes);
        }
    }

  private:
    ChannelStates<WavePacketModels, WavePacket> states_;
};

/// The bytes that a record of formats 6 to 10 has beyond its fields: each has a layer of its own,
/// and 256 symbols for its difference to the last one.
class ExtraBytes14 {
  public:
    ExtraBytes14(bool isVersion3, std::size_t size) : states_(isVersion3), size_(size) {}

    void begin(const ChannelStep& step, const char* first) {
        states_.begin(step.channel, Models(size_), std::vector<char>(first, first + size_));
    }

    template <class Coder>
    void code(std::span<Coder> layers, const ChannelStep& step, typename Coder::Bytes bytes) {
        auto [models, last] = states_.next(step, [this] { return Models(size_); });
        for (std::size_t i = 0; i < size_; ++i) {
            if (layers[i].isPresent()) {
                const char now = Coder::DECODES ? '\0' : bytes[i];
                layers[i].need(now != last[i]);
                last[i] = static_cast<char>(codeByte(layers[i], models[i], last[i], now));
            }
            if constexpr (Coder::DECODES) {
                bytes[i] = last[i];
            }
        }
    }

  private:
    using Models = std::vector<SymbolsOf<256>>;

    ChannelStates<Models, std::vector<char>> states_;
    std::size_t size_;
};

}  // namespace Ovr::Formats::Laz
