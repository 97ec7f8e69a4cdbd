// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "pointset/CorvinPointSet.h"
#include "pointset/core/GridAddress.h"
#include "pointset/core/ScanPointMath.h"

// The host visits millions of points through these operations. Each form turns its address into a
// flat index and goes to the record from there: a way through the item form costs a second virtual
// call per point, nearly twice the time.

namespace Vardex {

using GridAddress::flatIndex;
using Hx::SelectItem;

namespace {

// The host's pairs have two orders. Inside the module a cell says which number is its row.

GridCell cellOfPair(const CorvinPointSet::ColRow& colRow) {
    return {.row = colRow.second, .col = colRow.first};
}

CorvinPointSet::ColRow pairOf(const GridCell& cell) {
    return {cell.col, cell.row};
}

}  // namespace

// --- Addresses ---------------------------------------------------------------------------------

std::uint64_t CorvinPointSet::guardedIndex(int row, int col) const {
    if (!hasValidData() || !GridAddress::contains(rows_, cols_, {row, col})) [[unlikely]] {
        return SelectItem::INVALID_INDEX;
    }
    return flatIndex(cols_, {row, col});
}

std::uint64_t CorvinPointSet::boundedIndex(std::uint64_t index) const {
    return index < CorvinPointSet::getNumPoints() ? index : SelectItem::INVALID_INDEX;
}

std::uint64_t CorvinPointSet::getNumPoints() const {
    return hasValidData() ? GridAddress::indexCount(rows_, cols_) : 0;
}

SelectItem CorvinPointSet::getSelectItem(const ColRow& colRow) const {
    const GridCell cell = cellOfPair(colRow);
    return CorvinPointSet::getSelectItem(cell.row, cell.col);
}

SelectItem CorvinPointSet::getSelectItem(std::uint64_t index) const {
    return GridAddress::itemAt(boundedIndex(index));
}

SelectItem CorvinPointSet::getSelectItem(int row, int col) const {
    return hasValidData() && GridAddress::contains(rows_, cols_, {row, col})
               ? GridAddress::itemAt(cols_, {row, col})
               : GridAddress::kInvalidItem;
}

void CorvinPointSet::getSelectItem(int row, int col, SelectItem& out) const {
    out = GridAddress::itemAt(cols_, {row, col});
}

SelectItem CorvinPointSet::makeSelectItem(int row, int col) const {
    return GridAddress::itemAt(cols_, {row, col});
}

CorvinPointSet::ColRow CorvinPointSet::getColRow(const SelectItem& item) const {
    return pairOf(GridAddress::cellOf(cols_, item));
}

CorvinPointSet::ColRow CorvinPointSet::getColRow(std::uint64_t index) const {
    return pairOf(GridAddress::cellAt(cols_, index));
}

Tq_1_1::SVec2d<int> CorvinPointSet::getRowCol(const SelectItem& item) const {
    const GridCell cell = GridAddress::cellOf(cols_, item);
    return {cell.row, cell.col};
}

// --- Whole points ------------------------------------------------------------------------------

const CorvinPointSet::ScanPt& CorvinPointSet::getScanPt(const ColRow& colRow) const {
    return records_.pointAt(flatIndex(cols_, cellOfPair(colRow)));
}

const CorvinPointSet::ScanPt& CorvinPointSet::getScanPt(int row, int col) const {
    return records_.pointAt(flatIndex(cols_, {row, col}));
}

const CorvinPointSet::ScanPt& CorvinPointSet::getScanPt(std::uint64_t index) const {
    return records_.pointAt(index);
}

void CorvinPointSet::getScanPt(const SelectItem& item, ScanPt& out) const {
    out = records_.pointAt(item.index);
}

const CorvinPointSet::ScanPt& CorvinPointSet::getScanPt(const SelectItem& item) const {
    return records_.pointAt(item.index);
}

void CorvinPointSet::setScanPt(const ColRow& colRow, const ScanPt& point) {
    records_.setPointAt(flatIndex(cols_, cellOfPair(colRow)), point);
}

void CorvinPointSet::setScanPt(const Tq_1_1::SVec2d<unsigned int>& colRow, const ScanPt& point) {
    const ColRow pair(static_cast<int>(colRow.first), static_cast<int>(colRow.second));
    records_.setPointAt(flatIndex(cols_, cellOfPair(pair)), point);
}

void CorvinPointSet::setScanPt(int row, int col, const ScanPt& point) {
    records_.setPointAt(flatIndex(cols_, {row, col}), point);
}

void CorvinPointSet::setScanPt(std::uint64_t index, const ScanPt& point) {
    records_.setPointAt(index, point);
}

void CorvinPointSet::setScanPt(const SelectItem& item, const ScanPt& point) {
    records_.setPointAt(item.index, point);
}

double CorvinPointSet::getDistance(const SelectItem& item) const {
    return item.isValid() ? ScanPointMath::distanceOf(records_.pointAt(item.index)) : -1.0;
}

void CorvinPointSet::setDistance(const SelectItem& item, double distance) {
    records_.setPointAt(item.index,
                        ScanPointMath::atDistance(records_.pointAt(item.index), distance));
}

// --- Colour ------------------------------------------------------------------------------------

CorvinPointSet::Color CorvinPointSet::getColor(int row, int col) const {
    return records_.pointAt(guardedIndex(row, col)).color;
}

CorvinPointSet::Color CorvinPointSet::getColor(std::uint64_t index) const {
    return records_.pointAt(boundedIndex(index)).color;
}

CorvinPointSet::Color CorvinPointSet::getColor(const SelectItem& item) const {
    return records_.pointAt(item.index).color;
}

void CorvinPointSet::setColor(int row, int col, const Color& color) {
    records_.setColorAt(flatIndex(cols_, {row, col}), color);
}

void CorvinPointSet::setColor(std::uint64_t index, const Color& color) {
    records_.setColorAt(boundedIndex(index), color);
}

void CorvinPointSet::setColor(const SelectItem& item, const Color& color) {
    records_.setColorAt(item.index, color);
}

// --- Reflection --------------------------------------------------------------------------------

unsigned short CorvinPointSet::getReflection(int row, int col) const {
    return records_.reflectionAt(guardedIndex(row, col));
}

unsigned short CorvinPointSet::getReflection(std::uint64_t index) const {
    return records_.reflectionAt(boundedIndex(index));
}

unsigned short CorvinPointSet::getReflection(const SelectItem& item) const {
    return records_.reflectionAt(item.index);
}

void CorvinPointSet::setReflection(int row, int col, unsigned short reflection) {
    records_.setReflectionAt(flatIndex(cols_, {row, col}), reflection);
}

void CorvinPointSet::setReflection(const SelectItem& item, unsigned short reflection) {
    records_.setReflectionAt(item.index, reflection);
}

bool CorvinPointSet::hasSeparateReflection() const {
    return RecordLayouts::has<ReflectionField>(records_.layout());
}

// --- Normal ------------------------------------------------------------------------------------

CorvinPointSet::Normal CorvinPointSet::getNormal(int row, int col) const {
    return records_.pointAt(guardedIndex(row, col)).normal;
}

CorvinPointSet::Normal CorvinPointSet::getNormal(std::uint64_t index) const {
    return records_.pointAt(boundedIndex(index)).normal;
}

CorvinPointSet::Normal CorvinPointSet::getNormal(const SelectItem& item) const {
    return records_.pointAt(item.index).normal;
}

void CorvinPointSet::setNormal(int row, int col, const Normal& normal) {
    records_.setNormalAt(guardedIndex(row, col), normal);
}

void CorvinPointSet::setNormal(std::uint64_t index, const Normal& normal) {
    records_.setNormalAt(boundedIndex(index), normal);
}

void CorvinPointSet::setNormal(const SelectItem& item, const Normal& normal) {
    records_.setNormalAt(item.index, normal);
}

}  // namespace Vardex
