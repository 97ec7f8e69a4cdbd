// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "las/laz/ByteStream.h"
#include "las/laz/Decoder.h"
#include "las/laz/RecordCoder.h"
#include "las/laz/Schema.h"

namespace Ovr::Formats::Laz {

/// Codes records into one chunk:
///
/// | one stream | layers |
/// |---|---|
/// | the first record as it is | the first record as it is |
/// | the stream of the others | 32 bits: number of records |
/// | | 32 bits for each layer: its size, 0 where nothing in it changes |
/// | | the layers |
///
/// @param records  one or more
std::string encodeChunk(const Schema& schema, std::span<const char> records);

/// Decodes the records of one chunk, from the first on. Threads: one.
class ChunkDecoder {
  public:
    /// Room for bytes of the file that all streams of a chunk keep together [bytes].
    static constexpr std::size_t WINDOW = std::size_t{1} << 17;

    /// @param schema  kept by reference
    /// @param count   records that the chunk is said to hold, at least 1
    ChunkDecoder(const Schema& schema, const ChunkBytes& bytes, std::uint64_t count);
    ChunkDecoder(const ChunkDecoder&) = delete;
    ChunkDecoder& operator=(const ChunkDecoder&) = delete;

    /// Decodes the next records. Those of the whole chunk together are at most its count.
    /// @param records  whole records
    /// @return how many are right: fewer than there is room for when there is damage()
    std::size_t decode(std::span<char> records);
    /// After the last record: takes bytes that are left over for damage.
    void expectEnd();
    /// After the last record: where in the file the chunk ends.
    std::uint64_t end() const;
    /// What is wrong, if anything.
    const Damage& damage() const { return damage_; }

  private:
    bool open(std::span<char> first);
    bool openLayers(std::uint64_t at);
    void damaged(std::string found, std::string expected, std::uint64_t byte) {
        damage_ = {std::move(found), std::move(expected), byte};
    }

    const Schema& schema_;
    ChunkBytes bytes_;
    std::uint64_t count_;
    Damage damage_;
    std::unique_ptr<RecordCoder<Decoder>> coder_;  ///< null before the first record
    std::vector<Decoder> streams_;
};

}  // namespace Ovr::Formats::Laz
