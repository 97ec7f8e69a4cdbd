// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Ovr/FormatRegistry.h"

#include <algorithm>
#include <fstream>
#include <system_error>
#include <utility>

#include "Tq/Path.h"

namespace Ovr {

using Interfaces::ErrorCode;
namespace fs = std::filesystem;

namespace {

bool hasExtension(const std::vector<std::string>& extensions, const fs::path& file) {
    return std::find(extensions.begin(), extensions.end(), Tq_1_1::lowerCaseExtension(file)) !=
           extensions.end();
}

/// The first bytes of a file; empty when it cannot be read.
std::string beginningOf(const fs::path& file) {
    std::error_code ignored;
    if (!fs::is_regular_file(file, ignored)) {
        return {};
    }
    std::string bytes(FormatRegistry::kBeginning, '\0');
    std::ifstream stream(file, std::ios::binary);
    stream.read(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(stream.gcount()));
    return bytes;
}

/// Brings nodes from world coordinates to those of a project. Requires: at least one node.
void countFromOrigin(ScanProject& project, std::vector<VardexLib::TrajectoryNode>& nodes) {
    const auto& first = nodes.front().pose;
    const Tq_1_1::Vec3d<double> origin = project.chooseOrigin({first[12], first[13], first[14]});
    for (VardexLib::TrajectoryNode& node : nodes) {
        for (std::size_t axis = 0; axis < 3; ++axis) {
            node.pose[12 + axis] = node.pose[12 + axis] - origin[axis];
        }
    }
}

}  // namespace

FormatRegistry& FormatRegistry::the() {
    static FormatRegistry registry;
    return registry;
}

bool FormatRegistry::add(std::shared_ptr<const IScanFormat> format) {
    const std::lock_guard guard(mutex_);
    const bool taken = std::any_of(formats_.begin(), formats_.end(), [&](const auto& known) {
        return known->name() == format->name();
    });
    if (!taken) {
        formats_.push_back(std::move(format));
    }
    return !taken;
}

bool FormatRegistry::remove(std::string_view name) {
    const std::lock_guard guard(mutex_);
    return std::erase_if(formats_, [&](const auto& known) { return known->name() == name; }) != 0;
}

std::vector<std::shared_ptr<const IScanFormat>> FormatRegistry::formats() const {
    const std::lock_guard guard(mutex_);
    return formats_;
}

std::shared_ptr<const IScanFormat> FormatRegistry::find(const fs::path& file) const {
    const auto known = formats();
    const std::string beginning = beginningOf(file);
    const auto first = [&known](const auto& isRight) {
        const auto found = std::find_if(known.begin(), known.end(), isRight);
        return found == known.end() ? nullptr : *found;
    };
    if (auto format = first([&](const auto& f) { return f->recognises(beginning); })) {
        return format;
    }
    return first([&](const auto& f) { return hasExtension(f->extensions(), file); });
}

std::string FormatRegistry::knownExtensions() const {
    std::vector<std::string> extensions;
    for (const auto& format : formats()) {
        for (std::string& extension : format->extensions()) {
            extensions.push_back(std::move(extension));
        }
    }
    std::sort(extensions.begin(), extensions.end());
    std::string text;
    for (const std::string& extension : extensions) {
        text += (text.empty() ? "." : ", .") + extension;
    }
    return text;
}

void FormatRegistry::setTrajectoryFormat(TrajectoryFormat format) {
    const std::lock_guard guard(mutex_);
    trajectory_ = std::move(format);
}

TrajectoryFormat FormatRegistry::trajectoryFormat() const {
    const std::lock_guard guard(mutex_);
    return trajectory_;
}

void FormatRegistry::setProjectFormat(ProjectFormat format) {
    const std::lock_guard guard(mutex_);
    project_ = std::move(format);
}

ProjectFormat FormatRegistry::projectFormat() const {
    const std::lock_guard guard(mutex_);
    return project_;
}

bool FormatRegistry::isProject(const fs::path& file) const {
    const ProjectFormat format = projectFormat();
    const std::string beginning = beginningOf(file);
    return (format.recognises && format.recognises(beginning)) ||
           hasExtension(format.extensions, file);
}

ErrorPtr FormatRegistry::readTrajectory(const fs::path& file, ScanProject* project,
                                        std::vector<VardexLib::TrajectoryNode>& nodes,
                                        Remarks& remarks, const TrajectoryReading& reading) const {
    const TrajectoryFormat format = trajectoryFormat();
    if (!format.read) {
        return makeError(ErrorCode::Unsupported,
                         {file.string(), "", "a trajectory, which nothing here reads", ""});
    }
    ErrorPtr error = format.read(file, reading, nodes, remarks);
    if (!error && project != nullptr && !nodes.empty()) {
        countFromOrigin(*project, nodes);
    }
    return error;
}

ErrorPtr FormatRegistry::readTrajectory(const IStructuredStreams& streams,
                                        std::vector<VardexLib::TrajectoryNode>& nodes,
                                        Remarks& remarks) const {
    const fs::path file = streams.trajectoryFile();
    ErrorPtr error =
        readTrajectory(file, streams.project().get(), nodes, remarks, streams.trajectoryReading());
    const auto begins = trajectoryFormat().begins;
    if (error && !streams.isNamed() && begins && !begins(file)) {
        remarks.warn(error->message() + "; no trajectory, although its name says so");
        nodes.clear();
        return nullptr;
    }
    return error;
}

ErrorPtr FormatRegistry::readProject(const fs::path& file, ProjectFile& project) const {
    const ProjectFormat format = projectFormat();
    if (!format.read) {
        return makeError(ErrorCode::Unsupported,
                         {file.string(), "", "a project, which nothing here reads", ""});
    }
    Remarks remarks;
    ErrorPtr error = format.read(file, project, remarks);
    if (!error) {
        project.warnings = remarks.warnings();
    }
    return error;
}

ErrorPtr unknownFormat(const fs::path& file) {
    const std::string extension = Tq_1_1::lowerCaseExtension(file);
    const std::string found =
        extension.empty() ? std::string("neither content of a known format nor an extension")
                          : "the unknown extension '." + extension + "'";
    return makeError(ErrorCode::WrongFormat,
                     {file.string(), "", found, FormatRegistry::the().knownExtensions()});
}

ErrorPtr checkReadable(const fs::path& file) {
    std::error_code failure;
    const fs::file_status status = fs::status(file, failure);
    if (status.type() == fs::file_type::not_found) {
        return makeError(ErrorCode::FileNotFound, {file.string(), "", "no such file", ""});
    }
    if (status.type() == fs::file_type::none) {
        return makeError(ErrorCode::CannotRead, {file.string(), "", failure.message(), ""});
    }
    if (fs::is_directory(status)) {
        return makeError(ErrorCode::IsDirectory, {file.string(), "", "a directory", "a file"});
    }
    if (!fs::is_regular_file(status)) {
        return makeError(ErrorCode::CannotRead,
                         {file.string(), "", "a device or pipe", "a regular file"});
    }
    if (fs::file_size(file, failure) == 0) {
        return makeError(ErrorCode::EmptyFile, {file.string(), "", "an empty file", ""});
    }
    return nullptr;
}

ErrorPtr listScans(const fs::path& file, std::vector<ScanListing>& scans, bool lenient) {
    if (ErrorPtr error = checkReadable(file)) {
        return error;
    }
    const auto format = FormatRegistry::the().find(file);
    return format ? format->list(file, lenient, scans) : unknownFormat(file);
}

}  // namespace Ovr
