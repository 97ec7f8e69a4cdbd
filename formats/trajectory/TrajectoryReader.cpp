// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "trajectory/TrajectoryReader.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "Tq/Quaternion.h"
#include "kit/Finding.h"
#include "kit/NumberLine.h"
#include "kit/PointPlacer.h"
#include "kit/TextFields.h"
#include "kit/TextLines.h"

namespace Ovr::Formats {

using Interfaces::ErrorCode;
using Tq_1_1::Quaternion;
using VardexLib::TrajectoryNode;

namespace {

constexpr std::string_view kExportHeader = "//world_time";
constexpr std::size_t kTumFields = 8;
constexpr std::size_t kExportFields = 17;
/// Four decimals per component, which files of this kind often have, may be off by this much.
constexpr double kUnitLengthTolerance = 1e-4;
constexpr double kShortestQuaternion = 1e-6;
constexpr double kLongestQuaternion = 1e6;
constexpr double kJumpFactor = 10.0;

/// Writes the rotation of a unit quaternion into a pose that is stored column by column.
void writeRotation(const Quaternion& q, double (&pose)[16]) {
    pose[0] = 1.0 - 2.0 * (q.y * q.y + q.z * q.z);
    pose[1] = 2.0 * (q.x * q.y + q.w * q.z);
    pose[2] = 2.0 * (q.x * q.z - q.w * q.y);
    pose[4] = 2.0 * (q.x * q.y - q.w * q.z);
    pose[5] = 1.0 - 2.0 * (q.x * q.x + q.z * q.z);
    pose[6] = 2.0 * (q.y * q.z + q.w * q.x);
    pose[8] = 2.0 * (q.x * q.z + q.w * q.y);
    pose[9] = 2.0 * (q.y * q.z - q.w * q.x);
    pose[10] = 1.0 - 2.0 * (q.x * q.x + q.y * q.y);
}

class TrajectoryParser {
  public:
    [[nodiscard]] ErrorPtr read(const std::filesystem::path& file);
    std::vector<TrajectoryNode>& nodes() { return nodes_; }
    void remark(Remarks& remarks) const;

  private:
    bool isComment();
    [[nodiscard]] ErrorPtr readPose();
    [[nodiscard]] ErrorPtr setRotation(const Quaternion& q, TrajectoryNode& node);
    void remarkOnTimes(Remarks& remarks) const;
    double medianStep() const;

