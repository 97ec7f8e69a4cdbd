// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "las/LasVlrs.h"

#include <fmt/format.h>

#include <array>

#include "kit/LittleEndian.h"
#include "las/laz/SchemaRecord.h"

namespace Ovr::Formats {

std::optional<SchemaPlace> findSchemaRecord(InputFile& file, const LasVlrs& records,
                                            Remarks& remarks) {
    std::optional<SchemaPlace> found;
    std::array<char, LasVlr::kHeadSize> head{};
    std::uint64_t place = records.begin;
    for (std::uint32_t i = 0; i < records.count; ++i) {
        const std::uint64_t begin = place;
        place += head.size();
        if (place <= records.end && file.readAt(begin, head) == head.size()) {
            const auto id = loadLittle<std::uint16_t>(head.data() + LasVlr::kRecordId);
            const auto size = loadLittle<std::uint16_t>(head.data() + LasVlr::kLength);
            if (Laz::SchemaRecord::isHeadOf(head.data() + LasVlr::kUserId, id)) {
                found = {place, size};
            }
            place += size;
        }
        if (place > records.end) {
            remarks.warn(fmt::format(
                "{}: byte {}: variable-length record {} of {} reaches into the points; skipped "
                "with those after it",
                file.name(), begin, i + 1, records.count));
            break;
        }
    }
    return found;
}

}  // namespace Ovr::Formats
