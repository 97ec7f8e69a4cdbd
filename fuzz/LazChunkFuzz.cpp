// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

// Takes the bytes once as a chunk of compressed LAS and once as the records of one. The first three
// say which: point format, version of the items, extra bytes.

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "las/LasHeader.h"
#include "las/laz/Chunk.h"

namespace {

using namespace Ovr::Formats;

constexpr std::size_t kHead = 3;
constexpr std::uint64_t kMostPoints = 500;

Laz::Schema schemaOf(const std::uint8_t* head) {
    const unsigned format = head[0] % (kLasHighestFormat + 1);
    Laz::Schema schema = Laz::schemaFor(format, lasRecordLayout(format).length + head[2] % 8U);
    for (Laz::Item& item : schema.items) {
        const Laz::Versions known = Laz::versionsOf(item.type);
        item.version = std::clamp<std::uint16_t>(head[1] % 5U, known.first, known.last);
    }
    return schema;
}

/// Decodes as many records as are right, in two calls.
std::string decode(const Laz::Schema& schema, std::string_view chunk, std::uint64_t count) {
    Laz::ChunkDecoder decoder(schema, {nullptr, chunk, 7, 7 + chunk.size()}, count);
    std::string records(std::min(count, kMostPoints) * schema.recordLength, '\0');
    const std::size_t half = records.size() / schema.recordLength / 2 * schema.recordLength;
    std::size_t right = decoder.decode(std::span(records).first(half));
    if (right * schema.recordLength == half) {
        right += decoder.decode(std::span(records).subspan(half));
    }
    if (right == count) {
        decoder.expectEnd();
    }
    if (right > records.size() / schema.recordLength || decoder.end() > 7 + chunk.size() ||
        (right < records.size() / schema.recordLength && !decoder.damage().isThere())) {
        std::abort();
    }
    records.resize(right * schema.recordLength);
    return records;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < kHead) {
        return 0;
    }
    const Laz::Schema schema = schemaOf(data);
    const std::string_view bytes(reinterpret_cast<const char*>(data) + kHead, size - kHead);
    std::uint64_t count = kMostPoints;
    if (schema.isLayered() && bytes.size() >= schema.recordLength + 4) {
        // A count that does not match would end the decoding at once.
        count = 0;
        for (std::size_t i = 4; i-- > 0;) {
            count = count << 8U | static_cast<unsigned char>(bytes[schema.recordLength + i]);
        }
    }
    std::string records = decode(schema, bytes, std::max<std::uint64_t>(1, count));
    for (const std::string_view given : {std::string_view(records), bytes}) {
        const std::size_t whole = given.size() / schema.recordLength;
        const std::string_view part = given.substr(0, whole * schema.recordLength);
        if (whole != 0 && decode(schema, Laz::encodeChunk(schema, part), whole) != part) {
            std::abort();
        }
    }
    return 0;
}
