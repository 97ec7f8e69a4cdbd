// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "las/LasWriter.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <span>
#include <string_view>

#include "kit/LittleEndian.h"
#include "kit/TextFields.h"
#include "las/LasHeader.h"

namespace Ovr::Formats {

using Interfaces::ErrorCode;

namespace {

constexpr std::size_t kNarrowHeaderSize = 227;  // LAS 1.2
constexpr std::size_t kWideHeaderSize = 375;    // LAS 1.4
constexpr std::uint16_t kAdjustedTimeBit = 1;
constexpr std::uint16_t kWktBit = 16;  // LAS 1.4 asks for it with formats 6 and 7
/// Return 1 of 1, in the bits of formats 0 to 5 and of formats 6 to 10.
constexpr char kNarrowReturns = 1 | 1 << 3;
constexpr char kWideReturns = 1 | 1 << 4;
constexpr std::size_t kReturnsAt = 14;

unsigned formatOf(bool wide, bool colored) {
    return wide ? (colored ? 7 : 6) : (colored ? 3 : 1);
}

void putText(char* field, const std::string& text) {
    std::copy_n(text.begin(), std::min(text.size(), kLasIdentifierLength), field);
}

}  // namespace

std::size_t LasWriter::recordLength() const {
    return lasRecordLayout(formatOf(wide_, settings_.colored)).length;
}

ErrorPtr LasWriter::open(const std::filesystem::path& file, const LasWriterSettings& settings) {
    name_ = file.string();
    settings_ = settings;
    wide_ = settings.expectedCount > std::numeric_limits<std::uint32_t>::max();
    return file_.open(file, settings.existing, header(), {}, false);
}

ErrorPtr LasWriter::write(const LasPoint& point) {
    const LasRecordLayout& layout = lasRecordLayout(formatOf(wide_, settings_.colored));
    std::array<char, 64> record{};
    if (ErrorPtr error = setCoordinates(point, record.data())) {
        return error;
    }
    storeLittle(record.data() + kLasIntensityOffset, point.intensity);
    record[kReturnsAt] = wide_ ? kWideReturns : kNarrowReturns;
    storeLittle(record.data() + *layout.time, point.time);
    if (layout.color) {
        for (std::size_t c = 0; c < point.color.size(); ++c) {
            storeLittle(record.data() + *layout.color + 2 * c, point.color[c]);
        }
    }
    ++count_;
    return file_.write(std::span<const char>(record).first(layout.length));
}

ErrorPtr LasWriter::setCoordinates(const LasPoint& point, char* record) {
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const double steps =
            std::round((point.position[axis] - settings_.offset[axis]) / settings_.scale[axis]);
        if (!(steps >= std::numeric_limits<std::int32_t>::min() &&
              steps <= std::numeric_limits<std::int32_t>::max())) {
            return makeError(ErrorCode::InvalidValue,
                             {name_, fmt::format("point {}", count_),
                              fmt::format("the coordinate {:.12g}", point.position[axis]),
                              fmt::format("at most 2^31 steps of {:.9g} m from {:.12g}",
                                          settings_.scale[axis], settings_.offset[axis])});
        }
        const auto raw = static_cast<std::int32_t>(steps);
        storeLittle(record + 4 * axis, raw);
        smallest_[axis] = count_ == 0 ? raw : std::min(smallest_[axis], raw);
        largest_[axis] = count_ == 0 ? raw : std::max(largest_[axis], raw);
    }
    return nullptr;
}

ErrorPtr LasWriter::finish() {
    if (!wide_ && count_ > std::numeric_limits<std::uint32_t>::max()) {
        return makeError(ErrorCode::InvalidValue,
                         {name_, "", countText(count_, "point"),
                          "no more than were announced, for LAS 1.2 counts in 32 bits"});
    }
    return file_.finish(header());
}

std::string LasWriter::header() const {
    std::string bytes(wide_ ? kWideHeaderSize : kNarrowHeaderSize, '\0');
    char* const h = bytes.data();
    constexpr std::string_view kSignature = "LASF";
    std::copy(kSignature.begin(), kSignature.end(), h);
    const unsigned encoding =
        (settings_.adjustedTime ? kAdjustedTimeBit : 0U) | (wide_ ? kWktBit : 0U);
    storeLittle(h + LasField::kEncoding, static_cast<std::uint16_t>(encoding));
    h[LasField::kMajorVersion] = 1;
    h[LasField::kMinorVersion] = wide_ ? 4 : 2;
    putText(h + LasField::kSystem, settings_.systemIdentifier);
    putText(h + LasField::kSoftware, settings_.generatingSoftware);
    storeLittle(h + LasField::kCreationDay, settings_.creationDay);
    storeLittle(h + LasField::kCreationYear, settings_.creationYear);
    storeLittle(h + LasField::kHeaderSize, static_cast<std::uint16_t>(bytes.size()));
    storeLittle(h + LasField::kPointOffset, static_cast<std::uint32_t>(bytes.size()));
    h[LasField::kFormat] = static_cast<char>(formatOf(wide_, settings_.colored));
    storeLittle(h + LasField::kRecordLength, static_cast<std::uint16_t>(recordLength()));
    putCounts(h);
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const double scale = settings_.scale[axis];
        const double offset = settings_.offset[axis];
        storeLittle(h + LasField::kScale + 8 * axis, scale);
        storeLittle(h + LasField::kOffset + 8 * axis, offset);
        storeLittle(h + LasField::kBounds + 16 * axis, largest_[axis] * scale + offset);
        storeLittle(h + LasField::kBounds + 16 * axis + 8, smallest_[axis] * scale + offset);
    }
    return bytes;
}

/// Every point is the only return of its pulse.
void LasWriter::putCounts(char* header) const {
    if (wide_) {
        storeLittle(header + LasField::kWideCount, count_);
        storeLittle(header + LasField::kWideCount + 8, count_);
    } else {
        const auto narrow = static_cast<std::uint32_t>(count_);
        storeLittle(header + LasField::kCount, narrow);
        storeLittle(header + LasField::kCount + 4, narrow);
    }
}

}  // namespace Ovr::Formats
