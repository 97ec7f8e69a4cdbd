// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "las/LasBlocks.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>

namespace Ovr::Formats {

namespace {

constexpr std::uint64_t kBlockSize = std::uint64_t{1} << 20;  // [bytes]

}  // namespace

LasBlocks::LasBlocks(InputFile& file, const LasHeader& header, std::uint64_t end,
                     std::uint64_t first)
    : file_(file),
      begin_(header.pointOffset),
      length_(header.recordLength),
      end_(end),
      first_(first),
      buffer_(static_cast<std::size_t>(std::min(end - first, kBlockSize / length_) * length_)) {}

ErrorPtr LasBlocks::next() {
    first_ += records_;
    records_ = std::min(end_ - first_, static_cast<std::uint64_t>(buffer_.size()) / length_);
    const auto bytes = static_cast<std::size_t>(records_ * length_);
    const std::size_t got = file_.readAt(fileOffset(0), std::span(buffer_).first(bytes));
    if (got != bytes) {
        return file_.fault(Interfaces::ErrorCode::Truncated, fileOffset(0) + got,
                           "the end of the file", fmt::format("{} points", end_));
    }
    return nullptr;
}

double LasBlocks::fraction() const {
    return end_ == 0 ? 1.0 : static_cast<double>(first_ + records_) / static_cast<double>(end_);
}

}  // namespace Ovr::Formats
