// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace ScanHost {

/// What falls on the pixels of a plot: how many points, and what they show. A pixel keeps the mean
/// of up to three numbers, or the largest of one.
class PixelField {
  public:
    struct Cell {
        std::array<float, 3> values{};
        std::uint32_t count = 0;
    };

    /// @param cols  and @p rows are 1 or more
    PixelField(int cols, int rows)
        : cols_(cols),
          rows_(rows),
          cells_(static_cast<std::size_t>(cols) * static_cast<std::size_t>(rows)) {}

    int cols() const { return cols_; }
    int rows() const { return rows_; }
    const std::vector<Cell>& cells() const { return cells_; }

    /// @return the number of the cell at a place of the plot; empty outside
    std::optional<std::size_t> find(double x, double y) const {
        if (!(x >= 0.0 && y >= 0.0 && x < cols_ && y < rows_)) {
            return std::nullopt;
        }
        return static_cast<std::size_t>(static_cast<int>(y)) * static_cast<std::size_t>(cols_) +
               static_cast<std::size_t>(static_cast<int>(x));
    }
    Cell& cell(std::size_t number) { return cells_[number]; }

    /// Adds a point to those whose mean a pixel shows.
    static void addToMean(Cell& cell, const std::array<float, 3>& values) {
        // From there on a sum of colours is no exact number, and the mean is known well enough.
        if (cell.count < kEnoughForMean) {
            cell.values[0] += values[0];
            cell.values[1] += values[1];
            cell.values[2] += values[2];
        }
        ++cell.count;
    }
    /// Adds a point to those of whom a pixel shows the largest first value.
    static void addToLargest(Cell& cell, const std::array<float, 3>& values) {
        const bool larger = cell.count == 0 || values[0] > cell.values[0];
        cell.values[0] = larger ? values[0] : cell.values[0];
        ++cell.count;
    }
    /// One of the means of a pixel that has points.
    static float mean(const Cell& cell, std::size_t number) {
        return cell.values[number] /
               static_cast<float>(cell.count < kEnoughForMean ? cell.count : kEnoughForMean);
    }

    /// Ends the points of one scan: each pixel remembers which scan has the most points in it.
    /// Before it, values[0] counts the scan's own points.
    /// @param number  the scan's
    void keepMost(float number);

  private:
    static constexpr std::uint32_t kEnoughForMean = 65536;

    int cols_;
    int rows_;
    std::vector<Cell> cells_;
};

}  // namespace ScanHost
