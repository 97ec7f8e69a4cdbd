// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "las/LasBlocks.h"

#include <fmt/format.h>

#include <algorithm>
#include <memory>
#include <utility>
#include <vector>

#include "kit/JobQueue.h"
#include "las/LazBlocks.h"

namespace Ovr::Formats {

namespace {

constexpr std::uint64_t kBlockSize = std::uint64_t{1} << 20;  // [bytes]
constexpr std::size_t kBlocksAhead = 2;

/// A stretch of records on its way.
struct BlockJob {
    std::uint64_t first = 0;
    std::uint64_t records = 0;
    std::vector<char> bytes{};
    std::size_t got = 0;  ///< bytes
};

/// The records as they stand in the file. The next blocks are read while one is looked at.
class PlainBlocks final : public LasBlocks {
  public:
    PlainBlocks(InputFile& file, const LasHeader& header, std::uint64_t end)
        : LasBlocks(header.recordLength, end),
          file_(file),
          begin_(header.pointOffset),
          queue_(end * length() > kBlocksAhead * kBlockSize ? 1 : 0,
                 [this](BlockJob& job) { read(job); }) {}

    ErrorPtr next() override {
        while (queue_.size() < kBlocksAhead && given_ < end()) {
            give();
        }
        current_ = queue_.take();
        show(current_->bytes.data(), current_->records);
        if (current_->got != current_->bytes.size()) {
            return file_.fault(Interfaces::ErrorCode::Truncated, offset(0) + current_->got,
                               "the end of the file", fmt::format("{} points", end()));
        }
        return nullptr;
    }

    ErrorPtr fault(Interfaces::ErrorCode code, std::uint64_t i, std::size_t field,
                   std::string found, std::string expected) const override {
        return file_.fault(code, offset(i) + field, std::move(found), std::move(expected));
    }

  private:
    void give() {
        // The block that was looked at is read into again.
        auto job = current_ ? std::move(current_) : std::make_unique<BlockJob>();
        job->first = given_;
        job->records = std::min(end() - given_, kBlockSize / length());
        given_ += job->records;
        queue_.give(std::move(job));
    }
    void read(BlockJob& job) {
        job.bytes.resize(static_cast<std::size_t>(job.records * length()));
        job.got = file_.readAt(begin_ + job.first * length(), job.bytes);
    }
    std::uint64_t offset(std::uint64_t i) const { return begin_ + (first() + i) * length(); }

    InputFile& file_;
    std::uint64_t begin_;      ///< of the first record in the file [bytes]
    std::uint64_t given_ = 0;  ///< records
    std::unique_ptr<BlockJob> current_;
    JobQueue<BlockJob> queue_;
};

}  // namespace

LasBlocks::~LasBlocks() = default;

double LasBlocks::fraction() const {
    return end_ == 0 ? 1.0 : static_cast<double>(first_ + records_) / static_cast<double>(end_);
}

std::unique_ptr<LasBlocks> openLasBlocks(InputFile& file, const LasHeader& header,
                                         std::uint64_t count) {
    if (header.compression) {
        return openLazBlocks(file, header, count);
    }
    return std::make_unique<PlainBlocks>(file, header, count);
}

}  // namespace Ovr::Formats
