// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include "stance/CorvinStancePointSet.h"

namespace Vardex {
namespace {

using Set = CorvinStancePointSet;
using Item = Hx::SelectItem;
using Pair = Tq_1_1::SVec2d<int>;

constexpr int kRows = 3;
constexpr int kCols = 4;
constexpr std::uint64_t kCells = 12;
constexpr Item kInvalid{~std::uint64_t{0}, 0, 0, 0};
constexpr Set::Normal kNormal{0x1234};
constexpr Set::Color kRed{{200, 10, 60, 1}};

/// A sized set whose record i has x = i, the normal i + 1, red = i and the reflection 100 + i.
class PointSetAccessTest : public testing::Test {
  protected:
    PointSetAccessTest() {
        EXPECT_TRUE(set.resizePointStorage(kRows, kCols, true, true));
        set.setValidData(true);
        for (std::uint64_t i = 0; i < kCells; ++i) {
            Set::ScanPt point;
            point.setPosition({static_cast<float>(i), 0.0F, 0.0F});
            point.normal.packed = static_cast<std::uint16_t>(i + 1);
            point.color = {{static_cast<unsigned char>(i), 0, 0, 1}};
            set.setScanPt(i, point);
            set.setReflection(Item{i, 0, 0, 0}, static_cast<unsigned short>(100 + i));
        }
    }

