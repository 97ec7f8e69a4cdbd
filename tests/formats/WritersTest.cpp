// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <filesystem>
#include <string>
#include <vector>

#include "kit/AtomicFile.h"
#include "las/LasWriter.h"
#include "support/ExpectError.h"
#include "support/LasBytes.h"
#include "support/LoadedScan.h"
#include "support/TempFolder.h"

namespace {

using Ovr::Formats::AtomicFile;
using Ovr::Formats::Existing;
using Ovr::Formats::LasPoint;
using Ovr::Formats::LasWriter;
using enum Ovr::Interfaces::ErrorCode;
using Support::expectError;
using Support::TempFolder;

TEST(AtomicFile, AppearsWholeOrNotAtAll) {
    const TempFolder folder;
    const auto target = folder.write("out.txt", "old");
    std::filesystem::permissions(
        target, std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    {
        AtomicFile dropped;
        ASSERT_FALSE(dropped.open(target, Existing::Replace));
        dropped.stream() << "half";
    }
    EXPECT_EQ(TempFolder::read(target), "old");
    AtomicFile file;
    ASSERT_FALSE(file.open(target, Existing::Replace));
    file.stream() << "new" << std::flush;
    EXPECT_EQ(TempFolder::read(target), "old");
    ASSERT_FALSE(file.commit());
    EXPECT_EQ(TempFolder::read(target), "new");
    EXPECT_EQ(folder.entries(), 1);
    EXPECT_EQ(std::filesystem::status(target).permissions(),
              std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
}

TEST(AtomicFile, RefusesWhatItCannotReplace) {
    const TempFolder folder;
    const auto link = folder.path() / "link";
    std::filesystem::create_symlink(folder.write("real", "old"), link);
    AtomicFile through;
    ASSERT_FALSE(through.open(link, Existing::Replace));
    through.stream() << "new";
    ASSERT_FALSE(through.commit());
    EXPECT_TRUE(std::filesystem::is_symlink(link));
    EXPECT_EQ(TempFolder::read(folder.path() / "real"), "new");

    EXPECT_EQ(AtomicFile().open(folder.path(), Existing::Replace)->code(), IsDirectory);
    EXPECT_EQ(AtomicFile().open("/dev/null", Existing::Replace)->code(), WriteFailed);
    expectError(AtomicFile().open(folder.path() / "none" / "out.txt", Existing::Keep), WriteFailed,
                "none/out.txt: found a file that cannot be created");

    AtomicFile failing;
    ASSERT_FALSE(failing.open(folder.path() / "lost", Existing::Keep));
    failing.stream().setstate(std::ios::badbit);
    EXPECT_EQ(failing.commit()->code(), WriteFailed);

    const auto kept = folder.write("kept", "old");
    expectError(AtomicFile().open(kept, Existing::Keep), WriteFailed, "found a file of that name");
    AtomicFile late;
    ASSERT_FALSE(late.open(folder.path() / "late", Existing::Keep));
    folder.write("late", "another's");
    expectError(late.commit(), WriteFailed, "late: found a file of that name");
    EXPECT_EQ(TempFolder::read(folder.path() / "late"), "another's");
    EXPECT_EQ(folder.entries(), 4);
}

TEST(LasWriter, WritesWhatTheReaderReads) {
    for (const std::uint64_t announced : {std::uint64_t{3}, std::uint64_t{1} << 32U}) {
        for (const bool colored : {false, true}) {
            SCOPED_TRACE(std::to_string(announced) + (colored ? " colored" : ""));
            const TempFolder folder;
            const auto file = folder.path() / "out.las";
            LasWriter writer;
            const Ovr::Formats::LasWriterSettings settings{
                announced, colored, {0.001, 0.001, 0.001}, {431000.0, 0.0, 0.0}, true,
                "SLAM-1",  "Walker"};
            ASSERT_FALSE(writer.open(file, settings));
            const std::vector<LasPoint> points = {
                {{431002.125, -2.5, 0.25}, 7, {Ovr::Formats::wideChannel(200), 0, 65535}, 5.0e7},
                {{431001.125, 2.5, 0.0004}, 65535, {}, 5.0e7 + 1.5},
                {{431003.125, 0.0, 0.0006}, 0, {}, 5.0e7 + 0.5}};
            for (const LasPoint& point : points) {
                ASSERT_FALSE(writer.write(point));
            }
            EXPECT_FALSE(std::filesystem::exists(file));
            ASSERT_FALSE(writer.finish());
            EXPECT_EQ(folder.entries(), 1);

            Ovr::ScanSource source;
            source.file = file;
            source.project = std::make_shared<Ovr::ScanProject>();
            Support::MobileScan scan(source);
            ASSERT_FALSE(scan.loadPoints());
            ASSERT_FALSE(scan.loadTimes());
            ASSERT_EQ(scan.memory.cols, 3);
            // The middle of the bounds decides: x 431002.125, y 0.
            EXPECT_EQ(source.project->origin(), (Tq_1_1::Vec3d<double>(431000.0, 0.0, 0.0)));
            EXPECT_EQ(scan.memory.at(0, 0).point.position(),
                      (Tq_1_1::Vec3d<float>(2.125F, -2.5F, 0.25F)));
            EXPECT_EQ(scan.memory.at(0, 2).point.z, 0.001F);
            EXPECT_EQ(scan.memory.at(0, 1).point.z, 0.0F);
            EXPECT_EQ(scan.memory.separateReflection, colored);
            EXPECT_EQ(scan.memory.at(0, 0).point.color,
                      (colored ? Tq_1_1::Color4d<unsigned char>{{200, 0, 255, 1}}
                               : Tq_1_1::Color4d<unsigned char>{{7, 0, 0, 0}}));
            EXPECT_EQ(scan.times->times, (std::vector<std::uint64_t>{0, 1500000, 500000}));
            EXPECT_EQ(scan.metaData().ScannerModel(), "SLAM-1");
            EXPECT_NE(scan.metaData().RecordingTime(), 0);
            const std::string bytes = TempFolder::read(file);
            EXPECT_EQ(bytes[25], announced == 3 ? 2 : 4);
            EXPECT_EQ(announced == 3 ? bytes[227 + 14] : bytes[375 + 14], announced == 3 ? 9 : 17);
            EXPECT_EQ(Support::peek<double>(bytes, 179), 431003.125) << "largest x";
            EXPECT_EQ(Support::peek<double>(bytes, 187), 431001.125) << "smallest x";
            EXPECT_EQ(Support::peek<double>(bytes, 195), 2.5) << "largest y";
            EXPECT_EQ(bytes[announced == 3 ? 111 : 255], 3) << "points that are first returns";
            EXPECT_EQ(scan.warnings(), "");
            EXPECT_EQ(scan.data.getNotes().size(), 1U);
        }
    }
}

TEST(LasWriter, LeavesNothingWhenAPointDoesNotFit) {
    const TempFolder folder;
    {
        LasWriter writer;
        ASSERT_FALSE(writer.open(folder.path() / "out.las", {}));
        EXPECT_FALSE(writer.write({{214748.3647, 0, 0}, 0, {}, 0}));
        for (const double x : {214748.3649, -214748.3650, std::nan("")}) {
            expectError(writer.write({{x, 0, 0}, 0, {}, 0}), InvalidValue,
                        "out.las: point 1: found the coordinate");
        }
    }
    EXPECT_EQ(folder.entries(), 0);
}

}  // namespace
