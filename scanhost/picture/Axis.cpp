// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "picture/Axis.h"

#include <algorithm>
#include <cmath>

#include <fmt/format.h>

#include "report/NumberText.h"

namespace ScanHost {

namespace {

// More digits than this are noise of the numbers' own precision.
constexpr int kMostDigits = 9;
// Values that are equal but for their last bits count as equal.
constexpr double kSlack = 1e-9;

double powerOf(double value) {
    return std::pow(10.0, std::floor(std::log10(value) + kSlack));
}

Ticks multiplesBetween(double low, double high, double step) {
    Ticks ticks{step, digitsOf(step), {}};
    const double last = std::floor(high / step + kSlack);
    for (double i = std::ceil(low / step - kSlack); i <= last; ++i) {
        ticks.values.push_back(i * step);
    }
    return ticks;
}

}  // namespace

std::string Ticks::text(double value) const {
    return fixedText(value, digits);
}

double roundBelow(double value) {
    const double power = powerOf(value);
    double round = power;
    for (const double factor : {2.0, 5.0, 10.0}) {
        round = factor * power <= value * (1.0 + kSlack) ? factor * power : round;
    }
    return round;
}

double roundAbove(double value) {
    const double power = powerOf(value);
    double round = 10.0 * power;
    for (const double factor : {5.0, 2.0, 1.0}) {
        round = factor * power >= value * (1.0 - kSlack) ? factor * power : round;
    }
    return round;
}

int digitsOf(double step) {
    const double digits = std::ceil(-std::log10(step) - 1e-6);
    return static_cast<int>(std::clamp(digits, 0.0, static_cast<double>(kMostDigits)));
}

Ticks ticksBetween(double low, double high, int most) {
    return multiplesBetween(low, high, roundAbove((high - low) / most));
}

Ticks ticksBetween(double low, double high, int most, const std::vector<double>& steps) {
    const double least = (high - low) / most;
    const auto step = std::find_if(steps.begin(), steps.end(),
                                   [least](double candidate) { return candidate >= least; });
    return step != steps.end() ? multiplesBetween(low, high, *step) : ticksBetween(low, high, most);
}

std::string groupedCount(unsigned long long count, const char* one, const char* many) {
    const std::string digits = fmt::format("{}", count);
    std::string grouped;
    for (std::size_t i = 0; i < digits.size(); ++i) {
        if (i > 0 && (digits.size() - i) % 3 == 0) {
            grouped += ',';
        }
        grouped += digits[i];
    }
    return fmt::format("{} {}", grouped, count == 1 ? one : many);
}

}  // namespace ScanHost
