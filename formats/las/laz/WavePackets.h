// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "kit/LittleEndian.h"
#include "las/laz/Arithmetic.h"
#include "las/laz/DifferenceCoder.h"
#include "las/laz/SymbolModel.h"

namespace Ovr::Formats::Laz {

/// Where a point's wave form stands in the file, and the point in it.
struct WavePacket {
    static constexpr std::size_t SIZE = 29;  ///< [bytes]

    std::uint8_t index = 0;  ///< of its description
    std::uint64_t offset = 0;
    std::int32_t length = 0;
    std::array<std::int32_t, 4> point{};  ///< bit patterns of the location and of x, y, z

    bool operator==(const WavePacket&) const = default;

    static WavePacket load(const char* bytes) {
        return {loadLittle<std::uint8_t>(bytes),
                loadLittle<std::uint64_t>(bytes + 1),
                loadLittle<std::int32_t>(bytes + 9),
                {loadLittle<std::int32_t>(bytes + 13), loadLittle<std::int32_t>(bytes + 17),
                 loadLittle<std::int32_t>(bytes + 21), loadLittle<std::int32_t>(bytes + 25)}};
    }
    void store(char* bytes) const {
        storeLittle(bytes, index);
        storeLittle(bytes + 1, offset);
        storeLittle(bytes + 9, length);
        for (std::size_t i = 0; i < point.size(); ++i) {
            storeLittle(bytes + 13 + 4 * i, point[i]);
        }
    }
};

/// How a wave packet follows from the last one.
///
/// | value, in order | coded by | context | predicted from | at first |
/// |---|---|---|---|---|
/// | index | 256 symbols | - | - | |
/// | kind of step of the offset | 4 symbols | the last kind of 4 | - | 0: no step |
/// | kind 2: the step | difference, 32 bits | - | the last near step | 0 |
/// | kind 3: the offset | 64 bits as they are | - | - | |
/// | length, location | difference, 32 bits, one each | - | the last one | |
/// | x, y, z | difference, 32 bits | 3, one each | the last one | |
///
/// Kind 1 is a step by the last length, as when wave forms stand one after another.
class WavePacketModels {
  public:
    /// @param now  what an encoder writes; receives the value
    template <class Coder>
    void code(Coder& coder, const WavePacket& last, WavePacket& now) {
        now.index = static_cast<std::uint8_t>(coder.symbol(index_, now.index));
        now.offset = codeOffset(coder, last, now.offset);
        now.length = length_.code(coder, last.length, now.length);
        now.point[0] = location_.code(coder, last.point[0], now.point[0]);
        for (unsigned i = 0; i < 3; ++i) {
            now.point[i + 1] = xyz_.code(coder, last.point[i + 1], now.point[i + 1], i);
        }
    }

  private:
    enum Kind : unsigned { kSame, kNext, kNear, kFar };

    static unsigned kindOf(std::int64_t step, std::int32_t length) {
        if (step == 0) {
            return kSame;
        }
        if (step == static_cast<std::uint32_t>(length) && fitsIn32Bits(step)) {
            return kNext;
        }
        return fitsIn32Bits(step) ? kNear : kFar;
    }

    template <class Coder>
    std::uint64_t codeOffset(Coder& coder, const WavePacket& last, std::uint64_t offset) {
        constexpr unsigned kHalf = 32;
        const auto step = static_cast<std::int64_t>(offset - last.offset);
        kind_ = coder.symbol(kinds_[kind_], Coder::DECODES ? 0U : kindOf(step, last.length));
        switch (kind_) {
            case kSame:
                return last.offset;
            case kNext:
                return last.offset + static_cast<std::uint32_t>(last.length);
            case kNear:
                step_ = steps_.code(coder, step_, static_cast<std::int32_t>(step));
                return last.offset + static_cast<std::uint64_t>(std::int64_t{step_});
            default: {
                const std::uint64_t low = coder.raw(kHalf, static_cast<std::uint32_t>(offset));
                const std::uint64_t high =
                    coder.raw(kHalf, static_cast<std::uint32_t>(offset >> kHalf));
                return high << kHalf | low;
            }
        }
    }

    SymbolsOf<256> index_;
    std::array<SymbolsOf<4>, 4> kinds_;
    unsigned kind_ = kSame;
    std::int32_t step_ = 0;
    DifferenceCoder<32> steps_;
    DifferenceCoder<32> length_;
    DifferenceCoder<32> location_;
    DifferenceCoder<32> xyz_{3};
};

/// The wave packet of a record of formats 4 and 5.
class WavePacket13 {
  public:
    static constexpr std::size_t SIZE = WavePacket::SIZE;

    void begin(const char* first) { last_ = WavePacket::load(first); }

    template <class Coder>
    void code(Coder& coder, typename Coder::Bytes bytes) {
        WavePacket now;
        if constexpr (!Coder::DECODES) {
            now = WavePacket::load(bytes);
        }
        models_.code(coder, last_, now);
        last_ = now;
        if constexpr (Coder::DECODES) {
            now.store(bytes);
        }
    }

  private:
    WavePacket last_;
    WavePacketModels models_;
};

}  // namespace Ovr::Formats::Laz
