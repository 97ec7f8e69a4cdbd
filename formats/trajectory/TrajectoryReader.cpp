// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "trajectory/TrajectoryReader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <utility>

#include "kit/Finding.h"
#include "kit/TextFields.h"
#include "kit/TextLines.h"

namespace Ovr::Formats {

using Interfaces::ErrorCode;
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

struct Quaternion {
    double w;
    double x;
    double y;
    double z;
};

/// Writes the rotation of a unit quaternion into a pose that is stored column by column.
void setRotation(double (&pose)[16], const Quaternion& q) {
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
    explicit TrajectoryParser(ScanProject* project) : project_(project) {}

    ErrorPtr read(const std::filesystem::path& file);
    std::vector<TrajectoryNode>& nodes() { return nodes_; }
    std::vector<std::string> findings() const;

  private:
    bool isComment();
    ErrorPtr readPose();
    ErrorPtr setPose(const std::array<double, kTumFields>& values, TrajectoryNode& node);
    void reportTimes(std::vector<std::string>& lines) const;
    double medianStep() const;

    TextLines lines_;
    ScanProject* project_;
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
    const std::size_t expected = exported_ ? kExportFields : kTumFields;
    std::array<std::string_view, kExportFields> fields;
    const std::size_t count = splitFields(lines_.text(), fields);
    if (count != expected) {
        return lines_.fault(ErrorCode::WrongFormat, countText(count, "field"),
                            std::to_string(expected));
    }
    std::array<double, kExportFields> numbers{};
    for (std::size_t i = 0; i < expected; ++i) {
        if (!parseNumber(fields[i], numbers[i])) {
            return lines_.fault(ErrorCode::InvalidValue,
                                inQuotes(fields[i]) + " as field " + std::to_string(i + 1),
                                "a finite number");
        }
    }
    TrajectoryNode node;
    std::array<double, kTumFields> pose{};
    std::copy_n(numbers.begin(), kTumFields, pose.begin());
    if (exported_) {
        // Scalar first there, last in TUM files.
        std::rotate(pose.begin() + 4, pose.begin() + 5, pose.end());
    }
    if (ErrorPtr error = setPose(pose, node)) {
        return error;
    }
    nodes_.push_back(node);
    nodeLines_.push_back(lines_.line());
    return nullptr;
}

ErrorPtr TrajectoryParser::setPose(const std::array<double, kTumFields>& values,
                                   TrajectoryNode& node) {
    const auto [time, x, y, z, qx, qy, qz, qw] = values;
    const double length = std::sqrt(qx * qx + qy * qy + qz * qz + qw * qw);
    if (!(length >= kShortestQuaternion && length <= kLongestQuaternion)) {
        return lines_.fault(ErrorCode::InvalidValue,
                            "a quaternion of length " + numberText(length, 3), "length 1");
    }
    const double deviation = std::abs(length - 1.0);
    if (deviation > kUnitLengthTolerance) {
        offUnit_.add(lines_.line(), deviation);
    }
    setRotation(node.pose, {qw / length, qx / length, qy / length, qz / length});
    Tq_1_1::Vec3d<double> position{x, y, z};
    if (project_ != nullptr) {
        position = position - project_->chooseOrigin(position);
    }
    node.time = time;
    node.pose[12] = position.x;
    node.pose[13] = position.y;
    node.pose[14] = position.z;
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

void TrajectoryParser::reportTimes(std::vector<std::string>& lines) const {
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
    if (back.count != 0) {
        lines.push_back(countText(back.count, "time") +
                        " before the time of the line above, by up to " +
                        numberText(back.extreme, 6) + " s" + back.where());
    }
    if (repeated.count != 0) {
        lines.push_back(countText(repeated.count, "time") + " equal to the time of the line above" +
                        repeated.where());
    }
    if (jumps.count != 0) {
        lines.push_back(countText(jumps.count, "gap") + " of up to " +
                        numberText(jumps.extreme, 6) + " s, above 10 x the median step of " +
                        numberText(median, 6) + " s" + jumps.where());
    }
}

std::vector<std::string> TrajectoryParser::findings() const {
    std::vector<std::string> lines;
    if (nodes_.empty()) {
        lines.emplace_back("no pose in the file");
    }
    if (offUnit_.count != 0) {
        lines.push_back(countText(offUnit_.count, "quaternion") +
                        " brought to unit length, off by up to " + numberText(offUnit_.extreme, 3) +
                        offUnit_.where());
    }
    reportTimes(lines);
    for (std::string& line : lines) {
        line.insert(0, lines_.fileName() + ": ");
    }
    return lines;
}

}  // namespace

ErrorPtr readTrajectoryFile(const std::filesystem::path& file, ScanProject* project,
                            std::vector<TrajectoryNode>& nodes, Remarks& remarks) {
    TrajectoryParser parser(project);
    if (ErrorPtr error = parser.read(file)) {
        return error;
    }
    for (const std::string& line : parser.findings()) {
        remarks.warn(line);
    }
    nodes = std::move(parser.nodes());
    return nullptr;
}

TrajectoryFormat trajectoryFormat() {
    return {{"txt", "tum"}, readTrajectoryFile};
}

}  // namespace Ovr::Formats
