// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "las/laz/Schema.h"

#include <array>

namespace Ovr::Formats::Laz {

namespace {

using enum ItemType;

struct Kind {
    ItemType type;
    std::uint16_t size;  ///< 0 for any
    std::uint16_t firstVersion;
    std::uint16_t lastVersion;
    std::uint16_t usualVersion;
    std::size_t layers;  ///< for one byte where any size is right
};

constexpr std::array<Kind, 10> kKinds{{
    {ExtraBytes, 0, 1, 2, 2, 0},
    {Point10, 20, 1, 2, 2, 0},
    {GpsTime11, 8, 1, 2, 2, 0},
    {Rgb12, 6, 1, 2, 2, 0},
    {WavePacket13, 29, 1, 1, 1, 0},
    {Point14, 30, 2, 4, 3, 9},
    {Rgb14, 6, 2, 4, 3, 1},
    {RgbNir14, 8, 2, 4, 3, 2},
    {WavePacket14, 29, 3, 4, 3, 1},
    {ExtraBytes14, 0, 2, 4, 3, 1},
}};

const Kind& kindOf(ItemType type) {
    for (const Kind& kind : kKinds) {
        if (kind.type == type) {
            return kind;
        }
    }
    return kKinds[0];
}

std::vector<ItemType> typesOf(unsigned format) {
    static const std::array<std::vector<ItemType>, 11> kTypes{{
        {Point10},
        {Point10, GpsTime11},
        {Point10, Rgb12},
        {Point10, GpsTime11, Rgb12},
        {Point10, GpsTime11, WavePacket13},
        {Point10, GpsTime11, Rgb12, WavePacket13},
        {Point14},
        {Point14, Rgb14},
        {Point14, RgbNir14},
        {Point14, WavePacket14},
        {Point14, RgbNir14, WavePacket14},
    }};
    return kTypes[format];
}

}  // namespace

Versions versionsOf(ItemType type) {
    return {kindOf(type).firstVersion, kindOf(type).lastVersion};
}

std::size_t Schema::layers() const {
    std::size_t sum = 0;
    for (const Item& item : items) {
        const Kind& kind = kindOf(item.type);
        sum += kind.size == 0 ? kind.layers * item.size : kind.layers;
    }
    return sum;
}

std::uint64_t Schema::smallestChunk() const {
    constexpr std::uint64_t kEmptyStream = 4;
    // XY and Z are never left out.
    return isLayered() ? recordLength + 4 + 4 * layers() + 2 * kEmptyStream
                       : recordLength + kEmptyStream;
}

Schema schemaFor(unsigned format, std::size_t recordLength) {
    const bool isLayered = isLayeredFormat(format);
    Schema schema;
    schema.compressor = isLayered ? Compressor::Layers : Compressor::Chunks;
    schema.recordLength = recordLength;
    std::size_t rest = recordLength;
    for (const ItemType type : typesOf(format)) {
        schema.items.push_back({type, kindOf(type).size, kindOf(type).usualVersion});
        rest -= schema.items.back().size;
    }
    if (rest != 0) {
        const ItemType type = isLayered ? ExtraBytes14 : ExtraBytes;
        schema.items.push_back({type, static_cast<std::uint16_t>(rest), kindOf(type).usualVersion});
    }
    return schema;
}

}  // namespace Ovr::Formats::Laz
