// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "las/LazBlocks.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <span>
#include <thread>
#include <utility>
#include <vector>

#include "kit/JobQueue.h"
#include "las/laz/Chunk.h"

namespace Ovr::Formats {

using Interfaces::ErrorCode;
using Laz::ChunkDecoder;
using Laz::ChunkPlace;

namespace {

constexpr std::uint64_t kBlockSize = std::uint64_t{1} << 20;        // [bytes]
constexpr std::uint64_t kMostAtOnce = std::uint64_t{24} << 20;      // chunks in flight [bytes]
constexpr std::uint64_t kModelsOfChunk = std::uint64_t{512} << 10;  // usual size [bytes]

/// What is common to both ways of walking.
class LazBlocks : public LasBlocks {
  public:
    LazBlocks(InputFile& file, const LasHeader& header, std::uint64_t count)
        : LasBlocks(header.compression->schema.recordLength, count),
          file_(file),
          schema_(header.compression->schema),
          list_(header.compression->list),
          endsInDamage_(header.endsInDamage && count == header.count) {}

    ErrorPtr fault(ErrorCode code, std::uint64_t i, std::size_t, std::string found,
                   std::string expected) const override {
        return Laz::chunkFault(file_, code, chunk_, first() + i, begin_, std::move(found),
                               std::move(expected));
    }

  protected:
    /// Names the chunk that is shown. @param begin  where it stands in the file
    void enter(std::uint64_t chunk, std::uint64_t begin) {
        chunk_ = chunk;
        begin_ = begin;
    }
    /// @param point  the first that is not right
    [[nodiscard]] ErrorPtr check(const Laz::Damage& damage, std::uint64_t point) const {
        if (!damage.isThere() || (endsInDamage_ && point == end())) {
            return nullptr;
        }
        const bool isCut = damage.byte >= file_.size();
        return Laz::chunkFault(file_, isCut ? ErrorCode::Truncated : ErrorCode::InvalidValue,
                               chunk_, point, damage.byte,
                               isCut ? "the end of the file" : damage.found, damage.expected);
    }

    InputFile& file_;
    const Laz::Schema& schema_;
    const Laz::ChunkList& list_;

  private:
    bool endsInDamage_;
    std::uint64_t chunk_ = 0;
    std::uint64_t begin_ = 0;
};

/// One chunk after another, block by block.
class SerialBlocks final : public LazBlocks {
  public:
    SerialBlocks(InputFile& file, const LasHeader& header, std::uint64_t count)
        : LazBlocks(file, header, count),
          buffer_(static_cast<std::size_t>(
              std::min(count, std::max<std::uint64_t>(1, kBlockSize / length())) * length())) {}

    ErrorPtr next() override {
        const std::uint64_t from = first() + records();
        if (!decoder_ || from == chunk_.first + chunk_.count) {
            begin(from);
        }
        const std::uint64_t wanted =
            std::min({end() - from, chunk_.first + chunk_.count - from,
                      static_cast<std::uint64_t>(buffer_.size()) / length()});
        const std::uint64_t got =
            decoder_->decode(std::span(buffer_).first(static_cast<std::size_t>(wanted * length())));
        show(buffer_.data(), got);
        const bool endIsKnown = list_.endsAreKnown || schema_.compressor == Laz::Compressor::Stream;
        if (from + got == chunk_.first + chunk_.count && endIsKnown) {
            decoder_->expectEnd();
        }
        return check(decoder_->damage(), from + got);
    }

  private:
    void begin(std::uint64_t from) {
        const ChunkPlace& place = list_.chunks[list_.endsAreKnown ? number_ : 0];
        if (list_.endsAreKnown) {
            chunk_ = place;
        } else {
            const bool isOne = schema_.compressor == Laz::Compressor::Stream;
            chunk_ = {decoder_ ? decoder_->end() : place.begin, place.end, from,
                      isOne ? place.count
                            : std::min<std::uint64_t>(schema_.chunkSize, place.count - from)};
        }
        enter(number_++, chunk_.begin);
        decoder_.emplace(schema_, Laz::ChunkBytes{&file_, {}, chunk_.begin, chunk_.end},
                         chunk_.count);
    }

