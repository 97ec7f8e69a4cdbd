// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "Ovr/ProjectFile.h"
#include "Ovr/ScanFormat.h"
#include "project/JsonMembers.h"

namespace Ovr::Formats {

/// Reads the scans of one project file and checks them, each and against each other. Faults are
/// kept by the JSON file; a scan with a fault is not to be used.
class ProjectScanReader {
  public:
    /// @param folder  that relative paths start from
    ProjectScanReader(JsonFile& json, std::filesystem::path folder)
        : json_(json), folder_(std::move(folder)) {}

    ProjectScan read(const Json::Value& value);

  private:
    void readKind(JsonMembers& members, ProjectScan& scan);
    void readName(JsonMembers& members, ProjectScan& scan);
    void readFiles(JsonMembers& members, ProjectScan& scan);
    void checkFormat(const Json::Value& points, const ProjectScan& scan);
    void readIndex(JsonMembers& members, ProjectScan& scan);
    const std::vector<ScanListing>& scansOf(const Json::Value& at,
                                            const std::filesystem::path& points);
    template <typename Named, typename Entries>
    auto readNamed(JsonMembers& members, const char* key, Named named, const Entries& entries)
        -> decltype(named({}));
    void readClock(JsonMembers& members, ProjectScan& scan);
    void readScanner(JsonMembers& members, ProjectScan& scan);
    void readRecording(JsonMembers& members, ProjectScan& scan);
    void readPose(JsonMembers& members, ProjectScan& scan);
    std::filesystem::path existingFile(const Json::Value& value);
    void refuseUnlessKind(JsonMembers& members, const char* key, const ProjectScan& scan,
                          ProjectScanKind kind);

    JsonFile& json_;
    std::filesystem::path folder_;
    std::set<std::string> names_;
    /// Of points files, each listed once.
    std::map<std::filesystem::path, std::vector<ScanListing>> listings_;
};

}  // namespace Ovr::Formats
