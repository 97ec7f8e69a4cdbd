// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "session/LasReport.h"

#include <array>
#include <chrono>
#include <cstddef>
#include <utility>

#include <date/date.h>
#include <fmt/format.h>

#include "kit/InputFile.h"
#include "las/LasDamage.h"
#include "las/LasNames.h"

#include "report/NumberText.h"
#include "session/Interrupt.h"
#include "session/Require.h"

namespace ScanHost {

namespace {

using Ovr::Formats::LasFacts;
using Ovr::Formats::LasHeader;

/// "2024-05-30"; empty when the header does not say or says a day that is none.
std::string creationDate(const LasHeader& header) {
    const date::year year{header.creationYear};
    const int days = year.is_leap() ? 366 : 365;
    if (header.creationYear == 0 || header.creationDay == 0 || header.creationDay > days) {
        return {};
    }
    return date::format("%F", date::sys_days{year / 1 / 1} + date::days{header.creationDay - 1});
}

void addSaid(Report& report, const std::string& key, const std::string& label,
             const std::string& value) {
    if (value.empty()) {
        report.addNone(key, label, "not said");
    } else {
        report.addText(key, label, value);
    }
}

/// Nothing is shown of plain points.
void describeCompression(const LasHeader& header, Report& report) {
    Json::Value value;
    if (!header.compression) {
        report.addHidden("compression", value);
        return;
    }
    const auto& [schema, list] = *header.compression;
    const bool isOne = schema.compressor == Ovr::Formats::Laz::Compressor::Stream;
    const bool hasSize = !isOne && !schema.hasVaryingChunks();
    const bool hasCount = isOne || list.endsAreKnown;
    value["chunks"] = hasCount ? Json::Value(Json::UInt64{list.chunks.size()}) : Json::Value();
    value["chunkSize"] = hasSize ? Json::Value(schema.chunkSize) : Json::Value();
    const std::string chunks =
        hasCount ? countText(list.chunks.size(), "chunk", "chunks") : "in chunks";
    report.add("compression", "compression", value,
               hasSize ? fmt::format("{} of up to {}", chunks,
                                     countText(schema.chunkSize, "point", "points"))
                       : chunks);
}

void describeFile(const LasHeader& header, Report& report) {
    report.addText("version", "version", fmt::format("1.{}", header.minorVersion));
    report.add("pointFormat", "point format", header.format,
               fmt::format("{}, {} bytes per record", header.format, header.recordLength));
    report.addHidden("recordLength", header.recordLength);
    describeCompression(header, report);
    addSaid(report, "software", "generating software", header.generatingSoftware);
    addSaid(report, "system", "system identifier", header.systemIdentifier);
    addSaid(report, "created", "created", creationDate(header));
}

Json::Value jsonText(const std::string& text) {
    return text.empty() ? Json::Value() : Json::Value(printable(text));
}

/// Adds a system or a part of one: "NAD83 / Oregon LCC (m), EPSG:2991".
void addNamed(Report& report, const std::string& key, const std::string& label,
              const std::string& name, const std::string& code) {
    Json::Value value;
    value["name"] = jsonText(name);
    value["code"] = jsonText(code);
    const std::string text = name + (name.empty() || code.empty() ? "" : ", ") + code;
    report.add(key, label, value, text.empty() ? "without a name" : printable(text));
}

void addUnit(Report& report, const std::string& key, const std::string& label,
             const Ovr::Formats::CrsUnit& unit) {
    if (unit.name.empty()) {
        report.addNone(key, label, "not said");
        return;
    }
    Json::Value value;
    value["name"] = printable(unit.name);
    value["factor"] = unit.factor == 0.0 ? Json::Value() : jsonNumber(unit.factor);
    const bool isOther = unit.kind == Ovr::Formats::UnitKind::Other && unit.factor != 0.0;
    report.add(key, label, value,
               printable(unit.name) + (isOther ? fmt::format(" of {} {}", shortText(unit.factor),
                                                             unit.isAngle ? "rad" : "m")
                                               : ""));
}

void describeKnownSystem(const Ovr::Formats::LasCrs& found, Report& report) {
    const Ovr::Formats::CrsDescription& crs = found.crs;
    Report& system = report.group("coordinateSystem", "coordinate system");
    const bool isWkt = found.source == Ovr::Formats::CrsSource::Wkt;
    addNamed(system, "whole", "named", crs.name, crs.code);
    system.add("kind", "kind", jsonText(crs.kind), crs.kind.empty() ? "not said" : crs.kind);
    if (!crs.base.empty()) {
        system.addText("base", "based on", crs.base);
    }
    system.add("source", "said by", isWkt ? "wkt" : "geotiff",
               isWkt ? "well-known text" : "GeoTIFF keys");
    if (crs.horizontal.name != crs.name || crs.horizontal.code != crs.code) {
        addNamed(system, "horizontal", "horizontal part", crs.horizontal.name, crs.horizontal.code);
    }
    addUnit(system, "horizontalUnit", "horizontal unit", crs.horizontal.unit);
    if (crs.vertical) {
        addNamed(system, "vertical", "vertical part", crs.vertical->name, crs.vertical->code);
        addUnit(system, "verticalUnit", "vertical unit", crs.vertical->unit);
    }
}

void describeClasses(const LasHeader& header, const LasFacts& facts, Report& report) {
    Table table{{{"class", "class"}, {"name", "name"}, {"points", "points"}}, {}};
    for (unsigned number = 0; number < facts.classes.size(); ++number) {
        if (const std::uint64_t count = facts.classes[number]; count != 0) {
            const std::string name(Ovr::Formats::lasClassName(header.format, number));
            table.rows.push_back({{number, fmt::to_string(number)},
                                  {name, name},
                                  {Json::UInt64{count}, fmt::to_string(count)}});
        }
    }
    report.addTable("classes", "classes", std::move(table));
}

/// "1: 925, 2: 114", of what there is.
template <typename Counts>
void addReturns(Report& report, const std::string& key, const std::string& label,
                const Counts& counts, std::size_t first) {
    Json::Value value(Json::objectValue);
    std::string text;
    for (std::size_t i = 0; i < counts.size(); ++i) {
        if (counts[i] != 0) {
            const std::string number = fmt::to_string(i + first);
            value[number] = Json::UInt64{counts[i]};
            text += fmt::format("{}{}: {}", text.empty() ? "" : ", ", number, counts[i]);
        }
    }
    report.add(key, label, value, text.empty() ? "none" : text);
}

void describeFlags(const LasFacts& facts, Report& report) {
    Json::Value value(Json::objectValue);
    std::string text;
    const auto add = [&](const char* key, const char* name, std::uint64_t count) {
        value[key] = Json::UInt64{count};
        if (count != 0) {
            text += fmt::format("{}{} {}", text.empty() ? "" : ", ", name, count);
        }
    };
    add("synthetic", "synthetic", facts.synthetic);
    add("keyPoint", "key point", facts.keyPoints);
    add("withheld", "withheld", facts.withheld);
    add("overlap", "overlap", facts.overlap);
    report.add("flags", "points with flags", value, text.empty() ? "none" : text);
}

void describeDimensions(const Ovr::Formats::LasExtraBytes& extra, Report& report) {
    Json::Value value(Json::arrayValue);
    std::string text;
    for (const Ovr::Formats::LasDimension& dimension : extra.dimensions) {
        Json::Value one;
        one["name"] = dimension.name;
        one["type"] = dimension.type;
        value.append(one);
        text += fmt::format("{}{} ({})", text.empty() ? "" : ", ", dimension.name, dimension.type);
    }
    if (extra.undocumented != 0) {
        text += fmt::format("{}{} that nothing describes", text.empty() ? "" : ", ",
                            countText(extra.undocumented, "byte", "bytes"));
    }
    report.addHidden("extraDimensions", value);
    report.add("undocumentedBytes", "extra dimensions", Json::UInt64{extra.undocumented},
               text.empty() ? "none" : text);
}

std::string boundsText(const std::array<double, 3>& low, const std::array<double, 3>& high) {
    std::string text;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        text +=
            fmt::format("{}{} {} .. {}", axis == 0 ? "" : ", ", "xyz"[axis],
                        fixedText(low[axis], kMetreDigits), fixedText(high[axis], kMetreDigits));
    }
    return text;
}

void describeDifferences(const LasHeader& header, const LasFacts& facts, const ScanUnits& units,
                         Report& report) {
    if (boundsDiffer(header, facts)) {
        Json::Value value;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            value["min"].append(jsonNumber(header.minimum[axis]));
            value["max"].append(jsonNumber(header.maximum[axis]));
        }
        report.add("headerBounds", "header's bounds " + units.brackets(), value,
                   boundsText(header.minimum, header.maximum) + "; those of the points differ");
    } else {
        report.addHidden("headerBounds", Json::Value());
    }
    if (returnsDiffer(header, facts)) {
        addReturns(report, "headerReturns", "header's returns", header.returns, 1);
    } else {
        report.addHidden("headerReturns", Json::Value());
    }
}

}  // namespace

