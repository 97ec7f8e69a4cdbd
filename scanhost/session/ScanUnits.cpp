// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "session/ScanUnits.h"

#include <fmt/format.h>

#include "Ovr/FormatRegistry.h"
#include "kit/InputFile.h"
#include "las/LasCrs.h"
#include "las/LasHeader.h"

namespace ScanHost {

namespace {

using Ovr::Formats::CrsUnit;
using Ovr::Formats::knownUnit;
using Ovr::Formats::UnitKind;

std::string pluralOf(const CrsUnit& unit) {
    switch (unit.kind) {
        case UnitKind::Metre:
            return "metres";
        case UnitKind::Foot:
            return "feet";
        case UnitKind::UsSurveyFoot:
            return "US survey feet";
        case UnitKind::Degree:
            return "degrees";
        case UnitKind::Unsaid:
        case UnitKind::Other:
            break;
    }
    return fmt::format("'{}'", unit.name);
}

ScanUnits unitsIn(const Ovr::Formats::CrsDescription& crs) {
    ScanUnits units;
    if (crs.horizontal.unit.kind != UnitKind::Unsaid) {
        units.source = ScanUnits::Source::File;
        units.horizontal = crs.horizontal.unit;
        // Heights without a word of their own: those of a map have its unit.
        units.vertical = units.horizontal.isAngle ? knownUnit(UnitKind::Metre) : units.horizontal;
    }
    if (crs.vertical && crs.vertical->unit.kind != UnitKind::Unsaid) {
        units.source = ScanUnits::Source::File;
        units.vertical = crs.vertical->unit;
    }
    return units;
}

}  // namespace

Ovr::Formats::CrsDescription coordinateSystemOf(const std::filesystem::path& path) {
    const auto format = Ovr::FormatRegistry::the().find(path);
    Ovr::Formats::InputFile file;
    Ovr::Formats::LasHeader header;
    Ovr::Remarks remarks;
    if (!format || format->name() != "LAS" || file.open(path) ||
        readLasHeader(file, header, remarks, true)) {
        return {};
    }
    return readLasCrs(file, header, remarks).crs;
}

std::string shortUnitName(const CrsUnit& unit) {
    switch (unit.kind) {
        case UnitKind::Metre:
            return "m";
        case UnitKind::Foot:
            return "ft";
        case UnitKind::UsSurveyFoot:
            return "us-ft";
        case UnitKind::Degree:
            return "deg";
        case UnitKind::Unsaid:
        case UnitKind::Other:
            break;
    }
    return unit.name;
}

std::string ScanUnits::label(std::size_t axis) const {
    return shortUnitName(axis < 2 ? horizontal : vertical);
}

std::string ScanUnits::brackets() const {
    return horizontal == vertical ? fmt::format("[{}]", label(0))
                                  : fmt::format("[{}, z in {}]", label(0), label(2));
}

std::string ScanUnits::suffix() const {
    return fmt::format(" {}", label(0));
}

std::string ScanUnits::words() const {
    return horizontal == vertical
               ? pluralOf(horizontal)
               : fmt::format("{} with heights in {}", pluralOf(horizontal), pluralOf(vertical));
}

bool ScanUnits::fitTrajectory() const {
    return source == Source::User ||
           (horizontal.kind == UnitKind::Metre && vertical.kind == UnitKind::Metre);
}

void ScanUnits::addTo(Report& report) const {
    Json::Value value;
    value["horizontal"] = label(0);
    value["vertical"] = label(2);
    value["source"] = source == Source::User ? "user" : source == Source::File ? "file" : "assumed";
    report.addHidden("units", value);
}

ScanUnits unitsOf(const Ovr::ScanSource& source, std::optional<UnitKind> chosen) {
    ScanUnits units = unitsIn(coordinateSystemOf(source.file));
    if (chosen) {
        units.source = ScanUnits::Source::User;
        units.horizontal = knownUnit(*chosen);
        const bool keepsHeights = units.horizontal.isAngle && !units.vertical.isAngle;
        units.vertical = keepsHeights ? units.vertical : units.horizontal;
    }
    return units;
}

std::string axisLabel(const ScanUnits& units, std::size_t axis) {
    return fmt::format("{} [{}]", "xyz"[axis], units.label(axis));
}

void addDistance(const ScanUnits& units, Report& report, const std::string& key,
                 const std::string& label, double distance, int digits) {
    if (units.hasDistances()) {
        report.addNumber(key, label, distance, digits, units.suffix());
    } else {
        report.addNone(key, label, "none, the coordinates are in " + units.words());
    }
}

}  // namespace ScanHost
