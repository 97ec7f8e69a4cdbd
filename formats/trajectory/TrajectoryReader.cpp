// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "trajectory/TrajectoryReader.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <utility>

#include "Tq/Quaternion.h"
#include "kit/ClockGuess.h"
#include "kit/Finding.h"
#include "kit/PointPlacer.h"
#include "kit/TextFields.h"
#include "kit/TextLines.h"
#include "trajectory/TrajectoryColumns.h"

namespace Ovr::Formats {

using Interfaces::ErrorCode;
using Tq_1_1::Quaternion;
using VardexLib::TrajectoryNode;

namespace {

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
    /// Reads poses up to the end, or up to the first one that is wrong.
    [[nodiscard]] ErrorPtr read(const std::filesystem::path& file, std::size_t mostPoses);
    std::vector<TrajectoryNode>& nodes() { return nodes_; }
    bool hasPoses() const { return !nodes_.empty(); }
    /// Brings the times to seconds, and the poses into order where that is wanted.
    void finish(const TrajectoryReading& reading, Remarks& remarks);
    void remark(Remarks& remarks) const;

  private:
    bool isComment();
    [[nodiscard]] ErrorPtr readPose();
    [[nodiscard]] ErrorPtr setRotation(const Quaternion& q, TrajectoryNode& node);
    void remarkOnTimes(Remarks& remarks) const;
    void putInOrder(Remarks& remarks);
    double medianStep() const;

    TextLines lines_;
    TrajectoryColumns columns_;
    bool first_ = true;  ///< no line but comments was read
    std::vector<TrajectoryNode> nodes_;
    std::vector<std::uint64_t> nodeLines_;
    Finding offUnit_;
};

ErrorPtr TrajectoryParser::read(const std::filesystem::path& file, std::size_t mostPoses) {
    if (ErrorPtr error = lines_.open(file)) {
        return error;
    }
    while (nodes_.size() < mostPoses && lines_.next()) {
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
    const bool comment = text.starts_with('#') || text.starts_with("//");
    if (comment && first_ && !columns_.hasNames()) {
        columns_.takeNames(text);
    }
    return comment;
}

ErrorPtr TrajectoryParser::readPose() {
    if (first_) {
        first_ = false;
        const bool namedBefore = columns_.hasNames();
        if (ErrorPtr error = columns_.takeFirst(lines_)) {
            return error;
        }
        if (columns_.hasNames() && !namedBefore) {
            return nullptr;  // this line is the names
        }
    }
    TrajectoryColumns::Values v{};
    if (ErrorPtr error = columns_.read(lines_, v)) {
        return error;
    }
    using enum TrajectoryColumns::Value;
    if (ErrorPtr error = checkCoordinates(lines_.current(), {v[X], v[Y], v[Z]})) {
        return error;
    }
    TrajectoryNode node;
    if (ErrorPtr error = setRotation({v[Qw], v[Qx], v[Qy], v[Qz]}, node)) {
        return error;
    }
    node.time = v[Time];
    std::copy_n(v.begin() + X, 3, node.pose + 12);
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
            countText(back.count, "time"), back.extreme, back.first));
    }
    if (repeated.count != 0) {
        remarks.warn(fmt::format("{}: {} equal to the time of the line above, first at line {}",
                                 file, countText(repeated.count, "time"), repeated.first));
    }
    if (jumps.count != 0) {
        remarks.warn(fmt::format(
            "{}: {} of up to {:.6g} s, above 10 x the median step of {:.6g} s, first at line {}",
            file, countText(jumps.count, "gap"), jumps.extreme, median, jumps.first));
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
            countText(offUnit_.count, "quaternion"), offUnit_.extreme, offUnit_.first));
    }
    remarkOnTimes(remarks);
}

void TrajectoryParser::finish(const TrajectoryReading& reading, Remarks& remarks) {
    TimeRange range;
    const double perSecond =
        unitsPerSecond(reading.unit.value_or(columns_.unit().value_or(TimeUnit::Seconds)));
    for (TrajectoryNode& node : nodes_) {
        node.time = perSecond == 1.0 ? node.time : node.time / perSecond;
        range.add(node.time);
    }
    if (const ClockGuess guess = guessClock(range);
        !range.empty && guess.unit != TimeUnit::Seconds) {
        remarks.warn(fmt::format("{}: the times, taken as seconds, look like {}", lines_.fileName(),
                                 describe(guess)));
    }
    remark(remarks);
    if (reading.inOrder) {
        putInOrder(remarks);
    }
}

void TrajectoryParser::putInOrder(Remarks& remarks) {
    const auto earlier = [](const TrajectoryNode& a, const TrajectoryNode& b) {
        return a.time < b.time;
    };
    if (!std::is_sorted(nodes_.begin(), nodes_.end(), earlier)) {
        std::stable_sort(nodes_.begin(), nodes_.end(), earlier);
        remarks.warn(fmt::format("{}: {} put into the order of their times", lines_.fileName(),
                                 countText(nodes_.size(), "pose")));
    }
}

}  // namespace

ErrorPtr readTrajectoryFile(const std::filesystem::path& file, const TrajectoryReading& reading,
                            std::vector<TrajectoryNode>& nodes, Remarks& remarks) {
    TrajectoryParser parser;
    if (ErrorPtr error = parser.read(file, std::numeric_limits<std::size_t>::max())) {
        return error;
    }
    parser.finish(reading, remarks);
    nodes = std::move(parser.nodes());
    return nullptr;
}

bool beginsAsTrajectory(const std::filesystem::path& file) {
    TrajectoryParser parser;
    return parser.read(file, 1) == nullptr && parser.hasPoses();
}

TrajectoryFormat trajectoryFormat() {
    return {{"txt", "tum"}, readTrajectoryFile, beginsAsTrajectory};
}

}  // namespace Ovr::Formats
