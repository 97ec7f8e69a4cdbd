// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "kit/LittleEndian.h"
#include "las/laz/Arithmetic.h"
#include "las/laz/DifferenceCoder.h"
#include "las/laz/SymbolModel.h"

namespace Ovr::Formats::Laz {

/// Red, green, blue.
using Color = std::array<std::uint16_t, 3>;

inline Color loadColor(const char* bytes) {
    return {loadLittle<std::uint16_t>(bytes), loadLittle<std::uint16_t>(bytes + 2),
            loadLittle<std::uint16_t>(bytes + 4)};
}
inline void storeColor(char* bytes, const Color& color) {
    for (std::size_t i = 0; i < color.size(); ++i) {
        storeLittle(bytes + 2 * i, color[i]);
    }
}

/// Bits 0 to 5: red low, red high, green low, green high, blue low, blue high byte differs.
inline unsigned colorDifferences(const Color& now, const Color& last) {
    unsigned mask = 0;
    for (std::size_t i = 0; i < now.size(); ++i) {
        mask |= (lowByte(now[i]) != lowByte(last[i]) ? 1U : 0U) << (2 * i);
        mask |= (highByte(now[i]) != highByte(last[i]) ? 2U : 0U) << (2 * i);
    }
    return mask;
}

/// How the colour of formats 3, 5, 7, 8 and 10 follows from the last one.
///
/// | value, in order | coded by | predicted from |
/// |---|---|---|
/// | mask: which bytes differ, and bit 6 unless red = green = blue | 128 symbols | - |
/// | low byte of red, high byte of red | 256 symbols each | the last one |
/// | low byte of green | 256 symbols | the last one + the step of red |
/// | low byte of blue | 256 symbols | the last one + half the steps of red and green |
/// | high byte of green, high byte of blue | 256 symbols each | in the same way |
///
/// A byte is coded only where the mask says so, those of green and blue only with bit 6.
/// Predictions are kept within 0 to 255.
class ColorModels {
  public:
    /// @param now   what an encoder writes; receives the value
    /// @return the mask, 0 when an encoder need not have written it
    template <class Coder>
    unsigned code(Coder& coder, const Color& last, Color& now) {
        unsigned mask = 0;
        if constexpr (!Coder::DECODES) {
            const bool isGrey = now[0] == now[1] && now[0] == now[2];
            mask = colorDifferences(now, last) | (isGrey ? 0U : kColored);
        }
        mask = coder.symbol(mask_, mask);
        const int low =
            codePart(coder, mask, 0, lowByte(last[0]), lowByte(last[0]), lowByte(now[0]));
        const int high =
            codePart(coder, mask, 1, highByte(last[0]), highByte(last[0]), highByte(now[0]));
        Color coded;
        coded.fill(joinBytes(static_cast<unsigned>(low), static_cast<unsigned>(high)));
        if ((mask & kColored) != 0) {
            const auto lows =
                codeOthers(coder, mask, 0, low, parts(last, lowByte), parts(now, lowByte));
            const auto highs =
                codeOthers(coder, mask, 1, high, parts(last, highByte), parts(now, highByte));
            coded[1] = joinBytes(lows[0], highs[0]);
            coded[2] = joinBytes(lows[1], highs[1]);
        }
        now = coded;
        return mask;
    }

  private:
    static constexpr unsigned kColored = 64;
    using Parts = std::array<int, 3>;

    static Parts parts(const Color& color, std::uint8_t (*part)(std::uint16_t)) {
        return {part(color[0]), part(color[1]), part(color[2])};
    }

    template <class Coder>
    int codePart(Coder& coder, unsigned mask, unsigned bit, int last, int prediction, int now) {
        if ((mask >> bit & 1U) == 0) {
            return last;
        }
        return codeByte(coder, bytes_[bit], std::clamp(prediction, 0, 255), now);
    }

    /// Green and blue, of which the low bytes come before the high ones.
    template <class Coder>
    std::array<unsigned, 2> codeOthers(Coder& coder, unsigned mask, unsigned part, int red,
                                       const Parts& last, const Parts& now) {
        const int redStep = red - last[0];
        const int green = codePart(coder, mask, 2 + part, last[1], last[1] + redStep, now[1]);
        const int step = (redStep + green - last[1]) / 2;
        const int blue = codePart(coder, mask, 4 + part, last[2], last[2] + step, now[2]);
        return {static_cast<unsigned>(green), static_cast<unsigned>(blue)};
    }

    SymbolsOf<128> mask_;
    std::array<SymbolsOf<256>, 6> bytes_;
};

/// The colour of a record of formats 2, 3 and 5, in version 2.
class Rgb12 {
  public:
    static constexpr std::size_t SIZE = 6;

    void begin(const char* first) { last_ = loadColor(first); }

    template <class Coder>
    void code(Coder& coder, typename Coder::Bytes bytes) {
        Color now{};
        if constexpr (!Coder::DECODES) {
            now = loadColor(bytes);
        }
        models_.code(coder, last_, now);
        last_ = now;
        if constexpr (Coder::DECODES) {
            storeColor(bytes, now);
        }
    }

  private:
    Color last_{};
    ColorModels models_;
};

/// The colour of a record of formats 2, 3 and 5, in version 1 of old files: a mask of 64 symbols,
/// then each byte that differs as its difference to the last one, 8 bits, in a context of its own
/// of 6.
class Rgb12Version1 {
  public:
    static constexpr std::size_t SIZE = 6;

    void begin(const char* first) { last_ = loadColor(first); }

    template <class Coder>
    void code(Coder& coder, typename Coder::Bytes bytes) {
        Color now = last_;
        if constexpr (!Coder::DECODES) {
            now = loadColor(bytes);
        }
        const unsigned mask = coder.symbol(mask_, colorDifferences(now, last_));
        for (unsigned bit = 0; bit < 6; ++bit) {
            const unsigned shift = 8 * (bit % 2);
            std::uint16_t& channel = last_[bit / 2];
            if ((mask >> bit & 1U) != 0) {
                const int byte =
                    bytes_.code(coder, channel >> shift & 0xFF, now[bit / 2] >> shift & 0xFF, bit);
                channel = static_cast<std::uint16_t>((channel & (0xFF00U >> shift)) |
                                                     static_cast<unsigned>(byte) << shift);
            }
        }
        if constexpr (Coder::DECODES) {
            storeColor(bytes, last_);
        }
    }

  private:
    Color last_{};
    SymbolsOf<64> mask_;
    DifferenceCoder<8> bytes_{6};
};

}  // namespace Ovr::Formats::Laz
