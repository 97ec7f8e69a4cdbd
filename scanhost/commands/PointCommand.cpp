// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <cstdint>
#include <limits>
#include <numbers>
#include <optional>

#include <fmt/format.h>

#include "Hx/ScanPolar3dFactory.h"

#include "commands/ScanCommand.h"
#include "report/Failure.h"
#include "report/NumberText.h"
#include "session/PointSummary.h"
#include "stance/CorvinStancePointSet.h"

namespace ScanHost {

namespace {

// A point is shown to the micrometre, an angle to the microradian.
constexpr int kFineDigits = 6;

void addPolar(Report& report, const std::string& key, const std::string& label,
              const Tq_1_1::Vec3d<double>& polar, const ScanUnits& units) {
    constexpr double kDegreesPerRadian = 180.0 / std::numbers::pi;
    Json::Value value;
    value["distance"] = jsonNumber(polar.x);
    value["horizontal"] = jsonNumber(polar.y);
    value["vertical"] = jsonNumber(polar.z);
    const auto angle = [](double radians) {
        return fmt::format("{} rad ({} deg)", fixedText(radians, kFineDigits),
                           fixedText(radians * kDegreesPerRadian, 3));
    };
    report.add(key, label, value,
               fmt::format("{} {}, {}, {}", fixedText(polar.x, kFineDigits), units.label(0),
                           angle(polar.y), angle(polar.z)));
}

void describePolar(const ImportedScan& scan, const Tq_1_1::Vec3d<double>& position,
                   Report& report) {
    const Hx::PointSet& points = *scan.pointSet;
    const auto create =
        Hx::getScanPolarFactory<double>().createFromCartesian.find(points.getClassType());
    if (create == nullptr) {
        report.addNone("polar", "polar", "the class registered no convention");
        report.addHidden("polarUnified", Json::Value());
        return;
    }
    const std::unique_ptr<Hx::Polar3d<double>> polar = create(position);
    addPolar(report, "polar", "polar, own", *polar, scan.units);
    addPolar(report, "polarUnified", "polar, unified", polar->getUnified(), scan.units);
}

void describeColor(const Hx::PointSet& points, const Hx::SelectItem& item,
                   const Hx::PointSet::ScanPt& point, Report& report) {
    if (point.hasColor()) {
        Json::Value value(Json::arrayValue);
        for (std::size_t i = 0; i < 3; ++i) {
            value.append(point.color[i]);
        }
        report.add("color", "colour", value,
                   fmt::format("red {}, green {}, blue {}", point.color[0], point.color[1],
                               point.color[2]));
    } else {
        report.addNone("color", "colour", "none");
    }
    if (points.hasSeparateReflection() || !point.hasColor()) {
        report.addCount("reflection", "reflection", points.getReflection(item));
    } else {
        report.addNone("reflection", "reflection", "none");
    }
}

class PointCommand final : public ScanCommand {
  public:
    std::string name() const override { return "point"; }
    std::string summary() const override { return "Everything about one point of a scan"; }

  protected:
    void declareMore(Options& options) override {
        Option& row = options.count("--row", row_, "R", "Row of the grid, from 0 on");
        Option& col = options.count("--col", col_, "C", "Column of the grid, from 0 on");
        row.needs(col);
        col.needs(row);
        options.count("--index", index_, "I", "Instead of row and column: row x columns + column")
            .excludes(row)
            .excludes(col);
    }
    void checkOptions() const override {
        if (!row_ && !index_) {
            throw Failure("found no address of a point, expected --row R --col C or --index I",
                          ExitCode::WrongUsage);
        }
    }
    ScanNeeds needs() const override {
        return {.trajectory = Need::IfThere, .times = Need::IfThere};
    }
    void ask(OpenScan& open, Report& report) override {
        const Hx::SelectItem item = address(*open.scan.pointSet, open.scan.source.file.string());
        describe(open.scan, item, report);
        describeTime(open, item, report);
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
            throw unexpected(file, fmt::format("index {}", *index_),
                             fmt::format("one of {}, from 0 on",
                                         countText(points.getNumPoints(), "point", "points")));
        }
        throw unexpected(file, fmt::format("row {}, column {}", *row_, *col_),
                         fmt::format("a cell of {} rows x {} columns, from 0 on",
                                     points.getNumRows(), points.getNumCols()));
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
        report.addPoint("position", "position in the scan " + scan.units.brackets(), position,
                        kFineDigits, "");
        report.addPoint("world", "position in the world " + scan.units.brackets(),
                        scan.toWorld().transform(position), kFineDigits, "");
        scan.units.addTo(report);
        addDistance(scan.units, report, "distance", "distance", points.getDistance(item),
                    kFineDigits);
        const Hx::PointSet::Normal normal = points.getNormal(item);
        if (normal.isSet()) {
            report.addPoint("normal", "normal", normal.direction(), 4, "");
        } else {
            report.addNone("normal", "normal", "none");
        }
        describeColor(points, item, point, report);
        describePolar(scan, position, report);
    }

    static void describeTime(const OpenScan& open, const Hx::SelectItem& item, Report& report) {
        if (!open.mobile) {
            report.addNone("time", "time", "none, a stationary scan");
            return;
        }
        double seconds = 0.0;
        const auto [row, col] = open.scan.pointSet->getRowCol(item);
        if (open.hasTimes && open.mobile->pointTimes()->getScanPtTime(row, col, seconds)) {
            report.addSeconds("time", "time", open.clock.shown(seconds));
        } else {
            report.addNone("time", "time", open.noTimes);
        }
    }

    std::optional<std::uint64_t> row_;
    std::optional<std::uint64_t> col_;
    std::optional<std::uint64_t> index_;
};

}  // namespace

std::unique_ptr<Command> makePointCommand() {
    return std::make_unique<PointCommand>();
}

}  // namespace ScanHost
