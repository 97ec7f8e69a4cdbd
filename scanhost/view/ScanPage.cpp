// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "view/ScanPage.h"

#include <algorithm>

#include <fmt/format.h>
#include <fmt/ranges.h>

#include "report/Failure.h"
#include "report/NumberText.h"
#include "report/ProgressLine.h"
#include "view/PagePanorama.h"
#include "view/PagePath.h"
#include "view/PagePoints.h"
#include "view/PageWriter.h"
#include "view/VoxelThinning.h"

namespace ScanHost {

namespace {

constexpr std::uint64_t kPageLength = 15'000'000;      // bytes; what mail takes
constexpr std::uint64_t kRoomForDescription = 20'000;  // bytes
constexpr std::uint64_t kFewestPoints = 300'000;
constexpr std::uint64_t kPanoramaCells = 400'000;  // of all stances together, 3.2 MB

Json::Value describeScan(const PageScan& scan) {
    const Hx::PointSet& points = *scan.scan.pointSet;
    Json::Value value;
    value["name"] = scan.scan.name;
    value["file"] = scan.scan.source.file.string();
    value["address"] = scan.address;
    value["rows"] = points.getNumRows();
    value["columns"] = points.getNumCols();
    value["origin"] = jsonPoint(scan.origin);
    return value;
}

/// The coordinate systems and the unit of the scans, in words.
std::string systemText(const std::vector<PageScan>& scans) {
    std::vector<std::string> names;
    for (const PageScan& scan : scans) {
        const Ovr::Formats::CrsDescription crs = coordinateSystemOf(scan.scan.source.file);
        const std::string name = printable(crs.name.empty() ? crs.code : crs.name);
        if (!name.empty() && std::find(names.begin(), names.end(), name) == names.end()) {
            names.push_back(name);
        }
    }
    const ScanUnits& units = scans.front().scan.units;
    const bool isAssumed = units.source == ScanUnits::Source::Assumed;
    return fmt::format(
        "{}; {}{}",
        names.empty() ? "no coordinate system named" : fmt::format("{}", fmt::join(names, ", ")),
        units.words(), isAssumed ? " assumed" : "");
}

Json::Value describeClock(const ScanClock& clock) {
    Json::Value value;
    value["zero"] = jsonNumber(clock.zero());
    const std::optional<double> utc = clock.utcOf(0.0);
    value["utc"] = utc ? jsonNumber(*utc) : Json::Value();
    return value;
}

void addMobile(const PageScan& scan, PageWriter& page, Json::Value& value) {
    const double duration = scan.mobile->duration();
    value["mobile"] = true;
    value["duration"] = jsonNumber(scan.hasTimes || scan.hasTrajectory ? duration : 0.0);
    if (scan.hasTrajectory || scan.hasTimes) {
        value["clock"] = describeClock(scan.mobile->clock({}));
    }
    if (scan.hasTrajectory) {
        value["path"] = writePagePath(scan, page);
    }
    if (scan.hasTimes && duration > 0.0) {
        value["histogram"] = pageHistogram(scan);
    }
}

void addStance(const PageScan& scan, std::uint64_t mostCells, PageWriter& page,
               Json::Value& value) {
    const Tq_1_1::Mat4d<double> toWorld = scan.scan.toWorld();
    value["mobile"] = false;
    value["position"] = jsonPoint({toWorld(0, 3), toWorld(1, 3), toWorld(2, 3)});
    value["heading"] = jsonPoint({toWorld(0, 0), toWorld(1, 0), toWorld(2, 0)});
    if (scan.scan.pointSet->getNumPoints() > 0) {
        value["panorama"] = writePagePanorama(scan, mostCells, page);
    }
}

/// Everything of the scans but their points.
Json::Value describeScans(const std::vector<PageScan>& scans, PageWriter& page) {
    const auto stances = static_cast<std::uint64_t>(std::count_if(
        scans.begin(), scans.end(), [](const PageScan& scan) { return !scan.mobile; }));
    Json::Value values(Json::arrayValue);
    for (const PageScan& scan : scans) {
        Json::Value value = describeScan(scan);
        if (scan.mobile) {
            addMobile(scan, page, value);
        } else {
            addStance(scan, kPanoramaCells / stances, page, value);
        }
        values.append(value);
    }
    return values;
}

PointWalk walkOver(const std::vector<PageScan>& scans) {
    return [&scans](const auto& visit) {
        std::uint32_t number = 0;
        for (const PageScan& scan : scans) {
            const bool wentOn =
                forEachPagePoint(scan, [&](std::uint64_t, const Tq_1_1::Vec3d<double>& world) {
                    return visit(number, world);
                });
            if (!wentOn) {
                return;
            }
            ++number;
        }
    };
}

std::uint64_t pointsThatFit(const std::vector<PageScan>& scans, const PageWriter& page) {
    std::uint64_t bytes = 0;
    for (const PageScan& scan : scans) {
        bytes = std::max(bytes, bytesPerPagePoint(scan));
    }
    const std::uint64_t used = page.length() + kRoomForDescription;
    const std::uint64_t room = used < kPageLength ? kPageLength - used : 0;
    return std::max(kFewestPoints, room / 4 * 3 / bytes);
}

}  // namespace

PageContent writeScanPage(std::ostream& out, const std::vector<PageScan>& scans,
                          const PageRequest& request, Console& console) {
    const ProgressTask task(console.progress(), "writing the page");
    PageContent content;
    for (const PageScan& scan : scans) {
        content.returns += scan.summary.returns;
    }
    if (content.returns == 0) {
        throw Failure("there is nothing to show: no point has a return");
    }
    PageWriter page(out);
    Json::Value description;
    description["title"] = request.title;
    description["program"] = request.program;
    const ScanUnits& units = scans.front().scan.units;
    description["unit"] = units.label(0);
    description["heightUnit"] = units.label(2);
    description["hasDistances"] = units.hasDistances();
    description["system"] = systemText(scans);
    description["scans"] = describeScans(scans, page);
    const std::uint64_t limit =
        request.mostPoints ? *request.mostPoints : pointsThatFit(scans, page);
    content.spacing = thinningSize(walkOver(scans), content.returns, limit);
    VoxelThinning thinning(content.spacing);
    for (std::size_t i = 0; i < scans.size(); ++i) {
        const auto number = static_cast<std::uint32_t>(i);
        description["scans"][static_cast<Json::ArrayIndex>(i)]["points"] =
            writePagePoints(scans[i], number, thinning, page);
    }
    content.points = thinning.taken();
    description["spacing"] = content.spacing;
    page.finish(description);
    return content;
}

}  // namespace ScanHost
