// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

#include "Program.h"
#include "support/LasBytes.h"
#include "support/LazBytes.h"
#include "support/LazRecords.h"

namespace ScanHost::Tests {
namespace {

using Support::LasBytes;

constexpr double kNan = std::numeric_limits<double>::quiet_NaN();

/// The point records of a LAS file.
std::vector<std::string> recordsOf(const std::string& file) {
    const auto begin = Support::peek<std::uint32_t>(file, 96);
    const auto length = Support::peek<std::uint16_t>(file, 105);
    const bool wide = file[25] == 4;
    const std::uint64_t count =
        wide ? Support::peek<std::uint64_t>(file, 247) : Support::peek<std::uint32_t>(file, 107);
    std::vector<std::string> records;
    for (std::uint64_t i = 0; i < count; ++i) {
        records.push_back(file.substr(begin + i * length, length));
    }
    return records;
}

/// A file with everything that must not get lost: variable-length records, fields of every kind,
/// extra bytes, bytes after the points.
std::string fullFile(unsigned minor, unsigned format, const std::vector<double>& times) {
    LasBytes las;
    las.minor = minor;
    las.format = format;
    las.encoding = 0x1234 & 0xFFFE;
    las.extraBytes = 5;
    las.vlrCount = 1;
    las.vlrs = std::string(54, '\1') + "a record of 20 bytes";
    Support::poke(las.vlrs, 20, std::uint16_t{20});
    std::int32_t number = 0;
    for (const double time : times) {
        las.points.push_back(
            {{++number, -number, 7}, static_cast<std::uint16_t>(number), time, {}});
    }
    std::string file = las.bytes();
    const std::size_t length = las.recordLength();
    const std::size_t begin = file.size() - times.size() * length;
    for (std::size_t i = 0; i < times.size(); ++i) {
        file[begin + i * length + 15] = static_cast<char>('a' + i);  // of the class and its like
        file[begin + (i + 1) * length - 1] = static_cast<char>('A' + i);  // of the extra bytes
    }
    return file + "what follows the points";
}

TEST(Sort, ChangesTheOrderOfTheRecordsAndNothingElse) {
    const struct {
        const char* name;
        unsigned minor;
        unsigned format;
        std::vector<double> times;
        std::vector<int> order;  // numbers of the points, from 1 on
        bool warns = false;
    } cases[] = {
        {"LAS 1.2", 2, 3, {5.0, 3.0, 4.0}, {2, 3, 1}},
        {"LAS 1.4", 4, 10, {5.0, 3.0, 4.0}, {2, 3, 1}},
        {"points of one time", 2, 1, {7.0, 3.0, 7.0, 3.0, 7.0}, {2, 4, 1, 3, 5}},
        {"within a microsecond", 2, 1, {1.0000004, 1.0000002, 1.0}, {1, 2, 3}},
        {"times that are none", 2, 1, {kNan, 2.0, -kNan, 1.0}, {4, 2, 1, 3}, true},
        {"longer than the module holds",
         2,
         1,
         {9000.0, 1.0, 4294.5, 0.0, 8999.0, 4295.5},
         {4, 2, 3, 6, 5, 1}},
        {"a day of week seconds and none", 2, 1, {604799.5, 0.0, 300000.0}, {2, 3, 1}},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        const Folder folder;
        const std::string before = fullFile(c.minor, c.format, c.times);
        const std::string walk = folder.write("walk.las", before);
        folder.write("walk.txt", "0 0 0 0 0 0 0 1\n1 nonsense\n");  // no business of the sort
        const Outcome sorted = run({"sort", walk, "-o", folder.file("out.las")});
        ASSERT_EQ(sorted.exitCode, 0) << sorted.err;
        EXPECT_EQ(sorted.err.empty(), !c.warns) << sorted.err;
        const std::string after = readFile(folder.file("out.las"));
        const std::vector<std::string> old = recordsOf(before);
        std::string expected = before;
        std::size_t place = Support::peek<std::uint32_t>(before, 96);
        for (const int number : c.order) {
            const std::string& record = old[static_cast<std::size_t>(number - 1)];
            expected.replace(place, record.size(), record);
            place += record.size();
        }
        EXPECT_EQ(after, expected);
    }
}

TEST(Sort, KeepsARecordAfterThePointsThatIsNamedLikeTheCompression) {
    Support::LazBytes packed(6, Support::pseudoRandomRecords(20, 30, 22, 0, true));
    packed.extended = std::string(60, '\0') + "after";
    packed.extended.replace(2, 14, "laszip encoded");
    Support::poke(packed.extended, 18, std::uint16_t{22204});
    Support::poke(packed.extended, 20, std::uint64_t{5});
    const Folder folder;
    const std::string walk = folder.write("walk.laz", packed.bytes());
    for (const char* name : {"out.las", "out.laz"}) {
        SCOPED_TRACE(name);
        const Outcome sorted = run({"sort", walk, "-o", folder.file(name)});
        ASSERT_EQ(sorted.exitCode, 0) << sorted.err;
        const std::string after = readFile(folder.file(name));
        const bool isPlain = name == std::string("out.las");
        EXPECT_EQ(Support::peek<std::uint32_t>(after, 100), isPlain ? 0U : 1U);
        EXPECT_EQ(after.substr(Support::peek<std::uint64_t>(after, 235)), packed.extended);
    }
}

TEST(Sort, BringsManyPointsIntoOrder) {
    constexpr std::size_t kCount = 400'000;  // with 228 bytes each, more than is written at once
    const Folder folder;
    LasBytes las;
    las.extraBytes = 200;
    std::uint32_t random = 1;
    for (std::size_t i = 0; i < kCount; ++i) {
        random = random * 1664525U + 1013904223U;
        las.points.push_back({{static_cast<std::int32_t>(i), 0, 0}, 0, (random >> 12) * 1e-3, {}});
    }
    std::vector<std::string> expected =
        recordsOf(folder.read(folder.write("walk.las", las.bytes())));
    const auto timeOf = [](const std::string& record) { return Support::peek<double>(record, 20); };
    std::stable_sort(expected.begin(), expected.end(),
                     [&](const auto& a, const auto& b) { return timeOf(a) < timeOf(b); });
    ASSERT_EQ(run({"sort", folder.file("walk.las"), "-o", folder.file("out.las")}).exitCode, 0);
    EXPECT_TRUE(recordsOf(readFile(folder.file("out.las"))) == expected);
}

}  // namespace
}  // namespace ScanHost::Tests
