// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "project/ProjectReader.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <map>
#include <set>
#include <string_view>
#include <utility>

#include "kit/InputFile.h"
#include "kit/TextFields.h"
#include "project/JsonFile.h"

namespace Ovr::Formats {

using Interfaces::ErrorCode;
namespace fs = std::filesystem;

namespace {

// Some ten thousand scans; the parsed form takes up to fifty times as much memory.
constexpr std::uint64_t kLargestFile = 4U << 20U;

// [s] The year 10000, in seconds since 1970. A recording time of 0 says that it is unknown.
constexpr double kLatestRecording = 253402300800.0;

// How far lengths and angles of a pose's axes may be off: poses are written with few digits.
constexpr double kAxisTolerance = 1e-3;

struct UnitName {
    std::string_view name;
    TimeUnit unit;
};

constexpr UnitName kUnitNames[] = {
    {"s", TimeUnit::Seconds},
    {"ms", TimeUnit::Milliseconds},
    {"us", TimeUnit::Microseconds},
    {"ns", TimeUnit::Nanoseconds},
};

fs::path toPath(const std::string& utf8) {
    return std::u8string(utf8.begin(), utf8.end());
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

/// Reads the scans of one project file. Faults are kept by the JSON file.
class ProjectReader {
  public:
    ProjectReader(JsonFile& json, fs::path folder) : json_(json), folder_(std::move(folder)) {}

    void readProject(ProjectFile& project);

  private:
    bool readVersion(JsonMembers& members, ProjectFile& project);
    ProjectScan readScan(const Json::Value& value);
    void readKind(JsonMembers& members, ProjectScan& scan);
    void readName(JsonMembers& members, ProjectScan& scan);
    void readFiles(JsonMembers& members, ProjectScan& scan);
    void checkFormat(const Json::Value& points, const ProjectScan& scan);
    void readIndex(JsonMembers& members, ProjectScan& scan);
    const std::vector<ScanListing>& scansOf(const Json::Value& at, const fs::path& points);
    void readClock(JsonMembers& members, ProjectScan& scan);
    void readScanner(JsonMembers& members, ProjectScan& scan);
    void readRecording(JsonMembers& members, ProjectScan& scan);
    void readPose(JsonMembers& members, ProjectScan& scan);
    fs::path existingFile(const Json::Value& value);
    void refuseUnlessKind(JsonMembers& members, const char* key, const ProjectScan& scan,
                          ProjectScanKind kind);

    JsonFile& json_;
    fs::path folder_;  // that relative paths start from
    std::set<std::string> names_;
    std::map<fs::path, std::vector<ScanListing>> listings_;  // of points files, each listed once
};

void ProjectReader::readProject(ProjectFile& project) {
    JsonMembers members(json_, json_.root());
    if (!readVersion(members, project)) {
        return;
    }
    const Json::Value* const scans = members.require("scans");
    if (scans != nullptr && (!scans->isArray() || scans->empty())) {
        json_.fail(*scans, describeValue(json_, *scans), "an array of at least one scan");
    }
    if (json_.failed()) {
        return;
    }
    project.scans.reserve(scans->size());
    for (const Json::Value& value : *scans) {
        project.scans.push_back(readScan(value));
        if (json_.failed()) {
            return;
        }
    }
    members.warnOfOthers();
    project.warnings = json_.warnings();
}

/// Read before anything else: a newer version may mean other things by the same fields.
bool ProjectReader::readVersion(JsonMembers& members, ProjectFile& project) {
    std::optional<std::uint32_t> version;
    const Json::Value* const value = members.require("version");
    members.get("version", version);
    if (json_.failed()) {
        return false;
    }
    if (*version == 0 || *version > ProjectFile::kVersion) {
        json_.fail(*value, "version " + std::to_string(*version),
                   *version == 0 ? "version 1 or newer"
                                 : "at most version " + std::to_string(ProjectFile::kVersion),
                   *version == 0 ? ErrorCode::InvalidValue : ErrorCode::NewerVersion);
        return false;
    }
    project.version = static_cast<int>(*version);
    return true;
}

ProjectScan ProjectReader::readScan(const Json::Value& value) {
    ProjectScan scan;
    JsonMembers members(json_, value);
    readKind(members, scan);
    readName(members, scan);
    readFiles(members, scan);
    readClock(members, scan);
    readScanner(members, scan);
    readRecording(members, scan);
    readPose(members, scan);
    members.warnOfOthers();
    return scan;
}

void ProjectReader::readKind(JsonMembers& members, ProjectScan& scan) {
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

void ProjectReader::readName(JsonMembers& members, ProjectScan& scan) {
    members.require("name", scan.name);
    if (!json_.failed() && !names_.insert(scan.name).second) {
        json_.fail(*members.find("name"), "the name " + inQuotes(scan.name) + " a second time",
                   "names that differ");
    }
}

void ProjectReader::readFiles(JsonMembers& members, ProjectScan& scan) {
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

void ProjectReader::checkFormat(const Json::Value& points, const ProjectScan& scan) {
    if (json_.failed()) {
        return;
    }
    const auto format = FormatRegistry::the().find(scan.points);
    if (!format) {
        json_.fail(points, inQuotes(points.asString()),
                   "a points file: " + FormatRegistry::the().knownExtensions(),
                   ErrorCode::Unsupported);
    } else if (format->classIdentifier() != scan.classIdentifier()) {
        const bool mobile = scan.kind == ProjectScanKind::Mobile;
        json_.fail(points, inQuotes(points.asString()) + ", whose scans are of the other kind",
                   mobile ? "a file of mobile scans" : "a file of stationary scans");
    }
}

/// The first scan of a file begins at its start; only further ones have to be looked for.
void ProjectReader::readIndex(JsonMembers& members, ProjectScan& scan) {
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
                   "less than the number of scans in " + inQuotes(scan.points.string()) + ", " +
                       std::to_string(scans.size()));
        return;
    }
    scan.byteOffset = scans[scan.scanIndex].source.byteOffset;
    scan.line = scans[scan.scanIndex].source.line;
}

const std::vector<ScanListing>& ProjectReader::scansOf(const Json::Value& at,
                                                       const fs::path& points) {
    const auto [entry, added] = listings_.try_emplace(points);
    if (added) {
        if (const ErrorPtr error = listScans(points, entry->second)) {
            json_.fail(at, "a points file that is wrong (" + error->message() + ")", "",
                       error->code());
        }
    }
    return entry->second;
}

/// @return the path of a file that can be read; else empty, with a fault
fs::path ProjectReader::existingFile(const Json::Value& value) {
    const auto name = readText(json_, value);
    if (!name) {
        return {};
    }
    fs::path path = folder_ / toPath(*name);
    if (const ErrorPtr error = checkReadable(path)) {
        json_.fail(value, inQuotes(*name) + " (" + error->message() + ")",
                   "a file, from the project file's folder on", error->code());
        return {};
    }
    return path;
}

void ProjectReader::readClock(JsonMembers& members, ProjectScan& scan) {
    refuseUnlessKind(members, "clock", scan, ProjectScanKind::Mobile);
    const Json::Value* const value = members.find("clock");
    if (value == nullptr || json_.failed()) {
        return;
    }
    JsonMembers clock(json_, *value);
    ClockSettings settings;
    std::optional<std::string> unit;
    clock.get("unit", unit);
    if (unit) {
        const auto* const named =
            std::find_if(std::begin(kUnitNames), std::end(kUnitNames),
                         [&unit](const UnitName& entry) { return entry.name == *unit; });
        if (named == std::end(kUnitNames)) {
            json_.fail(*clock.find("unit"), inQuotes(*unit), "'s', 'ms', 'us' or 'ns'");
            return;
        }
        settings.unit = named->unit;
    }
    std::optional<double> offset;
    clock.get("offset", offset);
    settings.offset = offset.value_or(0.0);
    clock.warnOfOthers();
    scan.clock = settings;
}

void ProjectReader::readScanner(JsonMembers& members, ProjectScan& scan) {
    members.get("scannerModel", scan.scannerModel);
    members.get("serialNumber", scan.serialNumber);
    members.get("firmware", scan.firmware);
    members.get("software", scan.software);
    members.get("vendor", scan.vendor);
}

void ProjectReader::readRecording(JsonMembers& members, ProjectScan& scan) {
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

void ProjectReader::readPose(JsonMembers& members, ProjectScan& scan) {
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

void ProjectReader::refuseUnlessKind(JsonMembers& members, const char* key, const ProjectScan& scan,
                                     ProjectScanKind kind) {
    if (members.has(key) && scan.kind != kind) {
        const bool stance = scan.kind == ProjectScanKind::Stance;
        json_.fail(*members.find(key),
                   std::string("the field ") + inQuotes(key) + " of a " +
                       (stance ? "stance" : "mobile") + " scan",
                   std::string("it with ") + (stance ? "mobile scans" : "stances") + " only");
    }
}

}  // namespace

ErrorPtr readProjectFile(const fs::path& file, ProjectFile& project) {
    JsonFile json;
    if (!json.read(file, kLargestFile)) {
        return json.takeError();
    }
    ProjectFile read;
    read.file = file;
    ProjectReader(json, file.parent_path()).readProject(read);
    if (!json.failed()) {
        project = std::move(read);
    }
    return json.takeError();
}

ProjectFormat projectFormat() {
    const auto beginsAsObject = [](std::string_view beginning) {
        if (beginning.starts_with("\xEF\xBB\xBF")) {
            beginning.remove_prefix(3);
        }
        return beginning.substr(0, beginning.find_first_not_of(" \t\r\n") + 1).ends_with('{');
    };
    return {{"json"}, beginsAsObject, readProjectFile};
}

}  // namespace Ovr::Formats
