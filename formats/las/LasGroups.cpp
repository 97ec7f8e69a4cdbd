// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "las/LasGroups.h"

#include <algorithm>

#include "kit/TextFields.h"
#include "kit/WorkWatch.h"
#include "las/LasBlocks.h"

namespace Ovr::Formats {

using Interfaces::ErrorCode;

ErrorPtr LasGroups::open(InputFile& file, const LasHeader& header,
                         const DataStructures::Work& work) {
    file_ = &file;
    header_ = &header;
    return header.compression ? hold(work) : nullptr;
}

ErrorPtr LasGroups::hold(const DataStructures::Work& work) {
    WorkWatch watch(work);
    const auto walk = openLasBlocks(*file_, *header_, header_->count);
    while (!walk->atEnd()) {
        if (ErrorPtr error = walk->next()) {
            return error;
        }
        append(
            {walk->record(0), static_cast<std::size_t>(walk->records() * header_->recordLength)});
        if (!watch.goOn(walk->fraction())) {
            return cancelled(file_->name());
        }
    }
    return nullptr;
}

void LasGroups::append(std::span<const char> records) {
    constexpr std::size_t kMostReserved = std::size_t{4} << 20;  // [bytes]
    const auto size = static_cast<std::size_t>(SIZE * header_->recordLength);
    while (!records.empty()) {
        if (held_.empty() || held_.back().size() == size) {
            held_.emplace_back().reserve(std::min(size, kMostReserved));
        }
        std::vector<char>& last = held_.back();
        const std::size_t some = std::min(records.size(), size - last.size());
        last.insert(last.end(), records.begin(),
                    records.begin() + static_cast<std::ptrdiff_t>(some));
        records = records.subspan(some);
    }
}

ErrorPtr LasGroups::read(std::uint64_t group, std::span<const char>& records) {
    if (header_->compression) {
        records = held_[static_cast<std::size_t>(group)];
        return nullptr;
    }
    const std::uint64_t first = group * SIZE;
    const std::uint64_t offset = header_->pointOffset + first * header_->recordLength;
    buffer_.resize(
        static_cast<std::size_t>(std::min(header_->count - first, SIZE) * header_->recordLength));
    const std::size_t got = file_->readAt(offset, buffer_);
    if (got != buffer_.size()) {
        return file_->fault(ErrorCode::Truncated, offset + got, "the end of the file",
                            countText(header_->count, "point"));
    }
    records = buffer_;
    return nullptr;
}

}  // namespace Ovr::Formats