    std::vector<char> buffer_;
    std::uint64_t number_ = 0;  ///< of the next chunk
    ChunkPlace chunk_;
    std::optional<ChunkDecoder> decoder_;
};

/// A chunk on its way.
struct ChunkJob {
    std::uint64_t number;
    ChunkPlace place;
    std::uint64_t wanted;  ///< points, from its first on
    std::vector<char> bytes;
    std::vector<char> records{};
    std::uint64_t right = 0;  ///< points
    Laz::Damage damage{};
};

void run(const Laz::Schema& schema, ChunkJob& job) {
    const ChunkPlace& place = job.place;
    ChunkDecoder decoder(schema, {nullptr, job.bytes, place.begin, place.begin + job.bytes.size()},
                         place.count);
    job.records.resize(static_cast<std::size_t>(job.wanted * schema.recordLength));
    job.right = decoder.decode(job.records);
    if (job.right == place.count) {
        decoder.expectEnd();
    }
    job.damage = decoder.damage();
    job.bytes = {};
}

/// Several chunks at once, and each a block.
class ParallelBlocks final : public LazBlocks {
  public:
    ParallelBlocks(InputFile& file, const LasHeader& header, std::uint64_t count, unsigned threads,
                   std::uint64_t atOnce)
        : LazBlocks(file, header, count),
          atOnce_(atOnce),
          queue_(threads, [this](ChunkJob& job) { run(schema_, job); }) {}

    ErrorPtr next() override {
        // Makes room before the next one is taken up.
        current_.reset();
        while (queue_.size() < atOnce_ && given_ < list_.chunks.size() &&
               list_.chunks[given_].first < end()) {
            give();
        }
        current_ = queue_.take();
        enter(current_->number, current_->place.begin);
        show(current_->records.data(), current_->right);
        return check(current_->damage, first() + current_->right);
    }

  private:
    void give() {
        const ChunkPlace& place = list_.chunks[given_];
        auto job = std::make_unique<ChunkJob>(
            ChunkJob{given_, place, std::min(place.count, end() - place.first),
                     std::vector<char>(static_cast<std::size_t>(place.end - place.begin))});
        job->bytes.resize(file_.readAt(place.begin, job->bytes));
        queue_.give(std::move(job));
        ++given_;
    }

    std::uint64_t atOnce_;
    std::uint64_t given_ = 0;
    std::unique_ptr<ChunkJob> current_;
    JobQueue<ChunkJob> queue_;
};

/// The most that a chunk takes while it is decoded [bytes].
std::uint64_t largestCost(const LasCompression& compression) {
    constexpr std::uint64_t kModelOfByte = 2048;
    const Laz::Schema& schema = compression.schema;
    std::uint64_t largest = 0;
    for (const ChunkPlace& chunk : compression.list.chunks) {
        largest = std::max(largest, chunk.end - chunk.begin + chunk.count * schema.recordLength);
    }
    const std::uint64_t channels = schema.isLayered() ? 4 : 1;
    return largest + kModelsOfChunk + channels * schema.recordLength * kModelOfByte;
}

}  // namespace

std::unique_ptr<LasBlocks> openLazBlocks(InputFile& file, const LasHeader& header,
                                         std::uint64_t count) {
    const LasCompression& compression = *header.compression;
    const auto& chunks = compression.list.chunks;
    const std::uint64_t atOnce =
        std::min<std::uint64_t>(chunks.size(), kMostAtOnce / largestCost(compression));
    const unsigned cores = std::thread::hardware_concurrency();
    const bool isShort = chunks.empty() || count <= chunks.front().count;
    if (!compression.list.endsAreKnown || isShort || atOnce < 2 || cores < 2) {
        return std::make_unique<SerialBlocks>(file, header, count);
    }
    const auto threads = static_cast<unsigned>(std::min<std::uint64_t>(cores, atOnce));
    return std::make_unique<ParallelBlocks>(file, header, count, threads, atOnce);
}

}  // namespace Ovr::Formats
