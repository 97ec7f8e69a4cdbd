// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

// Writes the point records of a LAS file, plain or compressed, to the standard output:
//
//   las_records FILE
//   las_records FILE --again    encodes each chunk again instead, in the file's own way, and says
//                               whether its bytes are the same

#include <algorithm>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "las/LasBlocks.h"
#include "las/laz/Chunk.h"

namespace {

using namespace Ovr::Formats;

/// @return false where a chunk differs from what the file has at @p place, which goes on
bool sameChunk(InputFile& file, const LasHeader& header, std::string_view records,
               std::uint64_t& place) {
    const std::string chunk = Laz::encodeChunk(header.compression->schema, records);
    std::vector<char> bytes(chunk.size());
    bytes.resize(file.readAt(place, bytes));
    place += chunk.size();
    return std::equal(chunk.begin(), chunk.end(), bytes.begin(), bytes.end());
}

/// @return number of chunks that differ
std::size_t compareAgain(InputFile& file, const LasHeader& header, const std::string& records) {
    const LasCompression& compression = *header.compression;
    const std::size_t length = header.recordLength;
    const auto& chunks = compression.list.chunks;
    std::uint64_t place = chunks.empty() ? 0 : chunks.front().begin;
    std::size_t differ = 0;
    for (const auto& chunk : chunks) {
        const std::string_view part(records);
        differ +=
            sameChunk(file, header, part.substr(chunk.first * length, chunk.count * length), place)
                ? 0U
                : 1U;
    }
    return differ;
}

int fail(const Ovr::ErrorPtr& error) {
    std::cerr << error->message() << '\n';
    return 1;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        return 2;
    }
    InputFile file;
    LasHeader header;
    Ovr::Remarks remarks;
    Ovr::ErrorPtr error = file.open(argv[1]);
    if (!error) {
        error = readLasHeader(file, header, remarks);
    }
    if (error) {
        return fail(error);
    }
    std::string records;
    const auto blocks = openLasBlocks(file, header, header.count);
    while (!blocks->atEnd()) {
        error = blocks->next();
        if (error) {
            return fail(error);
        }
        records.append(blocks->record(0), blocks->records() * header.recordLength);
    }
    if (argc == 2) {
        std::cout << records;
        return 0;
    }
    const std::size_t differ = header.compression ? compareAgain(file, header, records) : 0;
    if (differ != 0) {
        std::cerr << argv[1] << ": " << differ << " chunks come out with other bytes\n";
    }
    return differ == 0 ? 0 : 1;
}
