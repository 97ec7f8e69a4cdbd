// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "stance/core/PolarMath.h"

#include <cmath>
#include <numbers>

namespace Vardex::PolarMath {

namespace {

template <typename T>
constexpr T kHalfPi = static_cast<T>(std::numbers::pi / 2);
template <typename T>
constexpr T kPi = static_cast<T>(std::numbers::pi);
template <typename T>
constexpr T kTwoPi = static_cast<T>(2 * std::numbers::pi);

constexpr int kLengthScale = 100'000;      // a length that rounds to 0 on this scale is none
constexpr int kAxisScale = 1'000'000'000;  // likewise for 1 - |sine of the elevation|

/// Whether a value rounds to the integer 0, halves away from zero. Not-a-number does not.
template <typename T>
bool roundsToZero(T value) {
    return std::abs(value) < T{0.5};
}

/// The cosine as a shifted sine. It differs from std::cos in the last bits, and does so in the same
/// way as in the software that lays out the scanner's grids.
float cosine(float angle) {
    return std::sin(angle + kHalfPi<float>);
}
double cosine(double angle) {
    return std::sin(std::abs(angle) + kHalfPi<double>);
}

template <typename T>
T lengthOf(const Tq_1_1::Vec3d<T>& v) {
    return std::sqrt(v.x * v.x + v.y * v.y + v.z * v.z);
}

/// The angle of the given sine and cosine, by whichever of the two is the smaller and so the better
/// conditioned one.
/// @param mirrored  the angle lies beyond pi (asked where the cosine decides)
/// @param obtuse    the cosine is negative (asked where the sine decides)
template <typename T>
T angleOf(T sine, T cosineValue, bool mirrored, bool obtuse) {
    if (std::abs(sine) > std::abs(cosineValue)) {
        const T angle = std::acos(cosineValue);
        return mirrored ? kTwoPi<T> - angle : angle;
    }
    T angle = std::asin(sine);
    if (obtuse) {
        angle = kPi<T> - angle;
    }
    return angle < 0 ? angle + kTwoPi<T> : angle;
}

}  // namespace

template <typename T>
Tq_1_1::Vec3d<T> cartesianOfScan(const Polar<T>& polar) {
    const auto [r, h, v] = polar;
    const T cosVertical = cosine(v);
    return {r * cosVertical * cosine(h), -(r * cosVertical * std::sin(h)), r * std::sin(v)};
}

template <typename T>
Polar<T> scanOfCartesian(const Tq_1_1::Vec3d<T>& point) {
    const T radius = lengthOf(point);
    const double r = radius;
    if (roundsToZero(r * kLengthScale)) {
        return {radius, 0, 0};
    }
    const double x = point.x;
    const double y = point.y;
    const double z = point.z;
    const double sineOfElevation = z * (1 / r);
    if (roundsToZero((1 - std::abs(sineOfElevation)) * kAxisScale)) {
        return {radius, 0, z >= 0 ? kHalfPi<T> : -kHalfPi<T>};
    }
    const double elevation = std::asin(sineOfElevation);
    const double cosineOfElevation = std::cos(elevation);
    const double horizontal =
        angleOf(-y / r / cosineOfElevation, x / r / cosineOfElevation, y > 0, x < 0);
    return {radius, static_cast<T>(horizontal), static_cast<T>(elevation)};
}

template <typename T>
Tq_1_1::Vec3d<T> cartesianOfUnified(const Polar<T>& polar) {
    const auto [r, h, v] = polar;
    const T sinVertical = std::sin(v);
    return {r * sinVertical * cosine(h), r * sinVertical * std::sin(h), r * cosine(v)};
}

template <typename T>
Polar<T> unifiedOfCartesian(const Tq_1_1::Vec3d<T>& point) {
    const T r = lengthOf(point);
    if (roundsToZero(r * kLengthScale)) {
        return {r, 0, 0};
    }
    const T perRadius = 1 / r;
    const T vertical = std::acos(point.z * perRadius);
    const T sinVertical = std::sin(vertical);
    if (roundsToZero(sinVertical * kLengthScale)) {
        return {r, 0, point.z > 0 ? T{0} : kPi<T>};
    }
    const T perSine = 1 / sinVertical;
    const T horizontal = angleOf(perRadius * point.y * perSine, perRadius * point.x * perSine,
                                 point.y < 0, point.x < 0);
    return {r, horizontal, vertical};
}

template <typename T>
Polar<T> otherConvention(const Polar<T>& polar) {
    return {polar.radius, kTwoPi<T> - polar.horizontal, kHalfPi<T> - polar.vertical};
}

template Tq_1_1::Vec3d<float> cartesianOfScan(const Polar<float>&);
template Tq_1_1::Vec3d<double> cartesianOfScan(const Polar<double>&);
template Polar<float> scanOfCartesian(const Tq_1_1::Vec3d<float>&);
template Polar<double> scanOfCartesian(const Tq_1_1::Vec3d<double>&);
template Tq_1_1::Vec3d<float> cartesianOfUnified(const Polar<float>&);
template Tq_1_1::Vec3d<double> cartesianOfUnified(const Polar<double>&);
template Polar<float> unifiedOfCartesian(const Tq_1_1::Vec3d<float>&);
template Polar<double> unifiedOfCartesian(const Tq_1_1::Vec3d<double>&);
template Polar<float> otherConvention(const Polar<float>&);
template Polar<double> otherConvention(const Polar<double>&);

}  // namespace Vardex::PolarMath