    Set set{L"scan"};
};

TEST_F(PointSetAccessTest, EveryFormOfReadingReachesTheSameRecord) {
    for (std::uint64_t index = 0; index < kCells; ++index) {
        const int row = static_cast<int>(index) / kCols;
        const int col = static_cast<int>(index) % kCols;
        const Item item{index, row, col, 0};
        EXPECT_EQ(set.getSelectItem(Pair(col, row)), item);
        EXPECT_EQ(set.getSelectItem(row, col), item);
        EXPECT_EQ(set.makeSelectItem(row, col), item);
        Item written;
        set.getSelectItem(row, col, written);
        EXPECT_EQ(written, item);
        EXPECT_EQ(set.getSelectItem(index), (Item{index, 0, 0, 0}));
        EXPECT_EQ(set.getRowCol(set.getSelectItem(index)), Pair(row, col));
        EXPECT_EQ(set.getRowCol(item), Pair(row, col));
        EXPECT_EQ(set.getColRow(item), Pair(col, row));
        EXPECT_EQ(set.getColRow(index), Pair(col, row));

        const auto x = static_cast<float>(index);
        EXPECT_EQ(set.getScanPt(Pair(col, row)).position().x, x);
        EXPECT_EQ(set.getScanPt(row, col).position().x, x);
        EXPECT_EQ(set.getScanPt(index).position().x, x);
        EXPECT_EQ(set.getScanPt(item).position().x, x);
        Set::ScanPt copy;
        set.getScanPt(item, copy);
        EXPECT_EQ(copy.position().x, x);
        EXPECT_EQ(set.getDistance(item), static_cast<double>(x));
        for (const auto& c : {set.getColor(row, col), set.getColor(index), set.getColor(item)}) {
            EXPECT_EQ(c[0], index);
        }
        for (const auto& n : {set.getNormal(row, col), set.getNormal(index), set.getNormal(item)}) {
            EXPECT_EQ(n.packed, index + 1);
        }
        for (const std::uint64_t r :
             {set.getReflection(row, col), set.getReflection(index), set.getReflection(item)}) {
            EXPECT_EQ(r, 100 + index);
        }
    }
}

TEST_F(PointSetAccessTest, EveryFormOfWritingReachesOnlyItsRecord) {
    struct Form {
        const char* name;
        void (*write)(Set&, int row, int col, const Item& item);
    };
    static Set::ScanPt point;
    point.setPosition({0.0F, 5.0F, 0.0F});
    const Form forms[] = {
        {"point by pair",
         [](Set& s, int r, int c, const Item&) { s.setScanPt(Pair(c, r), point); }},
        {"point by unsigned pair",
         [](Set& s, int, int, const Item&) { s.setScanPt(Tq_1_1::SVec2d<unsigned>(2, 1), point); }},
        {"point by cell", [](Set& s, int r, int c, const Item&) { s.setScanPt(r, c, point); }},
        {"point by index", [](Set& s, int, int, const Item& i) { s.setScanPt(i.index, point); }},
        {"point by item", [](Set& s, int, int, const Item& i) { s.setScanPt(i, point); }},
        {"distance by item", [](Set& s, int, int, const Item& i) { s.setDistance(i, 5.0); }},
        {"colour by cell", [](Set& s, int r, int c, const Item&) { s.setColor(r, c, kRed); }},
        {"colour by index", [](Set& s, int, int, const Item& i) { s.setColor(i.index, kRed); }},
        {"colour by item", [](Set& s, int, int, const Item& i) { s.setColor(i, kRed); }},
        {"reflection by cell", [](Set& s, int r, int c, const Item&) { s.setReflection(r, c, 9); }},
        {"reflection by item", [](Set& s, int, int, const Item& i) { s.setReflection(i, 9); }},
        {"normal by cell", [](Set& s, int r, int c, const Item&) { s.setNormal(r, c, kNormal); }},
        {"normal by index", [](Set& s, int, int, const Item& i) { s.setNormal(i.index, kNormal); }},
        {"normal by item", [](Set& s, int, int, const Item& i) { s.setNormal(i, kNormal); }},
    };
    for (const Form& form : forms) {
        set.resizePointStorage(0, 0, true, true);
        set.resizePointStorage(kRows, kCols, true, true);
        form.write(set, 1, 2, Item{6, 1, 2, 0});
        for (std::uint64_t i = 0; i < kCells; ++i) {
            const Item item{i, 0, 0, 0};
            const bool written = set.getDistance(item) == 5.0 || set.getColor(item) == kRed ||
                                 set.getReflection(item) == 9 || set.getNormal(item) == kNormal;
            EXPECT_EQ(written, i == 6) << form.name << ", record " << i;
        }
    }
}

/// Reads and writes at a place where no record is reachable by the tested forms.
void expectNothingAt(Set& set, const std::string& place, int row, int col, std::uint64_t index) {
    SCOPED_TRACE(place);
    EXPECT_EQ(set.getSelectItem(row, col), kInvalid);
    EXPECT_EQ(set.getSelectItem(Pair(col, row)), kInvalid);
    EXPECT_EQ(set.getSelectItem(index), kInvalid);
    EXPECT_EQ(set.getColor(row, col), Set::Color());
    EXPECT_EQ(set.getColor(index), Set::Color());
    EXPECT_EQ(set.getReflection(row, col), 0);
    EXPECT_EQ(set.getReflection(index), 0);
    EXPECT_FALSE(set.getNormal(row, col).isSet());
    EXPECT_FALSE(set.getNormal(index).isSet());
    set.setNormal(row, col, kNormal);
    set.setNormal(index, kNormal);
    set.setColor(index, kRed);
}

TEST_F(PointSetAccessTest, GuardedAndIndexFormsStayInsideTheGridOfValidData) {
    EXPECT_EQ(set.getNumPoints(), 12U);
    expectNothingAt(set, "row above", -1, 0, 12);
    expectNothingAt(set, "row below", kRows, 0, 13);
    expectNothingAt(set, "column before", 1, -1, ~std::uint64_t{0});
    expectNothingAt(set, "column after", 1, kCols, std::uint64_t{1} << 32);
    set.setValidData(false);
    EXPECT_EQ(set.getNumPoints(), 0U);
    expectNothingAt(set, "data not valid", 1, 2, 6);
    for (std::uint64_t i = 0; i < kCells; ++i) {
        const Item item{i, 0, 0, 0};
        EXPECT_EQ(set.getReflection(item), 100 + i);
        EXPECT_EQ(set.getNormal(item).packed, i + 1);
        EXPECT_EQ(set.getColor(item)[0], i);
        EXPECT_EQ(set.getScanPt(item).position().x, static_cast<float>(i)) << "not guarded";
    }
}

TEST_F(PointSetAccessTest, ItemsOutsideTheRecordsReadAsNothingAndTakeNothing) {
    for (const Item& item : {kInvalid, Item{12, 3, 0, 0}, Item{std::uint64_t{1} << 40, 0, 0, 0}}) {
        SCOPED_TRACE(item.index);
        EXPECT_EQ(&set.getScanPt(item), &Set::ScanPt::nullReference);
        EXPECT_EQ(&set.getScanPt(item.index), &Set::ScanPt::nullReference);
        Set::ScanPt copy = set.getScanPt(0, 1);
        set.getScanPt(item, copy);
        EXPECT_EQ(copy.position().x, 0.0F);
        set.setScanPt(item, set.getScanPt(0, 1));
        set.setDistance(item, 2.0);
        set.setColor(item, kRed);
        set.setReflection(item, 5);
        set.setNormal(item, kNormal);
        EXPECT_EQ(set.getColor(item), Set::Color());
        EXPECT_EQ(set.getReflection(item), 0);
        EXPECT_FALSE(set.getNormal(item).isSet());
        EXPECT_EQ(set.getDistance(item), item.isValid() ? 0.0 : -1.0);
    }
    EXPECT_EQ(&set.getScanPt(kRows, 0), &Set::ScanPt::nullReference);
    EXPECT_EQ(&set.getScanPt(Pair(0, -1)), &Set::ScanPt::nullReference);
    EXPECT_EQ(Set::ScanPt::nullReference.position().x, 0.0F);
}

TEST_F(PointSetAccessTest, ResizingKeepsDataOnlyOfTheSameSizeAndLayout) {
    EXPECT_FALSE(set.resize(-1, kCols));
    EXPECT_FALSE(set.resize(1 << 16, 1 << 15));
    EXPECT_EQ(set.getNumPoints(), kCells) << "nothing has changed";
    EXPECT_TRUE(set.resize(kRows, kCols));
    EXPECT_FALSE(set.hasValidData()) << "the reflection is gone";
    EXPECT_EQ(set.getRecordLayout(), PointRecordLayout::Plain);
    set.setValidData(true);
    EXPECT_TRUE(set.resize(kRows, kCols));
    EXPECT_TRUE(set.hasValidData());
    EXPECT_TRUE(set.resize(kCols, kRows));
    EXPECT_FALSE(set.hasValidData());
    EXPECT_EQ(set.getSize(), Pair(kRows, kCols));
}

TEST_F(PointSetAccessTest, SizingWithoutAllocationTakesTheSizeAndDropsTheRecords) {
    for (const bool separate : {false, true}) {
        EXPECT_TRUE(set.resizePointStorage(2, 5, false, separate));
        EXPECT_EQ(set.getSize(), Pair(5, 2));
        EXPECT_EQ(set.hasSeparateReflection(), separate);
    }
    EXPECT_EQ(&set.getScanPt(0, 0), &Set::ScanPt::nullReference);
}

}  // namespace
}  // namespace Vardex
