// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <vector>

#include "Hx/PointSet.h"

#include "pointset/core/PointRecord.h"

/// Point sets whose classes the benchmark does not see, so that the compiler cannot look through
/// their virtual calls.
namespace Vardex::Bench {

/// What any interface costs: one virtual call to an element of a vector, without a test.
class OpaquePoints {
  public:
    virtual ~OpaquePoints() = default;
    virtual const ScanPoint& pointAt(std::uint64_t index) const = 0;
    /// Replaces the point; the other fields of its record are as those of a new point.
    virtual void setPointAt(const Hx::SelectItem& item, const ScanPoint& point) = 0;
};

/// @tparam Record  of any layout
template <typename Record>
std::unique_ptr<OpaquePoints> makeOpaquePoints(std::vector<Record> records);

/// A point set of one layout with valid data.
std::shared_ptr<Hx::PointSet> makePointSet(PointRecordLayout layout, int rows, int cols);

}  // namespace Vardex::Bench