    TextLines lines_;
    bool exported_ = false;
    std::vector<TrajectoryNode> nodes_;
    std::vector<std::uint64_t> nodeLines_;
    Finding offUnit_;
};

ErrorPtr TrajectoryParser::read(const std::filesystem::path& file) {
    if (ErrorPtr error = lines_.open(file)) {
        return error;
    }
    while (lines_.next()) {
        if (isComment()) {
            continue;
        }
        if (ErrorPtr error = readPose()) {
            return error;
        }
    }
    return lines_.error();
}

bool TrajectoryParser::isComment() {
    const std::string_view text = lines_.text();
    if (nodes_.empty() && text.starts_with(kExportHeader)) {
        exported_ = true;
    }
    return text.starts_with('#') || text.starts_with("//");
}

ErrorPtr TrajectoryParser::readPose() {
    std::array<double, kExportFields> numbers{};
    const std::size_t count = exported_ ? kExportFields : kTumFields;
    if (ErrorPtr error = readNumbers(lines_, std::span(numbers).first(count))) {
        return error;
    }
    const auto& n = numbers;
    if (ErrorPtr error = checkCoordinates(lines_, {n[1], n[2], n[3]})) {
        return error;
    }
    TrajectoryNode node;
    // Scalar first in exported files, last in TUM files.
    const Quaternion rotation =
        exported_ ? Quaternion{n[4], n[5], n[6], n[7]} : Quaternion{n[7], n[4], n[5], n[6]};
    if (ErrorPtr error = setRotation(rotation, node)) {
        return error;
    }
    node.time = n[0];
    std::copy_n(n.begin() + 1, 3, node.pose + 12);
    nodes_.push_back(node);
    nodeLines_.push_back(lines_.line());
    return nullptr;
}

ErrorPtr TrajectoryParser::setRotation(const Quaternion& q, TrajectoryNode& node) {
    const double length = std::sqrt(q.x * q.x + q.y * q.y + q.z * q.z + q.w * q.w);
    if (!(length >= kShortestQuaternion && length <= kLongestQuaternion)) {
        return lines_.fault(ErrorCode::InvalidValue,
                            fmt::format("a quaternion of length {:.3g}", length), "length 1");
    }
    const double deviation = std::abs(length - 1.0);
    if (deviation > kUnitLengthTolerance) {
        offUnit_.add(lines_.line(), deviation);
    }
    writeRotation({q.w / length, q.x / length, q.y / length, q.z / length}, node.pose);
    return nullptr;
}

/// Median of the steps forward in time [s]; 0 when there is none.
double TrajectoryParser::medianStep() const {
    std::vector<double> steps;
    steps.reserve(nodes_.size());
    for (std::size_t i = 1; i < nodes_.size(); ++i) {
        const double step = nodes_[i].time - nodes_[i - 1].time;
        if (step > 0.0) {
            steps.push_back(step);
        }
    }
    if (steps.empty()) {
        return 0.0;
    }
    const auto middle = steps.begin() + static_cast<std::ptrdiff_t>(steps.size() / 2);
    std::nth_element(steps.begin(), middle, steps.end());
    return *middle;
}

void TrajectoryParser::remarkOnTimes(Remarks& remarks) const {
    const double median = medianStep();
    Finding back;
    Finding repeated;
    Finding jumps;
    for (std::size_t i = 1; i < nodes_.size(); ++i) {
        const double step = nodes_[i].time - nodes_[i - 1].time;
        if (step < 0.0) {
            back.add(nodeLines_[i], -step);
        } else if (step == 0.0) {
            repeated.add(nodeLines_[i], 0.0);
        } else if (step > kJumpFactor * median) {
            jumps.add(nodeLines_[i], step);
        }
    }
    const std::string& file = lines_.fileName();
    if (back.count != 0) {
        remarks.warn(fmt::format(
            "{}: {} before the time of the line above, by up to {:.6g} s, first at line {}", file,
            countText(back.count, "time"), back.extreme, back.firstLine));
    }
    if (repeated.count != 0) {
        remarks.warn(fmt::format("{}: {} equal to the time of the line above, first at line {}",
                                 file, countText(repeated.count, "time"), repeated.firstLine));
    }
    if (jumps.count != 0) {
        remarks.warn(fmt::format(
            "{}: {} of up to {:.6g} s, above 10 x the median step of {:.6g} s, first at line {}",
            file, countText(jumps.count, "gap"), jumps.extreme, median, jumps.firstLine));
    }
}

void TrajectoryParser::remark(Remarks& remarks) const {
    const std::string& file = lines_.fileName();
    if (nodes_.empty()) {
        remarks.warn(fmt::format("{}: no pose in the file", file));
    }
    if (offUnit_.count != 0) {
        remarks.warn(fmt::format(
            "{}: {} brought to unit length, off by up to {:.3g}, first at line {}", file,
            countText(offUnit_.count, "quaternion"), offUnit_.extreme, offUnit_.firstLine));
    }
    remarkOnTimes(remarks);
}

}  // namespace

ErrorPtr readTrajectoryFile(const std::filesystem::path& file, std::vector<TrajectoryNode>& nodes,
                            Remarks& remarks) {
    TrajectoryParser parser;
    if (ErrorPtr error = parser.read(file)) {
        return error;
    }
    parser.remark(remarks);
    nodes = std::move(parser.nodes());
    return nullptr;
}

TrajectoryFormat trajectoryFormat() {
    return {{"txt", "tum"}, readTrajectoryFile};
}

}  // namespace Ovr::Formats
