// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "sample/SampleFiles.h"

#include <algorithm>
#include <array>
#include <sstream>
#include <system_error>

#include <fmt/format.h>

#include <json/json.h>

#include "kit/AtomicFile.h"
#include "las/LasWriter.h"
#include "ptx/PtxWriter.h"

#include "report/Failure.h"
#include "report/NumberText.h"
#include "report/Report.h"
#include "sample/House.h"
#include "sample/SampleScan.h"
#include "session/Interrupt.h"
#include "session/Require.h"

namespace ScanHost::Sample {

namespace fs = std::filesystem;

namespace {

using Ovr::Formats::Existing;

constexpr double kFullReflection = 65535.0;
constexpr const char* kSession = "6d1f0c52-7a0e-4c6b-9d7e-2f6f4c1a9b30";
// 2026-05-11 01:59:42 UTC, the Unix time of kWalkStart; the stances were taken before the walk.
constexpr double kWalkRecorded = 1778464782.0;
constexpr double kStanceLead = 300.0;

constexpr const char* kRoomA = "room-a.ptx";
constexpr const char* kRoomB = "room-b.ptx";
constexpr const char* kWalk = "walk.las";
constexpr const char* kPath = "walk.txt";
constexpr const char* kProject = "project.json";
constexpr std::array kNames{kRoomA, kRoomB, kWalk, kPath, kProject};

void writeText(const std::filesystem::path& file, Existing existing, const std::string& text) {
    Ovr::Formats::AtomicFile output;
    requireOk(output.open(file, existing));
    output.stream() << text;
    requireOk(output.commit());
}

void writeStance(const std::filesystem::path& file, Existing existing, const StanceScan& scan) {
    Ovr::Formats::PtxWriter writer;
    requireOk(writer.open(file, existing));
    Ovr::Formats::PtxScan header;
    header.columns = static_cast<int>(scan.cols);
    header.rows = static_cast<int>(scan.rows);
    header.pose = scan.pose.values;
    header.colored = true;
    requireOk(writer.beginScan(header));
    for (std::size_t col = 0; col < scan.cols; ++col) {
        Interrupt::check();
        for (std::size_t row = 0; row < scan.rows; ++row) {
            const StanceScan::Cell& cell = scan.cells[row * scan.cols + col];
            const Return& value = cell.value;
            requireOk(
                cell.hasReturn
                    ? writer.write({value.point, value.reflection / kFullReflection, value.color})
                    : writer.writeNoReturn());
        }
    }
    requireOk(writer.finish());
}

void writeWalk(const std::filesystem::path& file, Existing existing, const WalkScan& scan) {
    Ovr::Formats::LasWriterSettings settings;
    settings.expectedCount = scan.points.size();
    settings.colored = true;
    settings.existing = existing;
    settings.offset = {House::kCorner.x, House::kCorner.y, House::kCorner.z};
    settings.adjustedTime = true;
    settings.systemIdentifier = "Simulated walk";
    settings.generatingSoftware = "scanhost sample";
    Ovr::Formats::LasWriter writer;
    requireOk(writer.open(file, settings));
    for (const WalkScan::Point& point : scan.points) {
        Ovr::Formats::LasPoint las;
        las.position = point.value.point;
        las.intensity = point.value.reflection;
        std::transform(point.value.color.begin(), point.value.color.end(), las.color.begin(),
                       Ovr::Formats::wideChannel);
        las.time = point.time;
        requireOk(writer.write(las));
    }
    Interrupt::check();
    requireOk(writer.finish());
}

std::string trajectoryText(const WalkScan& scan) {
    constexpr int kTimeDigits = 6;
    constexpr int kMetreDigits = 6;
    constexpr int kRotationDigits = 9;
    std::string text = "# time x y z qx qy qz qw\n";
    for (const WalkScan::Node& node : scan.nodes) {
        text += fixedText(node.time, kTimeDigits);
        for (std::size_t i = 0; i < 3; ++i) {
            text += ' ' + fixedText(node.position[i], kMetreDigits);
        }
        for (const double value :
             {node.rotation.x, node.rotation.y, node.rotation.z, node.rotation.w}) {
            text += ' ' + fixedText(value, kRotationDigits);
        }
        text += '\n';
    }
    return text;
}

Json::Value projectScan(const std::string& kind, const std::string& name, const std::string& points,
                        double recorded) {
    Json::Value scan;
    scan["kind"] = kind;
    scan["name"] = name;
    scan["points"] = points;
    scan["scannerModel"] = "Simulated scanner";
    scan["serialNumber"] = "SIM-0001";
    scan["firmware"] = "1.0";
    scan["software"] = "scanhost sample";
    scan["vendor"] = "VardexScandata";
    scan["recordingTime"] = recorded;
    scan["sessionId"] = kSession;
    return scan;
}

std::string projectText() {
    Json::Value walk = projectScan("mobile", "Walk through both rooms", kWalk, kWalkRecorded);
    walk["trajectory"] = kPath;
    Json::Value project;
    project["version"] = 1;
    project["scans"].append(
        projectScan("stance", "Room A", kRoomA, kWalkRecorded - 2 * kStanceLead));
    project["scans"].append(
        projectScan("stance", "Room B", kRoomB, kWalkRecorded - kStanceLead));
    project["scans"].append(walk);
    std::ostringstream text;
    writeJson(text, project);
    return text.str();
}

std::string describe(const StanceScan& scan) {
    const auto empty = std::count_if(scan.cells.begin(), scan.cells.end(),
                                     [](const StanceScan::Cell& cell) { return !cell.hasReturn; });
    return fmt::format("a stance of {} x {} cells, {} without a return", scan.rows, scan.cols,
                       empty);
}

}  // namespace

std::vector<SampleFile> writeSample(const std::filesystem::path& folder,
                                    const OutputRules& rules) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error) {
        throw Failure(
            fmt::format("{}: the folder cannot be made: {}", folder.string(), error.message()));
    }
    // Before any of them is written: a sample of old and new files would not fit together.
    for (const char* name : kNames) {
        rules.check({folder / name, {fs::path(name).extension()}});
    }
    const Existing existing = rules.existing();
    std::vector<SampleFile> files;
    for (int number = 0; number < 2; ++number) {
        const StanceScan scan = simulateStance(number);
        files.push_back({folder / (number == 0 ? kRoomA : kRoomB), describe(scan)});
        writeStance(files.back().file, existing, scan);
    }
    const WalkScan walk = simulateWalk();
    files.push_back({folder / kWalk, fmt::format("a walk of {} s, {}", fixedText(kWalkDuration, 0),
                                                 countText(walk.points.size(), "point", "points"))});
    writeWalk(files.back().file, existing, walk);
    files.push_back(
        {folder / kPath, "its trajectory, " + countText(walk.nodes.size(), "pose", "poses")});
    writeText(files.back().file, existing, trajectoryText(walk));
    files.push_back({folder / kProject, "the project that lists them"});
    writeText(files.back().file, existing, projectText());
    return files;
}

}  // namespace ScanHost::Sample
