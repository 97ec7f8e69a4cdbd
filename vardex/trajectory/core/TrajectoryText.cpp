// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "trajectory/core/TrajectoryText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <iomanip>
#include <iterator>
#include <locale>
#include <string_view>

#include "trajectory/core/PoseMath.h"

namespace Vardex::TrajectoryText {

using Ovr::VardexLib::TrajectoryNode;
using Tq_1_1::Mat4d;

namespace {

constexpr std::string_view kHeader = "//world_time x y z q0 q1 q2 q3 r g b nx ny nz roll pitch yaw";
constexpr std::string_view kColorFields = "0 0 0 ";  // the path has no colour
constexpr int kDigits = 15;                          // after the decimal point

constexpr std::size_t kNumbers = 14;       // per line
constexpr std::size_t kBeforeColor = 8;    // of them: time, position, quaternion
constexpr std::size_t kNumberWidth = 330;  // sign, 309 digits, point and kDigits digits fit in
using LineNumbers = std::array<double, kNumbers>;

LineNumbers numbersOf(const TrajectoryNode& node, const Mat4d<double>& placement) {
    const Mat4d<double> pose = PoseMath::placePose(placement, node);
    const Tq_1_1::Quaternion q = PoseMath::quaternionOf(pose);
    const Tq_1_1::Vec3d<double> z = PoseMath::zAxisOf(q);
    const RotationAngles angles = PoseMath::anglesOf(q);
    return {node.time, pose(0, 3), pose(1, 3), pose(2, 3),    q.w,           q.x,          q.y, q.z,
            z.x,       z.y,        z.z,        angles.aboutZ, angles.aboutY, angles.aboutX};
}

/// Whether the stream would print a number as std::to_chars does. Any flag other than the notation,
/// and any locale of its own, leaves the number to the stream. The field width is 0 by now: the
/// header has used it up.
bool printsPlainNumbers(const std::ostream& out) {
    return out.flags() == (std::ios_base::skipws | std::ios_base::dec | std::ios_base::fixed) &&
           out.getloc() == std::locale::classic();
}

/// One write per line: several times as fast as fourteen formatted insertions.
void writePlainLine(std::ostream& out, const LineNumbers& numbers) {
    std::array<char, kNumbers*(kNumberWidth + 1) + kColorFields.size()> line;
    char* end = line.data();
    for (std::size_t i = 0; i < kNumbers; ++i) {
        if (i == kBeforeColor) {
            end = std::copy(kColorFields.begin(), kColorFields.end(), end);
        }
        end = std::to_chars(end, end + kNumberWidth, numbers[i], std::chars_format::fixed, kDigits)
                  .ptr;
        *end++ = i + 1 < kNumbers ? ' ' : '\n';
    }
    out.write(line.data(), end - line.data());
    out.flush();
}

void writeStyledLine(std::ostream& out, const LineNumbers& numbers) {
    for (std::size_t i = 0; i < kNumbers; ++i) {
        if (i == kBeforeColor) {
            out << kColorFields;
        }
        out << numbers[i];
        if (i + 1 < kNumbers) {
            out << ' ';
        }
    }
    out << std::endl;
}

}  // namespace

void writeTrajectory(std::ostream& out, std::span<const TrajectoryNode> nodes,
                     const Mat4d<double>& placement) {
    out << kHeader << std::endl;
    out << std::fixed << std::setprecision(kDigits);
    const bool plain = printsPlainNumbers(out);
    for (const TrajectoryNode& node : nodes) {
        const LineNumbers numbers = numbersOf(node, placement);
        if (plain) {
            writePlainLine(out, numbers);
        } else {
            writeStyledLine(out, numbers);
        }
    }
}

}  // namespace Vardex::TrajectoryText
