// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "project/ProjectScanReader.h"

#include <date/date.h>
#include <fmt/format.h>

#include <array>
#include <chrono>
#include <cmath>
#include <cstddef>
#include <optional>
#include <string_view>
#include <utility>

#include "Ovr/FormatRegistry.h"
#include "Tq/Path.h"
#include "kit/TextFields.h"

namespace Ovr::Formats {

using Interfaces::ErrorCode;
namespace fs = std::filesystem;

namespace {

// [s] since 1970, as recording times are. One of 0 says that it is unknown.
constexpr auto kLatestRecording = static_cast<double>(
    std::chrono::seconds(date::sys_days(date::year(10000) / date::January / 1).time_since_epoch())
        .count());

// How far lengths and angles of a pose's axes may be off: poses are written with few digits.
constexpr double kAxisTolerance = 1e-3;

/// "'s', 'ms' or 'us'"
template <typename Entries>
std::string namesOf(const Entries& entries) {
    std::string names;
    for (const auto& entry : entries) {
        const bool last = &entry == &entries.back();
        names += fmt::format("{}'{}'", names.empty() ? "" : last ? " or " : ", ", entry.name);
    }
    return names;
}

/// Finds what stands in the way of a matrix being the pose of a scanner; empty when nothing does.
std::string faultOfPose(const std::array<double, 16>& m) {
    if (m[3] != 0.0 || m[7] != 0.0 || m[11] != 0.0 || m[15] != 1.0) {
        return "a matrix whose values 3, 7, 11 and 15 are not 0, 0, 0 and 1";
    }
    const auto dot = [&m](std::size_t a, std::size_t b) {
        return m[4 * a] * m[4 * b] + m[4 * a + 1] * m[4 * b + 1] + m[4 * a + 2] * m[4 * b + 2];
    };
    for (std::size_t a = 0; a < 3; ++a) {
        for (std::size_t b = a; b < 3; ++b) {
            if (std::abs(dot(a, b) - (a == b ? 1.0 : 0.0)) > kAxisTolerance) {
                return "a matrix whose axes are not at right angles or not of length 1";
            }
        }
    }
    const double handedness = (m[0] * m[5] - m[1] * m[4]) * m[10] +
                              (m[1] * m[6] - m[2] * m[5]) * m[8] +
                              (m[2] * m[4] - m[0] * m[6]) * m[9];
    return handedness > 0.0 ? "" : "a matrix that mirrors";
}

}  // namespace

ProjectScan ProjectScanReader::read(const Json::Value& value) {
    ProjectScan scan;
    JsonMembers members(json_, value);
    readKind(members, scan);
    readName(members, scan);
    readFiles(members, scan);
    readClock(members, scan);
    readScanner(members, scan);
    readRecording(members, scan);
    readPose(members, scan);
    members.noteOthers();
    return scan;
}

void ProjectScanReader::readKind(JsonMembers& members, ProjectScan& scan) {
    std::string kind;
    members.require("kind", kind);
    if (json_.failed()) {
        return;
    }
    if (kind != "stance" && kind != "mobile") {
        json_.fail(*members.find("kind"), inQuotes(kind), "'stance' or 'mobile'");
    }
    scan.kind = kind == "mobile" ? ProjectScanKind::Mobile : ProjectScanKind::Stance;
}

void ProjectScanReader::readName(JsonMembers& members, ProjectScan& scan) {
    members.require("name", scan.name);
    if (!json_.failed() && !names_.insert(scan.name).second) {
        json_.fail(*members.find("name"),
                   fmt::format("the name {} a second time", inQuotes(scan.name)),
                   "names that differ");
    }
}

void ProjectScanReader::readFiles(JsonMembers& members, ProjectScan& scan) {
    if (const Json::Value* points = members.require("points")) {
        scan.points = existingFile(*points);
        checkFormat(*points, scan);
    }
    readIndex(members, scan);
    refuseUnlessKind(members, "trajectory", scan, ProjectScanKind::Mobile);
    if (const Json::Value* trajectory = members.find("trajectory")) {
        scan.trajectory = existingFile(*trajectory);
    }
}

void ProjectScanReader::checkFormat(const Json::Value& points, const ProjectScan& scan) {
    if (json_.failed()) {
        return;
    }
    const auto format = FormatRegistry::the().find(scan.points);
    if (!format) {
        json_.fail(points, inQuotes(points.asString()),
                   fmt::format("a points file: {}", FormatRegistry::the().knownExtensions()),
                   ErrorCode::Unsupported);
    } else if (format->classIdentifier() != scan.classIdentifier()) {
        const bool mobile = scan.kind == ProjectScanKind::Mobile;
        json_.fail(
            points,
            fmt::format("{}, whose scans are of the other kind", inQuotes(points.asString())),
            mobile ? "a file of mobile scans" : "a file of stationary scans");
    }
}

/// The first scan of a file begins at its start; only further ones have to be looked for.
void ProjectScanReader::readIndex(JsonMembers& members, ProjectScan& scan) {
    std::optional<std::uint32_t> index;
    members.get("index", index);
    scan.scanIndex = index.value_or(0);
    if (scan.scanIndex == 0 || json_.failed()) {
        return;
    }
    const Json::Value& value = *members.find("index");
    const auto& scans = scansOf(value, scan.points);
    if (json_.failed()) {
        return;
    }
    if (scan.scanIndex >= scans.size()) {
        json_.fail(value, describeValue(json_, value),
                   fmt::format("less than the number of scans in {}, {}",
                               inQuotes(scan.points.string()), scans.size()));
        return;
    }
    scan.byteOffset = scans[scan.scanIndex].source.byteOffset;
    scan.line = scans[scan.scanIndex].source.line;
}

const std::vector<ScanListing>& ProjectScanReader::scansOf(const Json::Value& at,
                                                           const fs::path& points) {
    const auto [entry, added] = listings_.try_emplace(points);
    if (added) {
        if (const ErrorPtr error = listScans(points, entry->second)) {
            json_.fail(at, fmt::format("a points file that is wrong ({})", error->message()), "",
                       error->code());
        }
    }
    return entry->second;
}

/// @return the path of a file that can be read; else empty, with a fault
fs::path ProjectScanReader::existingFile(const Json::Value& value) {
    const auto name = readText(json_, value);
    if (!name) {
        return {};
    }
    fs::path path = folder_ / Tq_1_1::pathFromUtf8(*name);
    if (const ErrorPtr error = checkReadable(path)) {
        json_.fail(value, fmt::format("{} ({})", inQuotes(*name), error->message()),
                   "a file, from the project file's folder on", error->code());
        return {};
    }
    return path;
}

/// Reads a member that names one of a few things.
/// @return empty without the member, and with a fault for any other name
template <typename Named, typename Entries>
auto ProjectScanReader::readNamed(JsonMembers& members, const char* key, Named named,
                                  const Entries& entries) -> decltype(named({})) {
    std::optional<std::string> name;
    members.get(key, name);
    const auto found = name ? named(*name) : std::nullopt;
    if (name && !found) {
        json_.fail(*members.find(key), inQuotes(*name), namesOf(entries));
    }
    return found;
}

void ProjectScanReader::readClock(JsonMembers& members, ProjectScan& scan) {
    refuseUnlessKind(members, "clock", scan, ProjectScanKind::Mobile);
    const Json::Value* const value = members.find("clock");
    if (value == nullptr || json_.failed()) {
        return;
    }
    JsonMembers clock(json_, *value);
    ClockSettings settings;
    settings.unit = readNamed(clock, "unit", timeUnitNamed, kTimeUnits).value_or(settings.unit);
    settings.trajectoryUnit = readNamed(clock, "trajectoryUnit", timeUnitNamed, kTimeUnits);
    settings.points = readNamed(clock, "points", clockNamed, kClocks);
    settings.trajectory = readNamed(clock, "trajectory", clockNamed, kClocks);
    clock.get("week", settings.week);
    std::optional<double> offset;
    clock.get("offset", offset);
    settings.offset = offset.value_or(0.0);
    if (lacksWeek(settings) && !json_.failed()) {
        json_.fail(*value, "'gps-week' next to another clock and no week", "the field 'week'");
    }
    clock.noteOthers();
    scan.clock = settings;
}

void ProjectScanReader::readScanner(JsonMembers& members, ProjectScan& scan) {
    members.get("scannerModel", scan.scannerModel);
    members.get("serialNumber", scan.serialNumber);
    members.get("firmware", scan.firmware);
    members.get("software", scan.software);
    members.get("vendor", scan.vendor);
}

void ProjectScanReader::readRecording(JsonMembers& members, ProjectScan& scan) {
    members.get("recordingTime", scan.recordingTime);
    if (scan.recordingTime &&
        !(*scan.recordingTime > 0 && *scan.recordingTime < kLatestRecording)) {
        const Json::Value& value = *members.find("recordingTime");
        json_.fail(value, describeValue(json_, value),
                   "seconds since 1970: more than 0, before the year 10000");
    }
    std::optional<std::string> session;
    members.get("sessionId", session);
    if (session) {
        scan.sessionId = uuids::uuid::fromString(*session);
        if (!scan.sessionId) {
            json_.fail(*members.find("sessionId"), inQuotes(*session),
                       "a UUID such as '01234567-89ab-cdef-0123-456789abcdef'");
        }
    }
}

void ProjectScanReader::readPose(JsonMembers& members, ProjectScan& scan) {
    refuseUnlessKind(members, "slamPose", scan, ProjectScanKind::Stance);
    const Json::Value* const value = members.find("slamPose");
    if (value == nullptr || json_.failed()) {
        return;
    }
    std::array<double, 16> pose{};
    if (!value->isArray() || value->size() != pose.size()) {
        json_.fail(*value, describeValue(json_, *value), "an array of 16 numbers");
        return;
    }
    for (Json::ArrayIndex i = 0; i < pose.size(); ++i) {
        pose[i] = readNumber(json_, (*value)[i]).value_or(0.0);
    }
    const std::string fault = faultOfPose(pose);
    if (!fault.empty()) {
        json_.fail(*value, fault, "a rotation and a translation, column by column");
        return;
    }
    scan.slamPose = pose;
}

void ProjectScanReader::refuseUnlessKind(JsonMembers& members, const char* key,
                                         const ProjectScan& scan, ProjectScanKind kind) {
    if (members.has(key) && scan.kind != kind) {
        const bool stance = scan.kind == ProjectScanKind::Stance;
        json_.fail(
            *members.find(key),
            fmt::format("the field {} of a {} scan", inQuotes(key), stance ? "stance" : "mobile"),
            fmt::format("it with {} only", stance ? "mobile scans" : "stances"));
    }
}

}  // namespace Ovr::Formats
