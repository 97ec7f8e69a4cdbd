// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "pointset/core/PointRecordStore.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <iterator>
#include <new>
#include <stdexcept>
#include <string>

namespace Vardex {
namespace {

ScanPoint makePoint(float x, unsigned char red, unsigned char flags) {
    ScanPoint point;
    point.setPosition({x, -2.0F, 0.5F});
    point.normal.packed = 0x1234;
    point.color = {{red, 200, 60, flags}};
    return point;
}

using enum PointRecordLayout;
constexpr PointRecordLayout kLayouts[] = {Plain, WithReflection, WithTime, WithReflectionAndTime};

/// The bytes of a record as docs/point-records.md tells them.
TEST(PointRecord, FieldsFollowTheScanPointInOrder) {
    ReflectionTimeRecord record;
    record.point = makePoint(7.0F, 10, 1);
    record.reflection = 0x0201;
    record.time = 0x06050403;
    unsigned char bytes[sizeof record];
    std::memcpy(bytes, &record, sizeof record);
    for (unsigned i = 0; i < 6; ++i) {
        EXPECT_EQ(bytes[18 + i], i + 1);
    }
    unsigned char point[sizeof record.point];
    std::memcpy(point, &record.point, sizeof point);
    EXPECT_TRUE(std::equal(std::begin(point), std::end(point), bytes));
}

TEST(PointRecordStore, EverySizingLeavesMemoryForExactlyTheRecordsOfOneLayout) {
    struct Step {
        const char* name;
        std::uint32_t rows, cols;
        PointRecordLayout layout;
        std::size_t size, bytes;
    };
    PointRecordStore store;
    for (const Step& step : {
             Step{"first", 3, 4, Plain, 12, 216},
             Step{"grow by a little", 13, 1, Plain, 13, 234},
             Step{"shrink", 5, 1, Plain, 5, 90},
             Step{"reflection", 3, 4, WithReflection, 12, 240},
             Step{"time", 3, 4, WithTime, 12, 264},
             Step{"both", 3, 4, WithReflectionAndTime, 12, 288},
             Step{"empty, layout kept", 0, 0, WithReflectionAndTime, 0, 0},
             Step{"no layout", 3, 4, None, 0, 0},
             Step{"product wraps to 0", 65536, 65536, Plain, 0, 0},
             Step{"product wraps to 65536", 65537, 65536, Plain, 65536, 1179648},
         }) {
        EXPECT_TRUE(store.resetRecords(step.rows, step.cols, step.layout)) << step.name;
        EXPECT_EQ(store.layout(), step.layout) << step.name;
        EXPECT_EQ(store.rows(), step.rows) << step.name;
        EXPECT_EQ(store.cols(), step.cols) << step.name;
        EXPECT_EQ(store.size(), step.size) << step.name;
        EXPECT_EQ(store.bytesHeld(), step.bytes) << step.name;
    }
}

/// During its life the host has another null point.
class OtherNullPoint {
  public:
    explicit OtherNullPoint(const ScanPoint& point) : previous_(ScanPoint::nullReference) {
        Tq_1_1::setNullPoint(point);
    }
    OtherNullPoint(const OtherNullPoint&) = delete;
    OtherNullPoint& operator=(const OtherNullPoint&) = delete;
    ~OtherNullPoint() { Tq_1_1::setNullPoint(previous_); }

