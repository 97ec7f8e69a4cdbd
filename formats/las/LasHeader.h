// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Ovr/Errors.h"
#include "Ovr/Remarks.h"
#include "kit/InputFile.h"
#include "las/LasRecords.h"
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
/// Returns of a pulse that the header counts: five before LAS 1.4.
inline constexpr std::size_t kLasReturns = 15;
inline constexpr std::size_t kLasOldReturns = 5;

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
    std::uint16_t creationDay = 0;   ///< of the year, from 1; 0: not said
    std::uint16_t creationYear = 0;  ///< 0: not said
    std::uint32_t pointOffset = 0;   ///< [bytes]
    unsigned format = 0;
    std::uint16_t recordLength = 0;  ///< [bytes], at least what the format needs
    std::uint64_t count = 0;
    /// Whether the count was lowered to that of the points before damage, which is known then.
    bool endsInDamage = false;
    /// Points by return as the file says, from return 1 on; not checked.
    std::array<std::uint64_t, kLasReturns> returns{};
    std::array<double, 3> scale{};    ///< finite, not 0
    std::array<double, 3> offset{};   ///< finite
    std::array<double, 3> minimum{};  ///< as the file says; not checked
    std::array<double, 3> maximum{};  ///< as the file says; not checked
    bool saysWkt = false;             ///< the file says: the coordinate system is a well-known text
    std::vector<LasRecord> records{};  ///< those that are of use, also those after the points
    /// Where extended records and waveforms begin in the file [bytes]; its size without them.
    std::uint64_t restBegin = 0;
    std::shared_ptr<const LasCompression> compression{};  ///< null when the points are plain
};

/// Reads and checks the header of a LAS 1.0 to 1.4 file, walks its variable-length records, and
/// finds the chunks of compressed points.
/// @param remarks   receives what can be lived with: broken variable-length records, counts that
///                  differ, a missing chunk table
/// @param lenient   take as many plain points as the file has room for, whatever the header counts
/// @return empty on success
[[nodiscard]] ErrorPtr readLasHeader(InputFile& file, LasHeader& header, Remarks& remarks,
                                     bool lenient = false);

/// The error for a file whose points carry no time.
[[nodiscard]] ErrorPtr noLasTimes(const std::string& file, const LasHeader& header);

}  // namespace Ovr::Formats
