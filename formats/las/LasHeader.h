// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

#include "Ovr/Errors.h"
#include "Ovr/Remarks.h"
#include "kit/InputFile.h"
#include "las/laz/ChunkList.h"
#include "las/laz/Schema.h"

namespace Ovr::Formats {

/// Where the fields that are read stand in a point record [bytes].
struct LasRecordLayout {
    std::size_t length = 0;            ///< of the format's own fields; records may be longer
    std::optional<std::size_t> time;   ///< double
    std::optional<std::size_t> color;  ///< red, green, blue, 16 bits each
};

/// Coordinates (3 x int32) and intensity (uint16) stand at the front of every record.
inline constexpr std::size_t kLasIntensityOffset = 12;
inline constexpr unsigned kLasHighestFormat = 10;

/// Where the fields of the header stand [bytes].
namespace LasField {
inline constexpr std::size_t kEncoding = 6;
inline constexpr std::size_t kMajorVersion = 24;
inline constexpr std::size_t kMinorVersion = 25;
inline constexpr std::size_t kSystem = 26;
inline constexpr std::size_t kSoftware = 58;
inline constexpr std::size_t kCreationDay = 90;
inline constexpr std::size_t kCreationYear = 92;
inline constexpr std::size_t kHeaderSize = 94;
inline constexpr std::size_t kPointOffset = 96;
inline constexpr std::size_t kVlrCount = 100;
inline constexpr std::size_t kFormat = 104;
inline constexpr std::size_t kRecordLength = 105;
inline constexpr std::size_t kCount = 107;  ///< 32 bits; by return after it
inline constexpr std::size_t kScale = 131;
inline constexpr std::size_t kOffset = 155;
inline constexpr std::size_t kBounds = 179;         ///< maximum x, minimum x, maximum y, ...
inline constexpr std::size_t kWaveStart = 227;      ///< 64 bits, since LAS 1.3
inline constexpr std::size_t kExtendedStart = 235;  ///< 64 bits, since LAS 1.4
inline constexpr std::size_t kExtendedCount = 243;  ///< 32 bits, since LAS 1.4
inline constexpr std::size_t kWideCount = 247;      ///< 64 bits, since LAS 1.4; by return after it
}  // namespace LasField

/// Length of the two text fields of the header [bytes].
inline constexpr std::size_t kLasIdentifierLength = 32;

/// @param format  0 to kLasHighestFormat
const LasRecordLayout& lasRecordLayout(unsigned format);

/// Bits of the format byte.
inline constexpr unsigned kLasCompressedBit = 0x80;
inline constexpr unsigned kLasFormatBits = 0x3F;

/// How the points of a file are compressed and where they are.
struct LasCompression {
    Laz::Schema schema;
    Laz::ChunkList list;
};

/// What the reader uses of a LAS header, checked: the points that it counts lie in the file.
struct LasHeader {
    unsigned minorVersion = 0;  ///< of LAS 1.x
    bool adjustedTime = false;  ///< the file says: GPS time minus 1e9 s; else GPS week seconds
    std::string systemIdentifier;
    std::string generatingSoftware;
    std::uint32_t pointOffset = 0;  ///< [bytes]
    unsigned format = 0;
    std::uint16_t recordLength = 0;  ///< [bytes], at least what the format needs
    std::uint64_t count = 0;
    std::array<double, 3> scale{};                      ///< [m], finite, not 0
    std::array<double, 3> offset{};                     ///< [m], finite
    std::array<double, 3> minimum{};                    ///< [m], as the file says; not checked
    std::array<double, 3> maximum{};                    ///< [m], as the file says; not checked
    std::shared_ptr<const LasCompression> compression;  ///< null when the points are plain
};

/// Reads and checks the header of a LAS 1.0 to 1.4 file, walks its variable-length records, and
/// finds the chunks of compressed points.
/// @param remarks   receives what can be lived with: broken variable-length records, counts that
///                  differ, a missing chunk table
/// @return empty on success
[[nodiscard]] ErrorPtr readLasHeader(InputFile& file, LasHeader& header, Remarks& remarks);

}  // namespace Ovr::Formats
