// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "las/LasDamage.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>

#include "kit/LittleEndian.h"
#include "kit/TextFields.h"
#include "kit/WorkWatch.h"
#include "las/LasBlocks.h"

namespace Ovr::Formats {

ErrorPtr shortenToReadable(InputFile& file, LasHeader& header, Remarks& remarks,
                           const DataStructures::Work& work) {
    if (!header.compression) {
        return nullptr;
    }
    WorkWatch watch(work);
    const auto blocks = openLasBlocks(file, header, header.count);
    while (!blocks->atEnd()) {
        if (const ErrorPtr error = blocks->next()) {
            const std::uint64_t right = blocks->first() + blocks->records();
            remarks.warn(fmt::format("{}; of {} the {} before it are read", error->message(),
                                     countText(header.count, "point"), right));
            header.count = right;
            header.endsInDamage = true;
            return nullptr;
        }
        if (!watch.goOn(blocks->fraction())) {
            return cancelled(file.name());
        }
    }
    return nullptr;
}

void setLasCount(std::string& bytes, const LasHeader& header) {
    const bool hasWide = header.minorVersion >= 4;
    const auto narrow = loadLittle<std::uint32_t>(bytes.data() + LasField::kCount);
    const std::uint64_t wide =
        hasWide ? loadLittle<std::uint64_t>(bytes.data() + LasField::kWideCount) : std::uint64_t{0};
    if ((wide != 0 ? wide : narrow) == header.count) {
        return;
    }
    const auto put = [&]<typename T>(std::size_t field, std::size_t returns, T count) {
        std::fill_n(bytes.data() + field, (returns + 1) * sizeof(T), '\0');
        storeLittle(bytes.data() + field, count);
    };
    const bool fits = header.count <= std::numeric_limits<std::uint32_t>::max();
    put(LasField::kCount, kLasOldReturns,
        narrow != 0 && fits ? static_cast<std::uint32_t>(header.count) : std::uint32_t{0});
    if (hasWide) {
        put(LasField::kWideCount, kLasReturns, header.count);
    }
}

}  // namespace Ovr::Formats
