// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>

#include "Ovr/ScanSource.h"
#include "las/LasHeader.h"

namespace Ovr::Formats {

/// What a pass over the point records of a LAS file counts.
struct LasFacts {
    std::array<std::uint64_t, 256> classes{};  ///< points by class
    std::array<std::uint64_t, 16> returns{};   ///< points by the number of their return
    std::uint64_t synthetic = 0;
    std::uint64_t keyPoints = 0;
    std::uint64_t withheld = 0;
    std::uint64_t overlap = 0;  ///< a flag from format 6 on; before it is class 12
    /// Of the coordinates; both 0 without points.
    std::array<double, 3> minimum{};
    std::array<double, 3> maximum{};
};

/// Counts what point records hold, while they are read.
class LasFactsCounter final : public IRecordObserver {
  public:
    /// @param header  of the file that the records are from
    explicit LasFactsCounter(const LasHeader& header);
    ~LasFactsCounter() override;

    void begin() override;
    void take(const char* records, std::size_t length, std::uint64_t count) override;

    /// Of the records that came since begin().
    LasFacts facts() const;

  private:
    struct Raw;

    unsigned format_;
    std::array<double, 3> scale_;
    std::array<double, 3> offset_;
    std::unique_ptr<Raw> raw_;
};

/// Whether a coordinate of the header's bounds differs from that of the points by more than a step
/// of the file's coordinates; not-a-number does.
bool boundsDiffer(const LasHeader& header, const LasFacts& facts);
/// Whether the header counts other returns than the points have. A header that counts none says
/// nothing.
bool returnsDiffer(const LasHeader& header, const LasFacts& facts);

}  // namespace Ovr::Formats
