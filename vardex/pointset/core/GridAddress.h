// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <cstdint>

#include "Hx/SelectItem.h"
#include "Tq/SVec2d.h"

/// Addresses in a grid of points that lie row by row: flat index = row x cols + col.
namespace Vardex::GridAddress {

/// The item that addresses no point.
inline constexpr Hx::SelectItem kInvalidItem{Hx::SelectItem::INVALID_INDEX, 0, 0, 0};

/// Number of records of a grid: the host's signed 32-bit product of its two counts. A grid with
/// more than 2^31 - 1 cells wraps, possibly to a negative count.
constexpr std::int64_t recordCount(std::uint32_t rows, std::uint32_t cols) {
    return static_cast<std::int32_t>(rows * cols);
}

/// Number of flat indices of a grid. Counts that make no grid have none.
constexpr std::uint64_t indexCount(int rows, int cols) {
    const std::int64_t count =
        recordCount(static_cast<std::uint32_t>(rows), static_cast<std::uint32_t>(cols));
    return static_cast<std::uint64_t>(std::max<std::int64_t>(count, 0));
}

/// The flat index of a cell, in 64 bits and without a test: a cell outside the grid gives the index
/// of another cell or an index that no record has.
constexpr std::uint64_t flatIndex(int cols, int row, int col) {
    return static_cast<std::uint64_t>(std::int64_t{cols} * row + col);
}

constexpr bool contains(int rows, int cols, int row, int col) {
    return row >= 0 && row < rows && col >= 0 && col < cols;
}

/// The item of a cell, without a test of the coordinates.
constexpr Hx::SelectItem itemAt(int cols, int row, int col) {
    return {flatIndex(cols, row, col), row, col, 0};
}

/// The item of a flat index alone: its row and column are left 0.
constexpr Hx::SelectItem itemAt(std::uint64_t index) {
    return {index, 0, 0, 0};
}

/// The cell of a flat index as (row, col); (0, 0) in a grid without columns.
constexpr Tq_1_1::SVec2d<int> rowColAt(int cols, std::uint64_t index) {
    if (cols <= 0) {
        return {0, 0};
    }
    const auto width = static_cast<std::uint64_t>(cols);
    return {static_cast<int>(index / width), static_cast<int>(index % width)};
}

/// The cell of an item as (row, col). An item that was made from an index alone says (0, 0) about
/// itself, and so does the item of the first cell: both are read from the index.
constexpr Tq_1_1::SVec2d<int> rowColOf(int cols, const Hx::SelectItem& item) {
    if (item.row != 0 || item.col != 0) {
        return {item.row, item.col};
    }
    return rowColAt(cols, item.index);
}

/// (row, col) as (col, row) and the other way round.
constexpr Tq_1_1::SVec2d<int> exchanged(const Tq_1_1::SVec2d<int>& pair) {
    return {pair.second, pair.first};
}

}  // namespace Vardex::GridAddress
