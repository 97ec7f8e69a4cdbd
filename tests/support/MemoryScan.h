// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <utility>
#include <vector>

#include "Ovr/IScanIntegration.h"
#include "Ovr/Vardex/IScanPointTimes.h"

namespace Support {

/// A point set in its simplest form: what the service asks of one, kept in vectors.
class MemoryScan final : public Ovr::Interfaces::IScanIntegration {
  public:
    using ScanPoint = Tq_1_1::ScanPtColor<Tq_1_1::Vec3d<float>>;

    struct Record {
        ScanPoint point;
        std::uint16_t reflection = 0;
    };

    Ovr::ScanSource source;
    std::shared_ptr<Ovr::IStructuredStreams> streams;
    std::uint64_t largestSize = std::numeric_limits<std::uint64_t>::max();

    int rows = 0;
    int cols = 0;
    bool separateReflection = false;
    std::vector<Record> records;
    std::vector<bool> begun;  ///< per modification: true when it began, false when it ended

    const Record& at(int row, int col) const { return records[indexOf(row, col)]; }

    void modificationBegun(const Ovr::DataStructures::ScanDataModification& /*what*/) override {
        begun.push_back(true);
    }
    void modificationEnded(const Ovr::DataStructures::ScanDataModification& /*what*/) override {
        begun.push_back(false);
    }
    std::unique_ptr<Ovr::IPointDataWriteLock> getPointDataWriteLock(int timeout) override {
        return locks_->getWriteLock(timeout);
    }
    std::unique_ptr<Ovr::IPointDataExclusiveAccess> getPointDataExclusiveAccess(
        const Ovr::IPointDataWriteLock& lock) override {
        return locks_->getExclusiveAccess(lock);
    }
    bool setNewSize(int newRows, int newCols, bool allocate, bool withReflection) override {
        const std::uint64_t size =
            allocate ? static_cast<std::uint64_t>(newRows) * static_cast<std::uint64_t>(newCols)
                     : 0;
        if (size > largestSize) {
            return false;
        }
        rows = newRows;
        cols = newCols;
        separateReflection = withReflection;
        records.resize(static_cast<std::size_t>(size));
        return true;
    }
    bool acceptsNewSize() const override { return true; }
    bool storesCartesian() const override { return true; }
    bool storesColor() const override { return true; }
    bool storesReflection() const override { return true; }
    void setPoint(int row, int col, const ScanPoint& point) override {
        records[indexOf(row, col)] = {point, 0};
    }
    void setReflection(int row, int col, std::uint16_t reflection) override {
        records[indexOf(row, col)].reflection = reflection;
    }
    std::shared_ptr<Ovr::IStructuredStreams> openStructuredStreams(
        bool /*writable*/) const override {
        return streams;
    }
    Ovr::ScanSource getScanSource() const override { return source; }
    Tq_1_1::SVec2d<int> getGridSize() const override { return {cols, rows}; }

  private:
    std::size_t indexOf(int row, int col) const {
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(cols) +
               static_cast<std::size_t>(col);
    }

    std::shared_ptr<Ovr::IPointDataLocks> locks_ = Ovr::makePointDataLocks();
};

/// Point times in a vector, one row of them.
class MemoryTimes final : public Ovr::VardexLib::IScanPointTimes {
  public:
    explicit MemoryTimes(std::size_t count) : times(count) {}

    std::vector<std::uint64_t> times;
    std::size_t writes = 0;

    void setTimeStamp(int row, int col, std::uint64_t microseconds) override {
        ++writes;
        if (row == 0 && static_cast<std::size_t>(col) < times.size()) {
            times[static_cast<std::size_t>(col)] = microseconds;
        }
    }
    std::uint64_t getTimeStamp(int /*row*/, int col) const override {
        return times.at(static_cast<std::size_t>(col));
    }
    bool resizeTimeStamps(int rows, int cols) override {
        return rows == 1 && static_cast<std::size_t>(cols) == times.size();
    }
};

}  // namespace Support
