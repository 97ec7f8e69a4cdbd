// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>

#include "HostExport.h"
#include "Hx/Attribute.h"
#include "Tq/SmartPtr.h"

namespace Hx {

/// A time span given by two fractions of a scan, kept as attributes 10 (start) and 11 (end). A
/// filter may lack both.
class HOST_EXPORT PC2TimeFilter {
  public:
    static constexpr std::size_t START_ATTRIBUTE = 10;
    static constexpr std::size_t END_ATTRIBUTE = 11;

    PC2TimeFilter() = default;  ///< without start and end
    PC2TimeFilter(double start, double end);

    /// @return null when the filter has no attribute of that number
    const Attribute* getAttribute(std::size_t number) const;
    Attribute* getAttribute(std::size_t number);

  private:
    Tq_1_1::SmartPtr<Attribute> start_;
    Tq_1_1::SmartPtr<Attribute> end_;
};

}  // namespace Hx
