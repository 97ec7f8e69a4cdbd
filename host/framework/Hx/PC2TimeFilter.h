// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <vector>

#include "Hx/Attribute.h"

namespace Hx {

/// A time span given by two fractions of a scan, kept as attributes 10 (start) and 11 (end) of a
/// list that has other entries too. A filter may lack either attribute.
class HOST_EXPORT PC2TimeFilter {
  public:
    static constexpr std::size_t START_ATTRIBUTE = 10;
    static constexpr std::size_t END_ATTRIBUTE = 11;

    PC2TimeFilter() = default;  ///< without start and end
    PC2TimeFilter(double start, double end);

    /// @return null when the list has no such entry
    const Attribute* getAttribute(std::size_t number) const;
    Attribute* getAttribute(std::size_t number);
    /// Enters an attribute; the list grows as needed. Numbers from 1024 on are left out.
    void setAttribute(std::size_t number, Tq_1_1::SmartPtr<Attribute> attribute);

  private:
    std::vector<Tq_1_1::SmartPtr<Attribute>> attributes_;
};

}  // namespace Hx
