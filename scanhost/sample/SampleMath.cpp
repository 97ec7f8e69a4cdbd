// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "sample/SampleMath.h"

#include <cmath>

namespace ScanHost::Sample {

namespace {

constexpr double kPi = 3.14159265358979323846;

// Sine and cosine of at most an eighth of a turn: ten terms leave less than 1e-18.
SineCosine series(double radians) {
    constexpr int kTerms = 10;
    double term = 1.0;
    SineCosine sum{0.0, 1.0};
    for (int n = 1; n <= 2 * kTerms; ++n) {
        term = term * radians / n;
        const double signedTerm = (n / 2) % 2 == 0 ? term : -term;
        (n % 2 == 0 ? sum.cosine : sum.sine) += signedTerm;
    }
    return sum;
}

}  // namespace

SineCosine sineCosine(double turns) {
    const double quarters = std::floor(turns * 4.0 + 0.5);
    const SineCosine base = series((turns - quarters / 4.0) * 2.0 * kPi);
    switch (static_cast<std::int64_t>(quarters) & 3) {
        case 0:
            return base;
        case 1:
            return {base.cosine, -base.sine};
        case 2:
            return {-base.sine, -base.cosine};
        default:
            return {-base.cosine, base.sine};
    }
}

Vec3 directionOf(double azimuth, double elevation) {
    const SineCosine a = sineCosine(azimuth);
    const SineCosine e = sineCosine(elevation);
    return {a.cosine * e.cosine, a.sine * e.cosine, e.sine};
}

Quaternion orientationOf(double heading, double pitch) {
    const SineCosine h = sineCosine(heading / 2.0);
    const SineCosine p = sineCosine(pitch / 2.0);
    return {h.cosine * p.cosine, -h.sine * p.sine, h.cosine * p.sine, h.sine * p.cosine};
}

Mat4 poseOf(const Quaternion& q, const Vec3& position) {
    Mat4 m = Mat4::translation(position);
    m(0, 0) = 1.0 - 2.0 * (q.y * q.y + q.z * q.z);
    m(0, 1) = 2.0 * (q.x * q.y - q.w * q.z);
    m(0, 2) = 2.0 * (q.x * q.z + q.w * q.y);
    m(1, 0) = 2.0 * (q.x * q.y + q.w * q.z);
    m(1, 1) = 1.0 - 2.0 * (q.x * q.x + q.z * q.z);
    m(1, 2) = 2.0 * (q.y * q.z - q.w * q.x);
    m(2, 0) = 2.0 * (q.x * q.z - q.w * q.y);
    m(2, 1) = 2.0 * (q.y * q.z + q.w * q.x);
    m(2, 2) = 1.0 - 2.0 * (q.x * q.x + q.y * q.y);
    return m;
}

Vec3 rotate(const Mat4& pose, const Vec3& v) {
    Mat4 rotation = pose;
    rotation(0, 3) = rotation(1, 3) = rotation(2, 3) = 0.0;
    return rotation.transform(v);
}

double Random::next() {
    state_ += 0x9E3779B97F4A7C15U;
    std::uint64_t bits = state_;
    bits = (bits ^ (bits >> 30)) * 0xBF58476D1CE4E5B9U;
    bits = (bits ^ (bits >> 27)) * 0x94D049BB133111EBU;
    bits ^= bits >> 31;
    return static_cast<double>(bits >> 11) * 0x1p-53;
}

}  // namespace ScanHost::Sample
