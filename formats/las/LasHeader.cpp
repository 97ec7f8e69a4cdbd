// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "las/LasHeader.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <string_view>

#include "kit/LittleEndian.h"
#include "kit/PointPlacer.h"
#include "kit/TextFields.h"
#include "las/LasRecords.h"
#include "las/laz/ChunkFinder.h"
#include "las/laz/SchemaRecord.h"

namespace Ovr::Formats {

using Interfaces::ErrorCode;

namespace {

constexpr std::string_view kSignature = "LASF";
constexpr unsigned kHighestMinorVersion = 4;
/// Of LAS 1.0 to 1.4 [bytes].
constexpr std::array<std::size_t, kHighestMinorVersion + 1> kHeaderSizes{227, 227, 227, 235, 375};
constexpr unsigned kOldCompressionBit = 0x40;  // of the format byte, set by experiments
constexpr unsigned kAdjustedTimeBit = 1;       // of the global encoding
constexpr unsigned kWktBit = 16;               // of the global encoding, since LAS 1.4

/// A text field of fixed length: up to the first zero byte, printable ASCII, no blanks at its end.
std::string identifier(const char* field) {
    std::string text(field, std::find(field, field + kLasIdentifierLength, '\0'));
    std::replace_if(
        text.begin(), text.end(), [](char c) { return c < ' ' || c > '~'; }, '?');
    return std::string(trimmed(text));
}

class HeaderParser {
  public:
    HeaderParser(InputFile& file, LasHeader& header, Remarks& remarks, bool lenient)
        : file_(file), header_(header), remarks_(remarks), lenient_(lenient) {}

    [[nodiscard]] ErrorPtr parse();

  private:
    template <typename T>
    T at(std::size_t place) const {
        return loadLittle<T>(bytes_.data() + place);
    }
    std::uint64_t pointBytes() const {
        return file_.size() - std::min<std::uint64_t>(file_.size(), header_.pointOffset);
    }

    [[nodiscard]] ErrorPtr readBytes();
    [[nodiscard]] ErrorPtr checkVersion() const;
    [[nodiscard]] ErrorPtr checkSizes();
    [[nodiscard]] ErrorPtr checkFormat();
    [[nodiscard]] ErrorPtr checkCount();
    [[nodiscard]] ErrorPtr checkCoordinates();
    void readFacts();
    void remarkOnCounts(std::uint64_t wide, std::uint64_t narrow) const;
    [[nodiscard]] ErrorPtr walkRecords();
    [[nodiscard]] ErrorPtr checkCompression() const;
    [[nodiscard]] ErrorPtr readCompression();
    void findRest();
    void settleUncounted();

