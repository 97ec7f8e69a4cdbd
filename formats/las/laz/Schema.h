// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace Ovr::Formats::Laz {

enum class Compressor : std::uint16_t {
    Stream = 1,  ///< all points in one chunk
    Chunks = 2,  ///< the fields of a point one after another
    Layers = 3   ///< each field of a chunk in a stream of its own
};

enum class ItemType : std::uint16_t {
    ExtraBytes = 0,
    Point10 = 6,
    GpsTime11 = 7,
    Rgb12 = 8,
    WavePacket13 = 9,
    Point14 = 10,
    Rgb14 = 11,
    RgbNir14 = 12,
    WavePacket14 = 13,
    ExtraBytes14 = 14
};

/// A run of bytes of a record and how it is coded.
struct Item {
    ItemType type{};
    std::uint16_t size = 0;     ///< [bytes]
    std::uint16_t version = 0;  ///< 1 or 2; of the layered ones 3 or 4

    bool operator==(const Item&) const = default;
};

/// The versions of an item that are read. Version 2 of layered items is a prototype's and reads as
/// version 3.
struct Versions {
    std::uint16_t first = 0;
    std::uint16_t last = 0;
};
Versions versionsOf(ItemType type);

/// How the records of a file are compressed.
struct Schema {
    static constexpr std::uint32_t VARYING = 0xFFFFFFFF;
    static constexpr std::uint32_t USUAL_CHUNK_SIZE = 50000;

    Compressor compressor = Compressor::Chunks;
    std::uint32_t chunkSize = USUAL_CHUNK_SIZE;  ///< points; VARYING where each chunk has its own
    std::vector<Item> items;                     ///< in the order of the record
    std::size_t recordLength = 0;                ///< [bytes], the sum of the items'

    bool isLayered() const { return compressor == Compressor::Layers; }
    bool hasVaryingChunks() const { return chunkSize == VARYING; }
    /// Number of layers of a chunk.
    std::size_t layers() const;
    /// Of a chunk with one point [bytes].
    std::uint64_t smallestChunk() const;
};

/// The most points that a number of coded bytes can hold: equal points cost a hundredth of a bit
/// for each decision. More is no count to size memory by.
constexpr std::uint64_t mostPoints(std::uint64_t codedBytes) {
    constexpr std::uint64_t kPointsPerByte = 1200;
    return codedBytes > (~std::uint64_t{0} - 1) / kPointsPerByte ? ~std::uint64_t{0}
                                                                 : codedBytes * kPointsPerByte + 1;
}

/// Whether a point format is compressed in layers.
constexpr bool isLayeredFormat(unsigned format) {
    return format >= 6;
}

/// The items of a point format in their newest usual version.
/// @param format        0 to 10
/// @param recordLength  at least what the format needs; more are extra bytes
Schema schemaFor(unsigned format, std::size_t recordLength);

}  // namespace Ovr::Formats::Laz
