// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "session/ProjectImport.h"

#include <memory>
#include <optional>

#include <fmt/format.h>

#include "Hx/ErrorConversion.h"
#include "Ovr/FormatRegistry.h"
#include "Ovr/Origin.h"
#include "Tq/File.h"

#include "report/Failure.h"
#include "report/NumberText.h"
#include "session/Require.h"
#include "stance/CorvinStancePointSet.h"

namespace ScanHost {

namespace {

using Ovr::ProjectScan;

template <typename Setter>
void setText(Vardex::CorvinPointSet& points, Setter set, const std::optional<std::string>& text) {
    if (text) {
        (points.*set)(Tq_1_1::String::fromUtf8(*text));
    }
}

/// Hands what the project says of a scan to the module.
void setMetadata(const ProjectScan& said, Vardex::CorvinPointSet& points) {
    using Points = Vardex::CorvinPointSet;
    setText(points, &Points::setScannerModel, said.scannerModel);
    setText(points, &Points::setScannerSerialNo, said.serialNumber);
    setText(points, &Points::setScannerFirmware, said.firmware);
    setText(points, &Points::setScannerSoftware, said.software);
    setText(points, &Points::setScannerVendor, said.vendor);
    if (said.recordingTime) {
        points.setRecordingTime(*said.recordingTime);
    }
    if (said.sessionId) {
        points.setRecordingSessionId(Hx::Uuid(*said.sessionId));
    }
    points.updateCachedMetaData();
}

void setPose(const ProjectScan& said, const ImportedScan& scan, Console& console) {
    const auto stance = std::dynamic_pointer_cast<Vardex::CorvinStancePointSet>(scan.pointSet);
    if (!stance || !said.slamPose) {
        return;
    }
    const Tq_1_1::Mat4d<double> pose{*said.slamPose};
    const Tq_1_1::Mat4d<double> ofFile = stance->getSlamPose();
    if (ofFile == Tq_1_1::Mat4d<double>::identity()) {
        stance->setSlamPose(pose);
        place(scan, console);
    } else if (!(ofFile == pose)) {
        console.warn(
            fmt::format("{}: the pose of the points file is kept; the project says another one",
                        scan.source.file.string()));
    }
}

/// What a project says of those of its scans that the options choose.
std::vector<ProjectScan> scansOf(const Vardex::VardexDataObj& project, const ScanOptions& options) {
    return chosenScans(project.getProject()->scans, project.getFilePath().toUtf8(), options);
}

void requireOne(std::size_t scans, const std::string& file) {
    if (scans != 1) {
        throw unexpected(file, countText(scans, "scan", "scans"), "one: choose it with --scan N");
    }
}

}  // namespace

Tq_1_1::SmartPtr<Vardex::VardexDataObj> openProject(ModuleSession& session, Console& console,
                                                    const std::string& file) {
    requireUtf8(file);
    if (console.aliased(file) != file) {
        throw unexpected(file, "a project, whose files lie next to it", "points");
    }
    const std::shared_ptr<Tq_1_1::File> name =
        Tq_1_1::File::fromString(Tq_1_1::String::fromUtf8(file));
    Tq_1_1::SmartPtr<Vardex::VardexDataObj> project;
    Hx::clearLastErrorMessage();
    const int result = Vardex::VardexDataObj::createFromImportedKpx(name, project);
    if (!project) {
        requireOk(result, file);
        throw Failure(file + ": the module made no object of it");
    }
    if (project->getProject()) {
        console.warn(project->getProject()->warnings);
    }
    static_cast<void>(session.root().addChild(project));  // new, so it has no parent yet
    return project;
}

std::vector<ImportedScan> importProject(Vardex::VardexDataObj& project, ScanImporter& importer,
                                        const ScanOptions& options, Console& console,
                                        Content content) {
    std::vector<Ovr::ScanListing> all;
    for (const ProjectScan& said : project.getProject()->scans) {
        all.push_back(said.listing(importer.project()));
    }
    Ovr::chooseOrigin(all);
    std::vector<ImportedScan> scans;
    for (const ProjectScan& said : scansOf(project, options)) {
        ImportedScan scan =
            importer.import(said.listing(importer.project()), options, project, content);
        setMetadata(said, *scan.pointSet);
        setPose(said, scan, console);
        scans.push_back(std::move(scan));
    }
    return scans;
}

Ovr::ScanListing findOne(ModuleSession& session, Console& console, const ScanOptions& options) {
    ScanImporter importer(session, console);
    const std::string& file = options.files.front();
    std::vector<Ovr::ScanListing> scans;
    if (Ovr::FormatRegistry::the().isProject(file)) {
        for (const ProjectScan& said : scansOf(*openProject(session, console, file), options)) {
            scans.push_back(said.listing(importer.project()));
        }
    } else {
        scans = importer.list(file, options);
    }
    requireOne(scans.size(), file);
    scans.front().source = withOptions(std::move(scans.front().source), options);
    return std::move(scans.front());
}

ImportedScan importOne(ModuleSession& session, Console& console, const ScanOptions& options,
                       Content content) {
    ScanImporter importer(session, console);
    const std::string& file = options.files.front();
    if (Ovr::FormatRegistry::the().isProject(file)) {
        const auto project = openProject(session, console, file);
        requireOne(scansOf(*project, options).size(), file);
        return importProject(*project, importer, options, console, content).front();
    }
    const std::vector<Ovr::ScanListing> scans = importer.list(file, options);
    requireOne(scans.size(), file);
    return importer.import(scans.front(), options, session.root(), content);
}

}  // namespace ScanHost