    InputFile& file_;
    LasHeader& header_;
    Remarks& remarks_;
    bool lenient_;
    std::array<char, kHeaderSizes.back()> bytes_{};
    bool isCompressed_ = false;
    std::optional<LasRecord> schema_;  ///< on the compression
};

ErrorPtr HeaderParser::parse() {
    for (const auto step :
         {&HeaderParser::readBytes, &HeaderParser::checkSizes, &HeaderParser::checkFormat,
          &HeaderParser::checkCount, &HeaderParser::checkCoordinates, &HeaderParser::walkRecords,
          &HeaderParser::readCompression}) {
        if (ErrorPtr error = (this->*step)()) {
            return error;
        }
    }
    readFacts();
    settleUncounted();
    return nullptr;
}

/// What needs no check: nothing is placed or sized by it.
void HeaderParser::readFacts() {
    const unsigned encoding = at<std::uint16_t>(LasField::kEncoding);
    // LAS 1.0 and 1.1 know only week seconds and keep other things in these bits.
    header_.adjustedTime = header_.minorVersion >= 2 && (encoding & kAdjustedTimeBit) != 0;
    header_.saysWkt = header_.minorVersion >= 4 && (encoding & kWktBit) != 0;
    header_.systemIdentifier = identifier(bytes_.data() + LasField::kSystem);
    header_.generatingSoftware = identifier(bytes_.data() + LasField::kSoftware);
    header_.creationDay = at<std::uint16_t>(LasField::kCreationDay);
    header_.creationYear = at<std::uint16_t>(LasField::kCreationYear);
    const bool isWide = header_.minorVersion >= 4 && at<std::uint64_t>(LasField::kWideCount) != 0;
    for (std::size_t i = 0; i < (isWide ? kLasReturns : kLasOldReturns); ++i) {
        header_.returns[i] = isWide ? at<std::uint64_t>(LasField::kWideCount + 8 * (i + 1))
                                    : at<std::uint32_t>(LasField::kCount + 4 * (i + 1));
    }
}

ErrorPtr HeaderParser::readBytes() {
    const std::size_t got = file_.readAt(0, bytes_);
    const std::string_view signature(bytes_.data(), std::min(got, kSignature.size()));
    if (signature != kSignature) {
        return file_.fault(ErrorCode::WrongFormat, 0, inQuotes(signature),
                           "'LASF', with which a LAS file begins");
    }
    if (got > LasField::kMinorVersion) {
        if (ErrorPtr error = checkVersion()) {
            return error;
        }
    }
    header_.minorVersion = at<std::uint8_t>(LasField::kMinorVersion);
    const std::size_t needed = kHeaderSizes[std::min(header_.minorVersion, kHighestMinorVersion)];
    if (got < needed) {
        return file_.fault(ErrorCode::Truncated, got, "the end of the file",
                           fmt::format("a header of {} bytes", needed));
    }
    return nullptr;
}

ErrorPtr HeaderParser::checkVersion() const {
    const auto major = at<std::uint8_t>(LasField::kMajorVersion);
    const auto minor = at<std::uint8_t>(LasField::kMinorVersion);
    if (major == 1 && minor <= kHighestMinorVersion) {
        return nullptr;
    }
    return file_.fault(ErrorCode::Unsupported, LasField::kMajorVersion,
                       fmt::format("LAS version {}.{}", major, minor), "1.0 to 1.4");
}

ErrorPtr HeaderParser::checkSizes() {
    const auto headerSize = at<std::uint16_t>(LasField::kHeaderSize);
    const std::size_t smallest = kHeaderSizes[header_.minorVersion];
    if (headerSize < smallest) {
        return file_.fault(ErrorCode::InvalidValue, LasField::kHeaderSize,
                           fmt::format("a header size of {}", headerSize),
                           fmt::format("at least {}", smallest));
    }
    header_.pointOffset = at<std::uint32_t>(LasField::kPointOffset);
    if (header_.pointOffset < headerSize) {
        return file_.fault(
            ErrorCode::InvalidValue, LasField::kPointOffset,
            fmt::format("a point offset of {}, inside the header", header_.pointOffset),
            fmt::format("at least {}", headerSize));
    }
    if (header_.pointOffset > file_.size()) {
        return file_.fault(ErrorCode::Truncated, LasField::kPointOffset,
                           fmt::format("a point offset of {}, past the end", header_.pointOffset),
                           fmt::format("at most the file's {}", countText(file_.size(), "byte")));
    }
    return nullptr;
}

ErrorPtr HeaderParser::checkFormat() {
    const auto byte = at<std::uint8_t>(LasField::kFormat);
    const unsigned format = byte & kLasFormatBits;
    if ((byte & kOldCompressionBit) != 0) {
        return file_.fault(
            ErrorCode::Unsupported, LasField::kFormat,
            fmt::format("points of an experimental compression (format byte {})", byte),
            "plain points or bit 7 alone");
    }
    if (format > kLasHighestFormat) {
        return file_.fault(ErrorCode::Unsupported, LasField::kFormat,
                           fmt::format("point format {}", format),
                           fmt::format("0 to {}", kLasHighestFormat));
    }
    isCompressed_ = (byte & kLasCompressedBit) != 0;
    header_.format = format;
    header_.recordLength = at<std::uint16_t>(LasField::kRecordLength);
    const std::size_t needed = lasRecordLayout(format).length;
    if (header_.recordLength < needed) {
        return file_.fault(ErrorCode::InvalidValue, LasField::kRecordLength,
                           fmt::format("a record length of {}", header_.recordLength),
                           fmt::format("at least {} for point format {}", needed, format));
    }
    return nullptr;
}

ErrorPtr HeaderParser::checkCount() {
    const std::uint64_t narrow = at<std::uint32_t>(LasField::kCount);
    const std::uint64_t wide =
        header_.minorVersion >= 4 ? at<std::uint64_t>(LasField::kWideCount) : std::uint64_t{0};
    header_.count = wide != 0 ? wide : narrow;
    const std::uint64_t fitting =
        isCompressed_ ? Laz::mostPoints(pointBytes()) : pointBytes() / header_.recordLength;
    if (header_.count > fitting) {
        ErrorPtr error =
            file_.fault(ErrorCode::Truncated, wide != 0 ? LasField::kWideCount : LasField::kCount,
                        fmt::format("a count of {}", countText(header_.count, "point")),
                        fmt::format("at most {}, for which the file has room; {}", fitting,
                                    lenient_ ? "these are read" : "--lenient reads these"));
        if (!lenient_) {
            return error;
        }
        header_.count = fitting;
        remarks_.warn(error->message());
    }
    remarkOnCounts(wide, narrow);
    return nullptr;
}

void HeaderParser::remarkOnCounts(std::uint64_t wide, std::uint64_t narrow) const {
    if (wide != 0 && narrow != 0 && wide != narrow) {
        remarks_.warn(fmt::format(
            "{}: the header counts {} points in 64 bits and {} in 32 bits; the first is taken",
            file_.name(), wide, narrow));
    }
    if (header_.minorVersion >= 4 && wide == 0 && narrow != 0) {
        remarks_.warn(fmt::format(
            "{}: the header counts no point in 64 bits, where LAS 1.4 counts them, and {} in 32 "
            "bits; the second is taken",
            file_.name(), narrow));
    }
    if (header_.count == 0) {
        remarks_.warn(fmt::format("{}: no point in the file", file_.name()));
    }
}

ErrorPtr HeaderParser::checkCoordinates() {
    constexpr double kLargestRaw = 2147483648.0;
    constexpr std::string_view kAxes = "xyz";
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const std::size_t scaleAt = LasField::kScale + 8 * axis;
        const std::size_t offsetAt = LasField::kOffset + 8 * axis;
        const double scale = at<double>(scaleAt);
        const double offset = at<double>(offsetAt);
        if (!std::isfinite(scale) || scale == 0.0) {
            return file_.fault(ErrorCode::InvalidValue, scaleAt,
                               fmt::format("a scale of {:.9g} for {}", scale, kAxes[axis]),
                               "a finite number other than 0");
        }
        if (!std::isfinite(offset) ||
            std::abs(offset) + kLargestRaw * std::abs(scale) > kLargestCoordinate) {
            return file_.fault(ErrorCode::InvalidValue, offsetAt,
                               fmt::format("an offset of {:.9g} and a scale of {:.9g} for {}",
                                           offset, scale, kAxes[axis]),
                               fmt::format("coordinates within {:.9g}", kLargestCoordinate));
        }
        if (scale < 0.0) {
            remarks_.warn(fmt::format(
                "{}: byte {}: a scale of {:.9g} for {}: coordinates fall as the stored numbers "
                "rise",
                file_.name(), scaleAt, scale, kAxes[axis]));
        }
        header_.scale[axis] = scale;
        header_.offset[axis] = offset;
        header_.maximum[axis] = at<double>(LasField::kBounds + 16 * axis);
        header_.minimum[axis] = at<double>(LasField::kBounds + 16 * axis + 8);
    }
    return nullptr;
}

/// A broken chain only earns a warning: of its records only the one on the compression is needed.
ErrorPtr HeaderParser::walkRecords() {
    walkLasRecords(file_,
                   {at<std::uint16_t>(LasField::kHeaderSize), header_.pointOffset,
                    at<std::uint32_t>(LasField::kVlrCount), false},
                   header_.records, remarks_);
    for (const LasRecord& record : header_.records) {
        if (record.isOnCompression()) {
            schema_ = record;
        }
    }
    findRest();
    if (header_.minorVersion >= 4) {
        walkLasRecords(file_,
                       {at<std::uint64_t>(LasField::kExtendedStart), file_.size(),
                        at<std::uint32_t>(LasField::kExtendedCount), true},
                       header_.records, remarks_);
    }
    return checkCompression();
}

ErrorPtr HeaderParser::checkCompression() const {
    if (isCompressed_ == schema_.has_value()) {
        return nullptr;
    }
    if (isCompressed_) {
        return file_.fault(ErrorCode::InvalidValue, LasField::kFormat,
                           "compressed points without a record on the compression",
                           "a variable-length record 'laszip encoded' 22204");
    }
    return file_.fault(ErrorCode::InvalidValue, schema_->begin,
                       "a record on the compression of points that are not compressed",
                       "bit 7 of the format byte");
}

ErrorPtr HeaderParser::readCompression() {
    if (!isCompressed_) {
        return nullptr;
    }
    auto made = std::make_shared<LasCompression>();
    ErrorPtr error =
        Laz::SchemaRecord::read(file_, schema_->begin, static_cast<std::size_t>(schema_->length),
                                header_.format, header_.recordLength, made->schema);
    if (!error && header_.count != 0) {
        error = Laz::findChunks(file_, made->schema,
                                {header_.pointOffset, header_.restBegin, header_.count}, made->list,
                                remarks_);
    }
    header_.compression = std::move(made);
    return error;
}

void HeaderParser::findRest() {
    header_.restBegin = file_.size();
    const auto stopAt = [this](std::uint64_t place) {
        if (place > header_.pointOffset) {
            header_.restBegin = std::min(header_.restBegin, place);
        }
    };
    if (header_.minorVersion >= 3) {
        stopAt(at<std::uint64_t>(LasField::kWaveStart));
    }
    if (header_.minorVersion >= 4 && at<std::uint32_t>(LasField::kExtendedCount) != 0) {
        stopAt(at<std::uint64_t>(LasField::kExtendedStart));
    }
}

/// What follows the points and is neither a waveform nor an extended record may be points that a
/// writer did not count before it broke off.
void HeaderParser::settleUncounted() {
    const std::uint64_t begin = header_.pointOffset + header_.count * header_.recordLength;
    if (isCompressed_ || begin >= header_.restBegin) {
        return;
    }
    const std::uint64_t bytes = header_.restBegin - begin;
    const std::uint64_t more = bytes / header_.recordLength;
    if (more != 0) {
        remarks_.warn(fmt::format(
            "{}: byte {}: {} after the last counted point, room for {} more than the header's {}; "
            "they are {}read",
            file_.name(), begin, countText(bytes, "byte"), countText(more, "point"), header_.count,
            lenient_ ? "" : "not "));
        header_.count += lenient_ ? more : 0;
    }
}

}  // namespace

ErrorPtr readLasHeader(InputFile& file, LasHeader& header, Remarks& remarks, bool lenient) {
    return HeaderParser(file, header, remarks, lenient).parse();
}

}  // namespace Ovr::Formats
