// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "las/laz/ByteStream.h"
#include "las/laz/SymbolModel.h"

namespace Ovr::Formats::Laz {

/// What was found wrong first in the streams of a chunk.
struct Damage {
    std::string found{};  ///< empty while nothing is wrong
    std::string expected{};
    std::uint64_t byte = 0;  ///< where in the file the stream stood

    bool isThere() const { return !found.empty(); }
};

/// Reads a stream of arithmetic code, see Encoder. The values that its operations are given are
/// not looked at.
///
/// | register | at first |
/// |---|---|
/// | value within the interval | the first 4 bytes, most significant first |
/// | length of the interval | 0xFFFFFFFF |
///
/// The value stays below the length whatever the bytes are, once that holds at the start. So
/// damage leads to wrong values of the right range, never to a symbol that does not exist. Past the
/// end of its bytes the decoder notes the damage and goes on with zeros: whoever uses the values
/// looks at the note first.
class Decoder {
  public:
    static constexpr bool DECODES = true;
    using Bytes = char*;  ///< of a record

    /// A layer without bytes is absent, and nothing is read from it.
    /// @param damage  kept by reference; shared by the streams of a chunk
    Decoder(ByteStream bytes, Damage& damage);

    unsigned symbol(SymbolModel& model, unsigned /*value*/) {
        model.ready(DECODES);
        const std::uint32_t share = length_ >> SymbolModel::SHARE_BITS;
        const unsigned value = model.find(value_ / share);
        const std::uint32_t begin = model.below(value) * share;
        length_ = (model.isLast(value) ? length_ : model.below(value + 1) * share) - begin;
        value_ -= begin;
        renormalise();
        model.count(value);
        return value;
    }

    unsigned bit(BitModel& model, unsigned /*value*/) {
        const std::uint32_t zeros = model.zeroShare() * (length_ >> BitModel::SHARE_BITS);
        const unsigned value = value_ >= zeros ? 1 : 0;
        length_ = value == 0 ? zeros : length_ - zeros;
        value_ -= value == 0 ? 0 : zeros;
        renormalise();
        model.count(value);
        return value;
    }

    std::uint32_t raw(unsigned bits, std::uint32_t /*value*/) {
        constexpr unsigned kMostAtOnce = 19;
        if (bits > kMostAtOnce) {
            const std::uint32_t low = raw(16, 0);
            return raw(bits - 16, 0) << 16U | low;
        }
        length_ >>= bits;
        const std::uint32_t value = value_ / length_;
        value_ -= value * length_;
        renormalise();
        if (value >> bits != 0) {
            damaged("bits that no encoder writes", "a value of fewer bits");
        }
        return value & ((1U << bits) - 1U);
    }

    static constexpr void need(bool) {}
    bool isPresent() const { return present_; }

    /// Takes note of damage, unless there is some already.
    void damaged(const char* found, const char* expected);
    /// Takes note of bytes that are left when everything has been read, and of a stream that was to
    /// reach past the end of its chunk.
    void expectEnd();
    /// Where in the file the next byte stands.
    std::uint64_t position() const { return bytes_.position(); }

  private:
    void renormalise() {
        // Three comparisons next to each other: to count the leading zeros takes longer.
        const unsigned bytes = (length_ < (1U << 24U) ? 1U : 0U) +
                               (length_ < (1U << 16U) ? 1U : 0U) + (length_ < (1U << 8U) ? 1U : 0U);
        const unsigned bits = 8 * bytes;
        length_ <<= bits;
        value_ = bytes_.hasWord() ? bytes_.shiftIn(value_, bits) : shiftInSlowly(bits);
    }
    std::uint32_t shiftInSlowly(unsigned bits);

    std::uint32_t value_ = 0;
    std::uint32_t length_ = 0xFFFFFFFFU;
    ByteStream bytes_;
    bool present_;
    Damage& damage_;
};

}  // namespace Ovr::Formats::Laz
