// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

// Writes small right files as a beginning for the fuzzers: fuzz_seeds FOLDER.

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <string>

#include "support/LasBytes.h"
#include "support/LazBytes.h"
#include "support/LazRecords.h"

namespace {

namespace fs = std::filesystem;

void put(const fs::path& folder, const std::string& name, const std::string& bytes) {
    fs::create_directories(folder);
    std::ofstream(folder / name, std::ios::binary) << bytes;
}

void putLas(const fs::path& folder) {
    for (unsigned format = 0; format <= 10; ++format) {
        Support::LasBytes las;
        las.format = format;
        las.minor = format > 5 ? 4 : format % 4;
        las.vlrCount = 1;
        las.vlrs = std::string(54, '\0');
        las.points = {{{1, 2, 3}, 4, 5.5, {6, 7, 8}}, {{9, 8, 7}, 6, 5.75, {400, 3, 2}}};
        put(folder, "format" + std::to_string(format), las.bytes());
    }
}

/// Compressed files for the reader, and chunks for the decoder alone.
void putLaz(const fs::path& files, const fs::path& chunks) {
    for (unsigned format = 0; format <= 10; ++format) {
        const std::size_t length = Support::LasBytes::kLength[format];
        const std::string name = "format" + std::to_string(format);
        Support::LazBytes laz(
            format, Support::pseudoRandomRecords(20, length, Support::LasBytes::kTimeAt[format],
                                                 Support::LasBytes::kColorAt[format], true));
        laz.schema.chunkSize = 8;
        put(files, name + ".laz", laz.bytes());
        laz.table = Support::LazBytes::Table::Missing;
        put(files, name + "-no-table.laz", laz.bytes());
        for (const int version : {1, 2, 3, 4}) {
            const std::size_t extra = version == 2 ? 0 : 1;
            auto schema = Ovr::Formats::Laz::schemaFor(format, length + extra);
            for (auto& item : schema.items) {
                const auto known = Ovr::Formats::Laz::versionsOf(item.type);
                item.version = std::clamp<std::uint16_t>(static_cast<std::uint16_t>(version),
                                                         known.first, known.last);
            }
            const std::string head{static_cast<char>(format), static_cast<char>(version),
                                   static_cast<char>(extra)};
            const std::string records =
                Support::pseudoRandomRecords(60, length + extra, Support::LasBytes::kTimeAt[format],
                                             Support::LasBytes::kColorAt[format], true);
            put(chunks, name + "-" + std::to_string(version),
                head + Ovr::Formats::Laz::encodeChunk(schema, records));
        }
    }
}

void putPtx(const fs::path& folder) {
    const std::string frame = "1 2 3\n1 0 0\n0 1 0\n0 0 1\n1 0 0 0\n0 1 0 0\n0 0 1 0\n1 2 3 1\n";
    const std::string plain = "1\n2\n" + frame + "1 2 3 0.5\n0 0 0 0.5\n";
    put(folder, "plain", plain);
    put(folder, "two", plain + "2\n1\n" + frame + "1 2 3 0.5 1 2 3\n4 5 6 1 4 5 6\n");
    put(folder, "normals", "1\r\n1\r\n" + frame + "1 2 3 0.5 1 2 3 0 0 1");
}

void putTrajectories(const fs::path& folder) {
    put(folder, "tum", "# time\n1.5 1 2 3 0 0 0 1\n2.5 1 2 3 0.5 0.5 0.5 0.5\n9e9 1 2 3 0 0 1 0\n");
    put(folder, "export", "//world_time x y z\n1 2 3 4 1 0 0 0 0 0 0 0 0 1 0 0 0\n");
}

void putProjects(const fs::path& folder) {
    const std::string stance = R"("kind": "stance", "name": "A", "points": "a.ptx", "index": 1)";
    put(folder, "stance",
        R"({"version": 1, "scans": [{)" + stance +
            R"(, "slamPose": [0,1,0,0,-1,0,0,0,0,0,1,0,1.5,2,-3e0,1]}]})");
    put(folder, "mobile",
        R"({"version": 1, "scans": [{"kind": "mobile", "name": "B", "points": "a.las",)"
        R"( "trajectory": "t.txt", "clock": {"unit": "us", "offset": -0.5}}]})");
    put(folder, "scanner",
        R"({"version": 1, "scans": [{)" + stance +
            R"(, "scannerModel": "m", "serialNumber": "s", "firmware": "f", "software": "ä",)"
            R"( "vendor": "v", "recordingTime": 1.7e9, "new": [null, true, {}],)"
            R"( "sessionId": "01234567-89ab-cdef-0123-456789abcdef"}]})");
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        return 2;
    }
    const fs::path folder = argv[1];
    putLas(folder / "las");
    putLaz(folder / "las", folder / "laz_chunk");
    putProjects(folder / "project");
    putPtx(folder / "ptx");
    putTrajectories(folder / "trajectory");
    return 0;
}
