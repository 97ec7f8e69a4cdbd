// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>
#include <vector>

namespace ScanHost {

/// Round values along an axis, and what is written next to them.
struct Ticks {
    double step = 1.0;
    int digits = 0;  ///< after the point
    std::vector<double> values;

    std::string text(double value) const;
};

/// The largest of 1, 2 or 5 times a power of ten that is not above a value.
/// Requires: the value is finite and above 0.
double roundBelow(double value);
/// The smallest of them that is not below it.
double roundAbove(double value);
/// Digits after the point that tell multiples of a step apart.
int digitsOf(double step);

/// Multiples of the smallest round step that divides the way between two values into at most
/// @p most parts.
/// Requires: both are finite, low < high, most > 0.
Ticks ticksBetween(double low, double high, int most);
/// The same with one of the given steps, ascending, and multiples of the last one beyond them.
Ticks ticksBetween(double low, double high, int most, const std::vector<double>& steps);

/// "38,083 points".
std::string groupedCount(unsigned long long count, const char* one, const char* many);

}  // namespace ScanHost
