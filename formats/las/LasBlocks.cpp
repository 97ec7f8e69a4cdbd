// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "las/LasBlocks.h"

#include <fmt/format.h>

#include <algorithm>
#include <span>
#include <utility>
#include <vector>

#include "las/LazBlocks.h"

namespace Ovr::Formats {

namespace {

constexpr std::uint64_t kBlockSize = std::uint64_t{1} << 20;  // [bytes]

/// The records as they stand in the file.
class PlainBlocks final : public LasBlocks {
  public:
    PlainBlocks(InputFile& file, const LasHeader& header, std::uint64_t end)
        : LasBlocks(header.recordLength, end),
          file_(file),
          begin_(header.pointOffset),
          buffer_(static_cast<std::size_t>(std::min(end, kBlockSize / length()) * length())) {}

    ErrorPtr next() override {
        show(buffer_.data(), std::min(end() - first() - records(),
                                      static_cast<std::uint64_t>(buffer_.size()) / length()));
        const auto bytes = static_cast<std::size_t>(records() * length());
        const std::size_t got = file_.readAt(offset(0), std::span(buffer_).first(bytes));
        if (got != bytes) {
            return file_.fault(Interfaces::ErrorCode::Truncated, offset(0) + got,
                               "the end of the file", fmt::format("{} points", end()));
        }
        return nullptr;
    }

    ErrorPtr fault(Interfaces::ErrorCode code, std::uint64_t i, std::size_t field,
                   std::string found, std::string expected) const override {
        return file_.fault(code, offset(i) + field, std::move(found), std::move(expected));
    }

  private:
    std::uint64_t offset(std::uint64_t i) const { return begin_ + (first() + i) * length(); }

    InputFile& file_;
    std::uint64_t begin_;  ///< of the first record in the file [bytes]
    std::vector<char> buffer_;
};

}  // namespace

LasBlocks::~LasBlocks() = default;

double LasBlocks::fraction() const {
    return end_ == 0 ? 1.0 : static_cast<double>(first_ + records_) / static_cast<double>(end_);
}

std::unique_ptr<LasBlocks> openLasBlocks(InputFile& file, const LasHeader& header,
                                         std::uint64_t count) {
    if (header.compression) {
        return openLazBlocks(file, *header.compression, count);
    }
    return std::make_unique<PlainBlocks>(file, header, count);
}

}  // namespace Ovr::Formats
