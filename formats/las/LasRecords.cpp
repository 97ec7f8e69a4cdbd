// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "las/LasRecords.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <span>

#include "kit/LittleEndian.h"
#include "las/laz/SchemaRecord.h"

namespace Ovr::Formats {

namespace {

constexpr std::size_t kExtendedHeadSize = 60;

/// Records that are kept of one file: a chain of many millions fits into a file.
constexpr std::size_t kMostKept = 1024;
/// The longest data that are read [bytes]: coordinate systems take a few thousand.
constexpr std::uint64_t kLongestRead = std::uint64_t{1} << 20;

std::string userOf(const char* head) {
    const char* const begin = head + LasVlr::kUserId;
    return {begin, std::find(begin, begin + LasVlr::kUserIdLength, '\0')};
}

std::uint64_t lengthOf(const char* head, bool extended) {
    return extended ? loadLittle<std::uint64_t>(head + LasVlr::kLength)
                    : loadLittle<std::uint16_t>(head + LasVlr::kLength);
}

void warnOfEnd(const InputFile& file, const LasChain& chain, std::uint64_t begin,
               std::uint64_t number, Remarks& remarks) {
    remarks.warn(fmt::format(
        "{}: byte {}: {}variable-length record {} of {} reaches {}; skipped with those after it",
        file.name(), begin, chain.extended ? "extended " : "", number, chain.count,
        chain.extended ? "past the end of the file" : "into the points"));
}

}  // namespace

void walkLasRecords(InputFile& file, const LasChain& chain, std::vector<LasRecord>& kept,
                    Remarks& remarks) {
    std::array<char, kExtendedHeadSize> buffer{};
    const std::span head =
        std::span(buffer).first(chain.extended ? kExtendedHeadSize : LasVlr::kHeadSize);
    std::uint64_t place = chain.begin;
    for (std::uint64_t i = 0; i < chain.count; ++i) {
        const std::uint64_t begin = place;
        const bool hasHead = begin <= chain.end && chain.end - begin >= head.size() &&
                             file.readAt(begin, head) == head.size();
        place += head.size();
        const std::uint64_t length = hasHead ? lengthOf(head.data(), chain.extended) : 0;
        if (!hasHead || chain.end - place < length) {
            warnOfEnd(file, chain, begin, i + 1, remarks);
            return;
        }
        LasRecord record{userOf(head.data()),
                         loadLittle<std::uint16_t>(head.data() + LasVlr::kRecordId), place, length,
                         chain.extended};
        const bool isOfUse = record.user == kProjectionUser || record.user == kSpecificationUser;
        if (record.isOnCompression() || (isOfUse && kept.size() < kMostKept)) {
            kept.push_back(std::move(record));
        }
        place += length;
    }
}

bool LasRecord::isOnCompression() const {
    return !isExtended && user == Laz::SchemaRecord::USER_ID && id == Laz::SchemaRecord::RECORD_ID;
}

const LasRecord* findLasRecord(const std::vector<LasRecord>& records, std::string_view user,
                               std::uint16_t id) {
    const auto found = std::find_if(records.rbegin(), records.rend(), [&](const LasRecord& record) {
        return record.user == user && record.id == id;
    });
    return found == records.rend() ? nullptr : &*found;
}

std::string readLasRecord(InputFile& file, const LasRecord* record) {
    if (record == nullptr || record->length > kLongestRead) {
        return {};
    }
    std::string data(static_cast<std::size_t>(record->length), '\0');
    data.resize(file.readAt(record->begin, data));
    return data;
}

}  // namespace Ovr::Formats
