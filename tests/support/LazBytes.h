// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "las/laz/Chunk.h"
#include "las/laz/DifferenceCoder.h"
#include "las/laz/Encoder.h"
#include "las/laz/SchemaRecord.h"
#include "support/LasBytes.h"

namespace Support {

/// Makes compressed LAS files part by part, right or wrong.
struct LazBytes {
    enum class Table { InPlace, Missing, AtTheEnd };

    Ovr::Formats::Laz::Schema schema;
    unsigned format = 1;
    std::string records;                   ///< as they are when they are not compressed
    std::vector<std::uint64_t> varying{};  ///< points of each chunk; empty for a fixed size
    Table table = Table::InPlace;
    std::string extended{};  ///< after everything

    LazBytes(unsigned pointFormat, std::string plain)
        : schema(Ovr::Formats::Laz::schemaFor(pointFormat, LasBytes::kLength[pointFormat])),
          format(pointFormat),
          records(std::move(plain)) {}

    std::uint64_t count() const { return records.size() / schema.recordLength; }
    /// Where the points begin, in version 1.2 and 1.4.
    std::size_t pointsAt() const {
        return (format < 6 ? 227 : 375) + 54 + 34 + 6 * schema.items.size();
    }

    std::string bytes() const {
        std::string file = head();
        if (schema.compressor == Ovr::Formats::Laz::Compressor::Stream) {
            return file + Ovr::Formats::Laz::encodeChunk(schema, records);
        }
        std::vector<std::string> chunks;
        for (std::size_t at = 0, i = 0; at < records.size(); ++i) {
            const std::uint64_t points = varying.empty() ? schema.chunkSize : varying[i];
            const std::size_t size = std::min(records.size() - at, points * schema.recordLength);
            chunks.push_back(
                Ovr::Formats::Laz::encodeChunk(schema, std::string_view(records).substr(at, size)));
            at += size;
        }
        std::string data(8, '\0');
        for (const std::string& chunk : chunks) {
            data += chunk;
        }
        const auto place = static_cast<std::int64_t>(file.size() + data.size());
        poke(data, 0, table == Table::InPlace ? place : table == Table::AtTheEnd ? -1 : 0);
        if (table != Table::Missing) {
            data += chunkTable(chunks);
        }
        if (table == Table::AtTheEnd) {
            data += std::string(8, '\0');
            poke(data, data.size() - 8, place);
        }
        file += data;
        if (!extended.empty()) {
            poke(file, 235, static_cast<std::uint64_t>(file.size()));
            poke(file, 243, std::uint32_t{1});
        }
        return file + extended;
    }

  private:
    std::string head() const {
        LasBytes las;
        las.format = format;
        las.minor = format < 6 ? 2 : 4;
        las.extraBytes = schema.recordLength - LasBytes::kLength[format];
        las.vlrCount = 1;
        const std::string payload = Ovr::Formats::Laz::SchemaRecord::payload(schema);
        las.vlrs = std::string(54, '\0') + payload;
        las.vlrs.replace(2, 14, "laszip encoded");
        poke(las.vlrs, 18, std::uint16_t{22204});
        poke(las.vlrs, 20, static_cast<std::uint16_t>(payload.size()));
        std::string file = las.bytes();
        file[104] = static_cast<char>(format | 0x80);
        if (format < 6) {
            poke(file, 107, static_cast<std::uint32_t>(count()));
        } else {
            poke(file, 247, count());
        }
        return file;
    }

    std::string chunkTable(const std::vector<std::string>& chunks) const {
        std::string bytes(8, '\0');
        poke(bytes, 4, static_cast<std::uint32_t>(chunks.size()));
        Ovr::Formats::Laz::Encoder encoder;
        Ovr::Formats::Laz::DifferenceCoder<32> differences(2);
        std::int32_t points = 0;
        std::int32_t size = 0;
        for (std::size_t i = 0; i < chunks.size(); ++i) {
            if (!varying.empty()) {
                points =
                    differences.code(encoder, points, static_cast<std::int32_t>(varying[i]), 0);
            }
            size = differences.code(encoder, size, static_cast<std::int32_t>(chunks[i].size()), 1);
        }
        const auto stream = encoder.finish();
        return bytes.append(stream.begin(), stream.end());
    }
};

}  // namespace Support
