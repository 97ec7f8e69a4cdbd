// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "las/LasRecordWriter.h"

#include <algorithm>
#include <thread>
#include <utility>

#include "kit/LittleEndian.h"
#include "las/LasHeader.h"
#include "las/LasRecords.h"
#include "las/laz/Chunk.h"
#include "las/laz/ChunkTable.h"
#include "las/laz/SchemaRecord.h"

namespace Ovr::Formats {

namespace {

constexpr std::size_t kBlockSize = std::size_t{1} << 20;  // of plain records [bytes]
constexpr std::uint64_t kPositionSize = 8;                // of the place of the chunk table

std::string schemaVlr(const Laz::Schema& schema) {
    const std::string payload = Laz::SchemaRecord::payload(schema);
    std::string record(LasVlr::kHeadSize, '\0');
    const std::string_view user = Laz::SchemaRecord::USER_ID;
    record.replace(LasVlr::kUserId, user.size(), user);
    storeLittle(record.data() + LasVlr::kRecordId, Laz::SchemaRecord::RECORD_ID);
    storeLittle(record.data() + LasVlr::kLength, static_cast<std::uint16_t>(payload.size()));
    return record + payload;
}

template <typename T>
void addTo(char* field, std::uint64_t more) {
    storeLittle(field, static_cast<T>(loadLittle<T>(field) + more));
}

}  // namespace

LasRecordWriter::LasRecordWriter() = default;
LasRecordWriter::~LasRecordWriter() = default;

ErrorPtr LasRecordWriter::open(const std::filesystem::path& file, Existing existing,
                               std::string header, std::string between, bool compress) {
    if (ErrorPtr error = file_.open(file, existing)) {
        return error;
    }
    const unsigned format = loadLittle<std::uint8_t>(header.data() + LasField::kFormat);
    const std::size_t length = loadLittle<std::uint16_t>(header.data() + LasField::kRecordLength);
    blockSize_ = std::max<std::size_t>(1, kBlockSize / length) * length;
    if (compress) {
        schema_ = Laz::schemaFor(format, length);
        blockSize_ = schema_.chunkSize * length;
        const unsigned cores = std::thread::hardware_concurrency();
        const unsigned threads = cores > 1 ? cores : 0;
        atOnce_ = std::size_t{2} * threads;
        jobs_ = std::make_unique<JobQueue<Job>>(
            threads, [this](Job& job) { job.chunk = Laz::encodeChunk(schema_, job.records); });
        between.insert(0, schemaVlr(schema_));
    }
    pointsAt_ = header.size() + between.size();
    // The header takes its place until the counts and bounds are known.
    ErrorPtr error = put(header + between);
    if (!error && compress) {
        error = put(std::string(kPositionSize, '\0'));
    }
    return error;
}

ErrorPtr LasRecordWriter::put(std::string_view bytes) {
    file_.stream().write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    place_ += bytes.size();
    return file_.failure();
}

ErrorPtr LasRecordWriter::write(std::span<const char> records) {
    while (!records.empty()) {
        const std::size_t some = std::min(records.size(), blockSize_ - gathered_.size());
        gathered_.append(records.data(), some);
        records = records.subspan(some);
        if (gathered_.size() == blockSize_) {
            if (ErrorPtr error = giveChunk()) {
                return error;
            }
        }
    }
    return nullptr;
}

/// Plain records go straight into the file.
ErrorPtr LasRecordWriter::giveChunk() {
    if (!jobs_) {
        ErrorPtr error = put(gathered_);
        gathered_.clear();
        return error;
    }
    jobs_->give(std::make_unique<Job>(Job{std::exchange(gathered_, {}), {}}));
    while (jobs_->size() > atOnce_) {
        if (ErrorPtr error = takeChunk()) {
            return error;
        }
    }
    return nullptr;
}

ErrorPtr LasRecordWriter::takeChunk() {
    const auto job = jobs_->take();
    chunkSizes_.push_back(static_cast<std::uint32_t>(job->chunk.size()));
    return put(job->chunk);
}

ErrorPtr LasRecordWriter::putChunkTable() {
    while (jobs_->size() > 0) {
        if (ErrorPtr error = takeChunk()) {
            return error;
        }
    }
    const std::uint64_t table = place_;
    if (ErrorPtr error = put(Laz::ChunkTable::encode(chunkSizes_))) {
        return error;
    }
    const std::uint64_t end = place_;
    std::string position(kPositionSize, '\0');
    storeLittle(position.data(), table);
    file_.stream().seekp(static_cast<std::streamoff>(pointsAt_));
    ErrorPtr error = put(position);
    file_.stream().seekp(static_cast<std::streamoff>(end));
    place_ = end;
    return error;
}

ErrorPtr LasRecordWriter::endPoints() {
    if (restAt_ != 0) {
        return nullptr;
    }
    ErrorPtr error = gathered_.empty() ? nullptr : giveChunk();
    if (!error && jobs_) {
        error = putChunkTable();
    }
    restAt_ = place_;
    return error;
}

ErrorPtr LasRecordWriter::writeRest(std::string_view bytes) {
    ErrorPtr error = endPoints();
    return error ? std::move(error) : put(bytes);
}

ErrorPtr LasRecordWriter::finish(std::string header, std::uint64_t restAt) {
    if (ErrorPtr error = endPoints()) {
        return error;
    }
    complete(header, restAt);
    file_.stream().seekp(0);
    ErrorPtr error = put(header);
    return error ? std::move(error) : file_.commit();
}

void LasRecordWriter::complete(std::string& header, std::uint64_t restAt) const {
    char* const h = header.data();
    storeLittle(h + LasField::kPointOffset, static_cast<std::uint32_t>(pointsAt_));
    if (jobs_) {
        h[LasField::kFormat] =
            static_cast<char>(static_cast<unsigned char>(h[LasField::kFormat]) | kLasCompressedBit);
        addTo<std::uint32_t>(h + LasField::kVlrCount, 1);
    }
    const auto move = [&](std::size_t field) {
        const bool isInHeader = field + sizeof(std::uint64_t) <= header.size();
        if (isInHeader && restAt != 0 && loadLittle<std::uint64_t>(h + field) >= restAt) {
            addTo<std::uint64_t>(h + field, restAt_ - restAt);
        }
    };
    const auto minor = static_cast<unsigned char>(h[LasField::kMinorVersion]);
    if (minor >= 3) {
        move(LasField::kWaveStart);
    }
    if (minor >= 4) {
        move(LasField::kExtendedStart);
    }
}

}  // namespace Ovr::Formats
