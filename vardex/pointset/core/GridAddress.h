// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <cstdint>

#include "Hx/SelectItem.h"

#include "pointset/core/GridCell.h"

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
constexpr std::uint64_t flatIndex(int cols, const GridCell& cell) {
    return static_cast<std::uint64_t>(std::int64_t{cols} * cell.row + cell.col);
}

/// Whether a cell lies inside a grid.
constexpr bool contains(int rows, int cols, const GridCell& cell) {
    return cell.row >= 0 && cell.row < rows && cell.col >= 0 && cell.col < cols;
}

/// The item of a cell, without a test of the cell.
constexpr Hx::SelectItem itemAt(int cols, const GridCell& cell) {
    return {flatIndex(cols, cell), cell.row, cell.col, 0};
}

/// The item of a flat index alone: its row and column are left 0.
constexpr Hx::SelectItem itemAt(std::uint64_t index) {
    return {index, 0, 0, 0};
}

/// The cell of a flat index; the first cell in a grid without columns.
constexpr GridCell cellAt(int cols, std::uint64_t index) {
    if (cols <= 0) {
        return {};
    }
    const auto width = static_cast<std::uint64_t>(cols);
    return {static_cast<int>(index / width), static_cast<int>(index % width)};
}

/// The cell of an item. An item that was made from an index alone has row and column 0, and so has
/// the item of the first cell: for both the cell comes from the index.
constexpr GridCell cellOf(int cols, const Hx::SelectItem& item) {
    if (item.row != 0 || item.col != 0) {
        return {item.row, item.col};
    }
    return cellAt(cols, item.index);
}

}  // namespace Vardex::GridAddress
