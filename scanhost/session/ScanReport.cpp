// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "session/ScanReport.h"

#include <cmath>
#include <cstdint>

#include <fmt/format.h>

#include "Hx/PointSetOps.h"
#include "Hx/Time.h"

#include "report/DateText.h"
#include "report/NumberText.h"
#include "session/LasReport.h"
#include "session/MobileReport.h"
#include "session/MobileScan.h"
#include "session/PointSummary.h"
#include "stance/CorvinStancePointSet.h"

namespace ScanHost {

namespace {

constexpr int kRotationDigits = 6;

std::string utf8(const Tq_1_1::String& text) {
    return text.toUtf8();
}

void describeRecord(const ImportedScan& scan, Report& report) {
    const std::string layout(Vardex::layoutName(scan.pointSet->getRecordLayout()));
    const std::uint64_t bytes = scan.pointSet->getRecordSize();
    Json::Value value;
    value["layout"] = layout;
    value["bytesPerPoint"] = Json::UInt64{bytes};
    report.add("record", "record", value, fmt::format("{}, {} bytes per point", layout, bytes));
}

template <typename Value>
std::string rangeText(const Range<Value>& range, int digits) {
    return fmt::format("{} .. {}", fixedText(static_cast<double>(range.low), digits),
                       fixedText(static_cast<double>(range.high), digits));
}

template <typename Value, std::size_t count>
Json::Value jsonRanges(const std::array<Range<Value>, count>& ranges) {
    Json::Value value;
    for (const Range<Value>& range : ranges) {
        value["min"].append(range.low);
        value["max"].append(range.high);
    }
    return value;
}

void describePoints(const ImportedScan& scan, const PointSummary& summary, Report& report) {
    const int rows = scan.pointSet->getNumRows();
    const int cols = scan.pointSet->getNumCols();
    report.addHidden("rows", rows);
    report.addHidden("columns", cols);
    if (scan.pointSet->isPointCloud()) {
        report.addHidden("cells", Json::UInt64{summary.cells});
        report.addCount("points", "points", summary.returns);
        report.addHidden("cellsWithoutReturn", Json::UInt64{summary.cells - summary.returns});
        return;
    }
    report.add("cells", "grid", Json::UInt64{summary.cells},
               fmt::format("{} x {}", countText(static_cast<std::uint64_t>(rows), "row", "rows"),
                           countText(static_cast<std::uint64_t>(cols), "column", "columns")));
    report.addCount("points", "points", summary.returns);
    report.addCount("cellsWithoutReturn", "without a return", summary.cells - summary.returns);
}

void describeBounds(const PointSummary& summary, const ScanUnits& units, Report& report) {
    if (summary.returns == 0) {
        report.addNone("bounds", "bounds", "none, no point has a return");
        return;
    }
    report.add("bounds", "bounds " + units.brackets(), jsonRanges(summary.bounds),
               fmt::format("x {}, y {}, z {}", rangeText(summary.bounds[0], kMetreDigits),
                           rangeText(summary.bounds[1], kMetreDigits),
                           rangeText(summary.bounds[2], kMetreDigits)));
}

void describeLight(const PointSummary& summary, Report& report) {
    if (summary.withReflection == 0) {
        report.addNone("reflection", "reflection", "none");
    } else {
        Json::Value value;
        value["min"] = summary.reflection.low;
        value["max"] = summary.reflection.high;
        value["mean"] = summary.meanReflection;
        value["points"] = Json::UInt64{summary.withReflection};
        report.add("reflection", "reflection", value,
                   fmt::format("{}, mean {}", rangeText(summary.reflection, 0),
                               fixedText(summary.meanReflection, 1)));
    }
    if (summary.withColor == 0) {
        report.addNone("color", "colour", "none");
    } else {
        Json::Value value = jsonRanges(summary.channels);
        value["points"] = Json::UInt64{summary.withColor};
        report.add(
            "color", "colour", value,
            fmt::format("red {}, green {}, blue {}", rangeText(summary.channels[0], 0),
                        rangeText(summary.channels[1], 0), rangeText(summary.channels[2], 0)));
    }
    if (summary.withNormal > 0) {
        report.addCount("normals", "points with normal", summary.withNormal);
    }
}

/// Four rows of four numbers.
Json::Value jsonMatrix(const Tq_1_1::Mat4d<double>& matrix) {
    Json::Value rows(Json::arrayValue);
    for (std::size_t row = 0; row < 4; ++row) {
        Json::Value numbers(Json::arrayValue);
        for (std::size_t col = 0; col < 4; ++col) {
            numbers.append(jsonNumber(matrix(row, col)));
        }
        rows.append(numbers);
    }
    return rows;
}

std::string matrixLines(const Tq_1_1::Mat4d<double>& matrix) {
    std::string lines;
    for (std::size_t row = 0; row < 3; ++row) {
        for (std::size_t col = 0; col < 4; ++col) {
            const std::string number =
                fixedText(matrix(row, col), col < 3 ? kRotationDigits : kMetreDigits);
            const std::size_t width = col < 3 ? 10 : 16;
            lines += fmt::format(" {:>{}}", number, width - 1);
        }
        lines += '\n';
    }
    return lines;
}

/// Where a stance stood and how it was turned.
void describePose(const ImportedScan& scan, Report& report) {
    const auto stance = std::dynamic_pointer_cast<Vardex::CorvinStancePointSet>(scan.pointSet);
    if (stance) {
        const Tq_1_1::Mat4d<double> pose = stance->getSlamPose();
        report.addBlock("slamPose",
                        fmt::format("SLAM pose (rotation, position {})", scan.units.brackets()),
                        jsonMatrix(pose), matrixLines(pose));
    }
}

void addKnown(Report& report, const std::string& key, const std::string& label,
              const std::string& value) {
    if (value.empty()) {
        report.addHidden(key, Json::Value());
    } else {
        report.addText(key, label, value);
    }
}

void describeMetadata(const ImportedScan& scan, Report& report) {
    Vardex::CorvinPointSet& points = *scan.pointSet;
    const Ovr::VardexLib::CorvinMetaData& data = points.getCachedMetaData();
    addKnown(report, "scannerModel", "scanner", data.ScannerModel());
    addKnown(report, "serialNumber", "serial number", data.ScannerSerialNumber());
    addKnown(report, "firmware", "firmware", data.ScannerFirmwareVersion());
    addKnown(report, "software", "software", data.ProcessingSoftwareVersion());
    addKnown(report, "vendor", "vendor", data.ScannerVendor());
    if (const auto time = points.getScanRecordingTime()) {
        report.add("recordingTime", "recorded", jsonNumber(time->getTime()),
                   dateText(time->getTime()));
    } else {
        report.addHidden("recordingTime", Json::Value());
    }
    const Hx::Uuid session = points.getRecordingSessionId();
    addKnown(report, "sessionId", "session",
             session.isDefault() ? std::string() : utf8(session.toStr()));
}

/// An answer of the host's lists that is there or not; nothing is shown for a class that no entry
/// serves.
template <typename Operation, typename... Arguments>
void addAnswer(Report& report, const std::string& key, const std::string& label,
               Operation* operation, const Arguments&... arguments) {
    if (operation != nullptr) {
        report.addFlag(key, label, static_cast<bool>(operation(arguments...)));
    } else {
        report.addHidden(key, Json::Value());
    }
}

/// What the module's classes say to a host.
void describeForHost(const ImportedScan& scan, Report& report) {
    Hx::PointSet& points = *scan.pointSet;
    const Tq_1_1::HxClass* type = points.getClassType();
    report.addText("id", "id", utf8(points.getId()));
    report.addText("class", "class", utf8(type->getName()));
    report.addHidden("classIdentifier", scan.classIdentifier);
    describeRecord(scan, report);
    const Tq_1_1::Mat4d<double> toWorld = scan.toWorld();
    report.add("placement", "container placed at " + scan.units.brackets(), jsonMatrix(toWorld),
               pointText({toWorld(0, 3), toWorld(1, 3), toWorld(2, 3)}, kMetreDigits));
    const auto settingsId = Hx::PointSetOps::PreProcess::htmlUISettingsId.find(type);
    addKnown(report, "settingsId", "settings page",
             settingsId != nullptr ? utf8(settingsId(&points)) : std::string());
    addAnswer(report, "patchedSettings", "settings patched",
              Hx::PointSetOps::PreProcess::patchPreProcessSettings.find(type), &points, nullptr);
    addAnswer(report, "fullPanorama", "full panorama",
              Hx::PointSetOps::OpenQuickView::isFullResPanoramaAvailable.find(type), &points);
    const auto reliable =
        Hx::SphericalCoordinateEstimation::Operations::hasReliableSphericalEstimation.find(type);
    report.addFlag("reliableSphericalEstimation", "reliable spherical grid",
                   reliable != nullptr && reliable());
    const auto times = Hx::IScanPointTimes::Operations::hasScanPointTimes.find(type);
    report.addFlag("hasPointTimes", "answers point times",
                   times != nullptr && times(scan.pointSet) != nullptr);
    report.addFlag("isPointCloud", "point cloud", points.isPointCloud());
    if (const std::optional<double> accuracy = points.getPointAccuracy()) {
        report.addNumber("pointAccuracy", "point accuracy", *accuracy, 3, " m");
    }
}

}  // namespace

void describeScan(const ImportedScan& scan, bool forHost, Report& report, Console& console) {
    const bool isMobile = MobileScan::isMobile(scan);
    report.addHidden("name", printable(scan.name));
    report.addText("file", "file", scan.source.file.string());
    report.add("kind", "kind", isMobile ? "mobile" : "stationary",
               isMobile ? "mobile scan" : "stationary scan");
    const std::optional<LasDescription> las = readLas(scan, console);
    std::optional<MobileReport> mobile;
    if (isMobile) {
        mobile.emplace(scan, console);
    }
    const PointSummary summary = summarize(*scan.pointSet, scan.toWorld());
    describePoints(scan, summary, report);
    if (mobile) {
        const bool saysAdjusted = las && las->header.adjustedTime;
        mobile->describeClock(saysAdjusted ? std::optional(Ovr::Clock::AdjustedGps) : std::nullopt,
                              report);
    } else {
        remarkOnStance(scan, console);
    }
    scan.units.addTo(report);
    describeBounds(summary, scan.units, report);
    describePose(scan, report);
    describeSystem(las ? &*las : nullptr, scan.units, report);
    if (mobile) {
        mobile->describeTimes(summary.times, report);
        mobile->describePath(summary.bounds, report);
    }
    describeLight(summary, report);
    describeMetadata(scan, report);
    if (las) {
        describeLas(*las, scan.units, report);
    }
    if (forHost) {
        describeForHost(scan, report.group("host", "what the module says to a host"));
    }
}

}  // namespace ScanHost
