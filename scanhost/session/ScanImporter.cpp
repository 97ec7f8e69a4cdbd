// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "session/ScanImporter.h"

#include <fmt/format.h>

#include "Hx/ErrorConversion.h"
#include "Hx/FileInfo.h"
#include "Hx/ModelContext.h"
#include "Hx/Models.h"
#include "Ovr/FormatRegistry.h"
#include "Ovr/Origin.h"

#include "report/Failure.h"
#include "report/NumberText.h"
#include "session/Interrupt.h"
#include "session/LasFile.h"
#include "session/MobileScan.h"
#include "session/Require.h"

namespace ScanHost {

namespace {

Hx::FileInfo fileInfoOf(const Ovr::ScanSource& source) {
    Hx::FileInfo info;
    info.path = Tq_1_1::String::fromUtf8(source.file.string());
    info.source = source;
    return info;
}

}  // namespace

ScanImporter::ScanImporter(ModuleSession& session, Console& console)
    : session_(session), console_(console), project_(std::make_shared<Ovr::ScanProject>()) {}

std::vector<Ovr::ScanListing> ScanImporter::list(const std::string& file,
                                                 const ScanOptions& options) const {
    requireUtf8(file);
    std::vector<Ovr::ScanListing> scans;
    requireOk(Ovr::listScans(file, scans, options.lenient));
    const std::string shown = console_.aliased(file);
    for (Ovr::ScanListing& scan : scans) {
        scan.source.project = project_;
        scan.source.lenient = options.lenient;
        if (shown != file) {
            scan.name.replace(0, scan.source.file.filename().string().size(), shown);
        }
    }
    if (scans.size() > 1) {
        Ovr::chooseOrigin(scans);
    }
    return chosenScans(std::move(scans), file, options);
}

ImportedScan ScanImporter::import(const Ovr::ScanListing& listing, const ScanOptions& options,
                                  Hx::Object& parent, Content content) {
    ImportedScan scan;
    scan.name = listing.name;
    scan.classIdentifier = listing.classIdentifier;
    scan.source = withOptions(listing.source, options);
    scan.units = unitsOf(scan.source, options.unit);
    scan.trajectoryNamed = scan.source.trajectory.has_value();
    scan.source.progress = console_.progress();
    scan.source.cancel = std::make_shared<Interrupt>();
    scan.pointSet = createPointSet(listing);
    const Tq_1_1::String name = Tq_1_1::String::fromUtf8(listing.name);
    scan.pointSet->setName(name);
    scan.container = Tq_1_1::SmartPtr<Hx::PtSetObject>(new Hx::PtSetObject);
    scan.container->init(Tq_1_1::BaseNode::CREATE_NEW, nullptr);
    scan.container->setName(name);
    if (content == Content::PathOnly && MobileScan::isMobile(scan)) {
        Ovr::chooseOrigin({{listing.classIdentifier, listing.name, scan.source}});
        scan.pointSet->setFileInfo(fileInfoOf(scan.source));
    } else {
        const auto header = content == Content::Points ? std::nullopt : lasHeaderOf(scan.source);
        if (header) {
            makeRoomForTimes(scan, *header);
        }
        if (header && content == Content::Everything) {
            scan.lasFacts = std::make_shared<Ovr::Formats::LasFactsCounter>(*header);
            scan.source.observer = scan.lasFacts;
        }
        readPoints(scan);
        console_.warn(scan.pointSet->getIScanData().getWarnings());
    }
    if (!scan.container->setPointSet(scan.pointSet) || !parent.addChild(scan.container)) {
        throw Failure(listing.name + ": the scan cannot be put into the tree");
    }
    place(scan, console_);
    Interrupt::check();
    return scan;
}

std::shared_ptr<Vardex::CorvinPointSet> ScanImporter::createPointSet(
    const Ovr::ScanListing& listing) const {
    auto points = std::dynamic_pointer_cast<Vardex::CorvinPointSet>(
        session_.createPointSet(listing.classIdentifier));
    if (!points) {
        throw Failure(listing.classIdentifier + ": the class is none of the module's");
    }
    return points;
}

/// Records that have room for times from the start need not be converted when times are loaded.
void ScanImporter::makeRoomForTimes(const ImportedScan& scan,
                                    const Ovr::Formats::LasHeader& header) {
    const auto mobile = std::dynamic_pointer_cast<Vardex::CorvinMobilePointSet>(scan.pointSet);
    if (mobile && Ovr::Formats::lasRecordLayout(header.format).time) {
        requireOk(mobile->enableTimeStamps(true), scan.name);
    }
}

void ScanImporter::readPoints(const ImportedScan& scan) const {
    const ProgressTask task(console_.progress(), scan.name + ": reading points");
    Hx::FileInfo info = fileInfoOf(scan.source);
    Hx::AllocMain guard(true, Hx::Models::the().context(Hx::ModelContext::ALL_MODELS));
    Hx::clearLastErrorMessage();
    requireOk(scan.pointSet->import(info, guard), scan.source.file.string());
}

Ovr::ScanSource withOptions(Ovr::ScanSource source, const ScanOptions& options) {
    if (options.trajectory) {
        source.trajectory = options.trajectory;
    }
    source.withoutTrajectory = options.withoutTrajectory;
    source.sortTrajectory = options.sortTrajectory || source.sortTrajectory;
    source.lenient = options.lenient || source.lenient;
    Ovr::ClockSettings& clock = source.clock;
    clock.unit = options.timeUnit.value_or(clock.unit);
    clock.offset = options.timeOffset.value_or(clock.offset);
    clock.points = options.clock ? options.clock : clock.points;
    clock.trajectoryUnit = options.trajectoryUnit ? options.trajectoryUnit : clock.trajectoryUnit;
    clock.trajectory = options.trajectoryClock ? options.trajectoryClock : clock.trajectory;
    if (options.week) {
        clock.week = static_cast<std::uint32_t>(*options.week);
    }
    if (Ovr::lacksWeek(clock)) {
        throw unexpected(source.file.string(), "GPS week seconds next to another clock",
                         "their week, --week N");
    }
    return source;
}

void requireNumber(const ScanOptions& options, std::size_t count, const std::string& file) {
    if (options.number && *options.number > count) {
        throw unexpected(file, countText(count, "scan", "scans"),
                         fmt::format("a scan number {}", *options.number));
    }
}

}  // namespace ScanHost