  private:
    ScanPoint previous_;
};

void expectSamePoint(const ScanPoint& actual, const ScanPoint& expected) {
    EXPECT_EQ(actual.position(), expected.position());
    EXPECT_EQ(actual.normal.packed, expected.normal.packed);
    EXPECT_EQ(actual.color, expected.color);
}

TEST(PointRecordStore, SizingInOneLayoutKeepsRecordsAndAddsNullOnes) {
    for (const ScanPoint& null : {ScanPoint{}, makePoint(3.0F, 77, 0)}) {
        const OtherNullPoint change(null);
        for (const PointRecordLayout layout : kLayouts) {
            SCOPED_TRACE(static_cast<int>(layout));
            PointRecordStore store;
            store.resetRecords(2, 2, layout);
            store.setPointAt(1, makePoint(7.0F, 10, 0));
            store.setPointAt(3, makePoint(9.0F, 10, 0));
            store.resetRecords(1, 2, layout);
            store.resetRecords(2, 2, layout);

            EXPECT_EQ(store.pointAt(1).position().x, 7.0F);
            const bool timed = layout == WithTime || layout == WithReflectionAndTime;
            expectSamePoint(store.pointAt(3), timed ? ScanPoint{} : null);
            EXPECT_EQ(RecordLayouts::has<ReflectionField>(layout) ? store.reflectionAt(3) : 0, 0);

            store.resetRecords(2, 2, None);
            EXPECT_EQ(&store.pointAt(1), &ScanPoint::nullReference);
        }
    }
}

TEST(PointRecordStore, WritingAPointClearsWhatBelongedToTheOldMeasurement) {
    PointRecordStore store;
    store.resetRecords(1, 2, WithReflectionAndTime);
    store.records<ReflectionTimeRecord>()[1].time = 4'294'967'295U;
    store.setReflectionAt(1, 1234);
    store.setPointAt(1, makePoint(7.0F, 10, 1));

    const ReflectionTimeRecord record = store.records<ReflectionTimeRecord>()[1];
    EXPECT_EQ(record.point.position().y, -2.0F);
    EXPECT_EQ(record.point.normal.packed, 0x1234);
    EXPECT_EQ(record.point.color[1], 200);
    EXPECT_EQ(record.reflection, 0);
    EXPECT_EQ(record.time + 0U, 0U);
}

TEST(PointRecordStore, ReflectionAndColourExcludeEachOtherOnlyWhereTheyShareBytes) {
    for (const PointRecordLayout layout : kLayouts) {
        SCOPED_TRACE(static_cast<int>(layout));
        const bool separate = RecordLayouts::has<ReflectionField>(layout);
        PointRecordStore store;
        store.resetRecords(1, 1, layout);
        store.setPointAt(0, makePoint(7.0F, 10, 1));
        EXPECT_EQ(store.reflectionAt(0), separate ? 0 : 1680);

        store.setReflectionAt(0, 1234);
        EXPECT_EQ(store.reflectionAt(0), 1234);
        const Tq_1_1::Color4d<unsigned char> kept{{10, 200, 60, 1}};
        const Tq_1_1::Color4d<unsigned char> replaced{{0xD2, 0x04, 0, 0}};
        EXPECT_EQ(store.pointAt(0).color, separate ? kept : replaced);
        EXPECT_EQ(store.pointAt(0).position().x, 7.0F);
    }
}

/// Points are numbered from 0 on, in x and in the reflection.
void expectNumbers(const PointRecordStore& store, std::size_t count) {
    for (std::size_t i = 0; i < count; ++i) {
        ASSERT_EQ(store.pointAt(i).position().x, static_cast<float>(i));
        ASSERT_EQ(store.reflectionAt(i), static_cast<std::uint16_t>(i));
    }
}

PointRecordStore numberedPoints(std::uint32_t count, PointRecordLayout layout) {
    PointRecordStore store;
    store.resetRecords(1, count, layout);
    for (std::uint32_t i = 0; i < count; ++i) {
        store.setPointAt(i, makePoint(static_cast<float>(i), 10, 0));
        store.setReflectionAt(i, static_cast<std::uint16_t>(i));
    }
    return store;
}

/// Large blocks of memory move otherwise than small ones.
TEST(PointRecordStore, KeepsEveryRecordOfSmallAndLargeScans) {
    for (const std::uint32_t count : {7U, 100000U}) {
        for (const PointRecordLayout layout : kLayouts) {
            SCOPED_TRACE(std::to_string(count) + " in " + std::string(layoutName(layout)));
            PointRecordStore store = numberedPoints(count, layout);
            store.addTimes();
            ASSERT_EQ(store.layout(), RecordLayouts::timed(layout));
            EXPECT_EQ(store.bytesHeld(), count * RecordLayouts::recordSize(store.layout()));
            expectNumbers(store, count);
            std::uint32_t kept = count;
            for (const std::uint32_t size : {2 * count, count - 2, 5U, 3 * count}) {
                store.resetRecords(size, 1, store.layout());
                kept = std::min(kept, size);
                expectNumbers(store, kept);
            }
            expectSamePoint(store.pointAt(3 * count - 1), ScanPoint{});
        }
    }
}

TEST(PointRecordStore, IsUnchangedWhenThereIsNoMemoryForTheTimes) {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "sanitizers need the address space";
#endif
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    const auto addTimesAndExit = [] {
        PointRecordStore store = numberedPoints(4'000'000, Plain);
        std::size_t pages = 0;
        std::ifstream("/proc/self/statm") >> pages;
        const rlimit limit{pages * static_cast<rlim_t>(getpagesize()) + 8'000'000, RLIM_INFINITY};
        ASSERT_EQ(setrlimit(RLIMIT_AS, &limit), 0);
        EXPECT_THROW(store.addTimes(), std::bad_alloc);
        EXPECT_EQ(store.layout(), Plain);
        expectNumbers(store, store.size());
        std::_Exit(testing::Test::HasFailure() || store.size() != 4'000'000 ? 1 : 0);
    };
    EXPECT_EXIT(addTimesAndExit(), testing::ExitedWithCode(0), "");
}

TEST(PointRecordStore, AnImpossibleSizingThrowsAndChangesNothing) {
    PointRecordStore store;
    store.resetRecords(10, 10, Plain);
    store.setPointAt(99, makePoint(7.0F, 10, 1));
    EXPECT_THROW(store.resetRecords(65536, 32768, WithTime), std::length_error);
    EXPECT_EQ(store.layout(), Plain);
    EXPECT_EQ(store.rows(), 10U);
    EXPECT_EQ(store.pointAt(99).position().x, 7.0F);
    EXPECT_EQ(&store.pointAt(100), &ScanPoint::nullReference);
}

}  // namespace
}  // namespace Vardex
