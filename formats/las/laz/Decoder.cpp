// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "las/laz/Decoder.h"

#include <utility>

namespace Ovr::Formats::Laz {

Decoder::Decoder(ByteStream bytes, Damage& damage)
    : bytes_(std::move(bytes)), present_(!bytes_.isEmpty() || bytes_.isCut()), damage_(damage) {
    if (!present_) {
        return;
    }
    value_ = shiftInSlowly(32);
    if (value_ == length_) {
        damaged("a stream that begins with FF FF FF FF", "one that an encoder writes");
        value_ = 0;
    }
}

std::uint32_t Decoder::shiftInSlowly(unsigned bits) {
    std::uint32_t value = value_;
    for (; bits != 0; bits -= 8) {
        const int byte = bytes_.next();
        if (byte < 0) {
            damaged("the end of the coded bytes", "more bytes");
        }
        value = value << 8U | (byte < 0 ? 0U : static_cast<std::uint32_t>(byte));
    }
    return value;
}

void Decoder::damaged(const char* found, const char* expected) {
    if (!damage_.isThere()) {
        damage_ = {found, expected, position()};
    }
}

void Decoder::expectEnd() {
    if (present_ && !bytes_.isAtEnd()) {
        damaged("bytes that are left over", "the end of the coded bytes");
    }
    if (bytes_.isCut()) {
        damaged("the end of the chunk", "a layer that ends in it");
    }
}

}  // namespace Ovr::Formats::Laz