std::optional<LasDescription> readLas(const ImportedScan& scan, Console& console) {
    if (!scan.lasFacts) {
        return std::nullopt;
    }
    Ovr::Formats::InputFile file;
    LasDescription las;
    Ovr::Remarks remarks;
    requireOk(file.open(scan.source.file));
    requireOk(readLasHeader(file, las.header, remarks, scan.source.lenient));
    const Interrupt interrupt{};
    if (scan.source.lenient) {
        requireOk(shortenToReadable(file, las.header, remarks, {nullptr, &interrupt}));
    }
    las.system = readLasCrs(file, las.header, remarks);
    las.extra = readLasExtraBytes(file, las.header, remarks);
    las.facts = scan.lasFacts->facts();
    console.warn(remarks.warnings());
    return las;
}

void describeSystem(const LasDescription* las, const ScanUnits& units, Report& report) {
    if (las != nullptr && las->system.source != Ovr::Formats::CrsSource::None) {
        describeKnownSystem(las->system, report);
        return;
    }
    const bool isAssumed = units.source == ScanUnits::Source::Assumed;
    report.addNone("coordinateSystem", "coordinate system",
                   isAssumed ? "not said; lengths are taken as metres" : "not said");
}

void describeLas(const LasDescription& las, const ScanUnits& units, Report& report) {
    Report& group = report.group("las", "LAS file");
    describeFile(las.header, group);
    describeClasses(las.header, las.facts, group);
    addReturns(group, "returns", "points by return", las.facts.returns, 0);
    describeFlags(las.facts, group);
    describeDimensions(las.extra, group);
    describeDifferences(las.header, las.facts, units, group);
}

}  // namespace ScanHost
