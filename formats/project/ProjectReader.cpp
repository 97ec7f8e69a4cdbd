// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "project/ProjectReader.h"

#include <fmt/format.h>

#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>

#include "project/JsonMembers.h"
#include "project/ProjectScanReader.h"

namespace Ovr::Formats {

using Interfaces::ErrorCode;
namespace fs = std::filesystem;

namespace {

/// Read before anything else: a newer version may mean other things by the same fields.
/// @return whether it is a version that is read; else there is a fault
[[nodiscard]] bool readVersion(JsonFile& json, JsonMembers& members) {
    std::optional<std::uint32_t> version;
    const Json::Value* const value = members.require("version");
    members.get("version", version);
    if (json.failed()) {
        return false;
    }
    if (*version == 0 || *version > ProjectFile::kVersion) {
        json.fail(*value, fmt::format("version {}", *version),
                  *version == 0 ? std::string("version 1 or newer")
                                : fmt::format("at most version {}", ProjectFile::kVersion),
                  *version == 0 ? ErrorCode::InvalidValue : ErrorCode::NewerVersion);
        return false;
    }
    return true;
}

void readProject(JsonFile& json, ProjectFile& project) {
    JsonMembers members(json, json.root());
    if (!readVersion(json, members)) {
        return;
    }
    const Json::Value* const scans = members.require("scans");
    if (scans != nullptr && (!scans->isArray() || scans->empty())) {
        json.fail(*scans, describeValue(json, *scans), "an array of at least one scan");
    }
    if (json.failed()) {
        return;
    }
    ProjectScanReader reader(json, project.file.parent_path());
    project.scans.reserve(scans->size());
    for (const Json::Value& value : *scans) {
        project.scans.push_back(reader.read(value));
        if (json.failed()) {
            return;
        }
    }
    members.noteOthers();
}

}  // namespace

ErrorPtr readProjectFile(const fs::path& file, ProjectFile& project, Remarks& remarks) {
    JsonFile json;
    if (!json.read(file)) {
        return json.takeError();
    }
    ProjectFile read;
    read.file = file;
    readProject(json, read);
    if (!json.failed()) {
        json.remark(remarks);
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
