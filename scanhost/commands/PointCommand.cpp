// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <cstdint>
#include <limits>
#include <numbers>
#include <optional>

#include "Hx/ScanPolar3dFactory.h"

#include "commands/Command.h"
#include "report/Failure.h"
#include "report/NumberText.h"
#include "session/MobileScan.h"
#include "session/ModuleSession.h"
#include "session/PointSummary.h"
#include "session/ProjectImport.h"
#include "stance/CorvinStancePointSet.h"

namespace ScanHost {

namespace {

constexpr int kMetreDigits = 6;
constexpr int kAngleDigits = 6;

void addPolar(Report& report, const std::string& key, const std::string& label,
              const Tq_1_1::Vec3d<double>& polar) {
    constexpr double kDegreesPerRadian = 180.0 / std::numbers::pi;
    Json::Value value;
    value["distance"] = jsonNumber(polar.x);
    value["horizontal"] = jsonNumber(polar.y);
    value["vertical"] = jsonNumber(polar.z);
    report.add(key, label, value,
               fixedText(polar.x, kMetreDigits) + " m, " + fixedText(polar.y, kAngleDigits) +
                   " rad (" + fixedText(polar.y * kDegreesPerRadian, 3) + " deg), " +
                   fixedText(polar.z, kAngleDigits) + " rad (" +
                   fixedText(polar.z * kDegreesPerRadian, 3) + " deg)");
}

void describePolar(const Hx::PointSet& points, const Tq_1_1::Vec3d<double>& position,
                   Report& report) {
    const auto create =
        Hx::getScanPolarFactory<double>().createFromCartesian.find(points.getClassType());
    if (create == nullptr) {
        report.addNone("polar", "polar", "the class registered no convention");
        report.addHidden("polarUnified", Json::Value());
        return;
    }
    const std::unique_ptr<Hx::Polar3d<double>> polar = create(position);
    addPolar(report, "polar", "polar, own", *polar);
    addPolar(report, "polarUnified", "polar, unified", polar->getUnified());
}

void describeColor(const Hx::PointSet& points, const Hx::SelectItem& item,
                   const Hx::PointSet::ScanPt& point, Report& report) {
    if (point.hasColor()) {
        Json::Value value(Json::arrayValue);
        for (std::size_t i = 0; i < 3; ++i) {
            value.append(point.color[i]);
        }
        report.add("color", "colour", value,
                   "red " + std::to_string(point.color[0]) + ", green " +
                       std::to_string(point.color[1]) + ", blue " + std::to_string(point.color[2]));
    } else {
        report.addNone("color", "colour", "none");
    }
    if (points.hasSeparateReflection() || !point.hasColor()) {
        report.addCount("reflection", "reflection", points.getReflection(item));
    } else {
        report.addNone("reflection", "reflection", "none");
    }
}

class PointCommand final : public Command {
  public:
    std::string name() const override { return "point"; }
    std::string summary() const override { return "Everything about one point of a scan"; }
    void declare(CLI::App& app) override {
        addScan(app, scan_);
        CLI::Option* row = addCount(app, "--row", row_, "R", "Row of the grid, from 0 on");
        CLI::Option* col = addCount(app, "--col", col_, "C", "Column of the grid, from 0 on");
        CLI::Option* index = addCount(app, "--index", index_, "I",
                                      "Instead of row and column: row x columns + column");
        row->needs(col);
        col->needs(row);
        index->excludes(row);
        index->excludes(col);
    }
    void run(const CommonOptions& common, Console& console) override {
        if (!row_ && !index_) {
            throw Failure("found no address of a point, expected --row R --col C or --index I",
                          ExitCode::WrongUsage);
        }
        ModuleSession session(common.module);
        const ImportedScan scan = importOne(session, console, scan_);
        const Hx::SelectItem item = address(*scan.pointSet, scan.source.file.string());
        Report report(scan.name);
        report.addHidden("scan", scan.name);
        describe(scan, item, report);
        describeTime(scan, item, report, console);
        console.show(report);
    }

  private:
    Hx::SelectItem address(const Hx::PointSet& points, const std::string& file) const {
        constexpr std::uint64_t kLargest = std::numeric_limits<std::int32_t>::max();
        Hx::SelectItem item;
        if (index_) {
            item = points.getSelectItem(*index_);
        } else if (*row_ <= kLargest && *col_ <= kLargest) {
            item = points.getSelectItem(static_cast<int>(*row_), static_cast<int>(*col_));
        }
        if (item.isValid()) {
            return item;
        }
        if (index_) {
            throw Failure(file + ": found index " + std::to_string(*index_) + ", expected one of " +
                          countText(points.getNumPoints(), "point", "points") + ", from 0 on");
        }
        throw Failure(file + ": found row " + std::to_string(*row_) + ", column " +
                      std::to_string(*col_) + ", expected a cell of " +
                      std::to_string(points.getNumRows()) + " rows x " +
                      std::to_string(points.getNumCols()) + " columns, from 0 on");
    }

    static void describe(const ImportedScan& scan, const Hx::SelectItem& item, Report& report) {
        const Hx::PointSet& points = *scan.pointSet;
        const auto [row, col] = points.getRowCol(item);
        report.addCount("index", "index", item.index);
        report.addCount("row", "row", static_cast<std::uint64_t>(row));
        report.addCount("column", "column", static_cast<std::uint64_t>(col));
        const Hx::PointSet::ScanPt& point = points.getScanPt(item);
        report.addFlag("hasReturn", "return", isReturn(points, point));
        if (!isReturn(points, point)) {
            return;
        }
        const Tq_1_1::Vec3d<double> position = positionOf(point);
        report.addPoint("position", "position in the scan [m]", position, kMetreDigits, "");
        report.addPoint("world", "position in the world [m]", scan.toWorld().transform(position),
                        kMetreDigits, "");
        report.addNumber("distance", "distance", points.getDistance(item), kMetreDigits, " m");
        const Hx::PointSet::Normal normal = points.getNormal(item);
        if (normal.isSet()) {
            report.addPoint("normal", "normal", normal.direction(), 4, "");
        } else {
            report.addNone("normal", "normal", "none");
        }
        describeColor(points, item, point, report);
        describePolar(points, position, report);
    }

    static void describeTime(const ImportedScan& scan, const Hx::SelectItem& item, Report& report,
                             Console& console) {
        if (!MobileScan::isMobile(scan)) {
            report.addNone("time", "time", "none, a stationary scan");
            return;
        }
        MobileScan mobile(scan, console);
        mobile.loadTrajectory();
        double seconds = 0.0;
        const auto [row, col] = scan.pointSet->getRowCol(item);
        if (mobile.loadTimes() && mobile.pointTimes()->getScanPtTime(row, col, seconds)) {
            report.addNumber("time", "time", seconds, 6, " s");
        } else {
            report.addNone("time", "time", "none in the file");
        }
    }

    ScanOptions scan_;
    std::optional<std::uint64_t> row_;
    std::optional<std::uint64_t> col_;
    std::optional<std::uint64_t> index_;
};

}  // namespace

std::unique_ptr<Command> makePointCommand() {
    return std::make_unique<PointCommand>();
}

}  // namespace ScanHost
