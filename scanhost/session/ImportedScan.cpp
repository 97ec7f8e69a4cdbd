// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "session/ImportedScan.h"

#include <utility>

#include "Hx/ErrorConversion.h"
#include "Hx/FileInfo.h"
#include "Hx/Models.h"

#include "report/Failure.h"
#include "report/NumberText.h"
#include "session/Interrupt.h"
#include "stance/CorvinStancePointSet.h"

namespace ScanHost {

namespace {

/// A source with what the user said of the scan.
Ovr::ScanSource withOptions(Ovr::ScanSource source, const ScanOptions& options) {
    if (options.trajectory) {
        source.trajectory = options.trajectory;
    }
    source.clock.unit = options.timeUnit.value_or(source.clock.unit);
    source.clock.offset = options.timeOffset.value_or(source.clock.offset);
    return source;
}

Hx::FileInfo fileInfoOf(const Ovr::ScanSource& source) {
    Hx::FileInfo info;
    info.path = Tq_1_1::String::fromUtf8(source.file.string());
    info.source = source;
    return info;
}

}  // namespace

Tq_1_1::Mat4d<double> ImportedScan::toWorld() const {
    return container->calcTrafoTo(nullptr);
}

Ovr::VardexLib::CorvinScanData& ImportedScan::scanData() const {
    return dynamic_cast<Ovr::VardexLib::CorvinScanData&>(pointSet->getIScanData());
}

void requireOk(int result, const std::string& what) {
    if (result == Hx::IOMessages::IO_OK) {
        return;
    }
    const auto named = static_cast<Hx::IOMessages::IOResult>(result);
    const std::string words = Hx::lastErrorMessage();
    throw Failure(words.empty() ? what + ": " + Hx::IOMessages::describe(named) : words,
                  named == Hx::IOMessages::IO_CANCELLED ? ExitCode::Cancelled : ExitCode::Failed);
}

void requireOk(const Ovr::ErrorPtr& error) {
    if (error) {
        throw Failure(error->message(), error->code() == Ovr::Interfaces::ErrorCode::Cancelled
                                            ? ExitCode::Cancelled
                                            : ExitCode::Failed);
    }
}

void requireUtf8(const std::string& file) {
    if (Tq_1_1::String::fromUtf8(file).toUtf8() != file) {
        throw Failure(printable(file) + ": found a name that is not UTF-8, expected one that is");
    }
}

ScanImporter::ScanImporter(ModuleSession& session, Console& console)
    : session_(session), console_(console), project_(std::make_shared<Ovr::ScanProject>()) {}

std::vector<Ovr::ScanListing> ScanImporter::list(const std::string& file,
                                                 const ScanOptions& options) const {
    requireUtf8(file);
    std::vector<Ovr::ScanListing> scans;
    requireOk(Ovr::listScans(file, scans));
    scans = chosenScans(std::move(scans), file, options);
    for (Ovr::ScanListing& scan : scans) {
        scan.source.project = project_;
    }
    return scans;
}

ImportedScan ScanImporter::import(const Ovr::ScanListing& listing, const ScanOptions& options,
                                  Hx::Object& parent) {
    ImportedScan scan;
    scan.name = listing.name;
    scan.classIdentifier = listing.classIdentifier;
    scan.source = withOptions(listing.source, options);
    scan.trajectoryNamed = scan.source.trajectory.has_value();
    scan.source.progress = console_.progress();
    scan.source.cancel = std::make_shared<Interrupt>();
    scan.pointSet = std::dynamic_pointer_cast<Vardex::CorvinPointSet>(
        session_.createPointSet(listing.classIdentifier));
    if (!scan.pointSet) {
        throw Failure(listing.classIdentifier + ": the class is none of the module's");
    }
    const Tq_1_1::String name = Tq_1_1::String::fromUtf8(listing.name);
    scan.pointSet->setName(name);
    scan.container = Tq_1_1::SmartPtr<Hx::PtSetObject>(new Hx::PtSetObject);
    scan.container->init(Tq_1_1::BaseNode::CREATE_NEW, nullptr);
    scan.container->setName(name);
    {
        const ProgressTask task(console_.progress(), listing.name + ": reading points");
        Hx::FileInfo info = fileInfoOf(scan.source);
        Hx::AllocMain guard(true, Hx::Models::the().context(Hx::ModelContext::ALL_MODELS));
        Hx::clearLastErrorMessage();
        requireOk(scan.pointSet->import(info, guard), scan.source.file.string());
    }
    console_.warn(scan.pointSet->getIScanData().getWarnings());
    if (!scan.container->setPointSet(scan.pointSet) || !parent.addChild(scan.container)) {
        throw Failure(listing.name + ": the scan cannot be put into the tree");
    }
    place(scan, console_);
    Interrupt::check();
    return scan;
}

void place(const ImportedScan& scan, Console& console) {
    Tq_1_1::Mat4d<double> matrix = Tq_1_1::Mat4d<double>::identity();
    if (const auto stance =
            std::dynamic_pointer_cast<Vardex::CorvinStancePointSet>(scan.pointSet)) {
        matrix = stance->getSlamPose();
    } else if (const auto origin = scan.source.project->origin()) {
        matrix = Tq_1_1::Mat4d<double>::translation(*origin);
    }
    if (!scan.container->setMatrix(matrix)) {
        console.warn(scan.name + ": the pose cannot be turned back and is not used");
    }
}

}  // namespace ScanHost
