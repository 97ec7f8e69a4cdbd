// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <string_view>

#include "kit/TextFields.h"
#include "las/CrsDescription.h"
#include "las/WktTree.h"

namespace Ovr::Formats {

namespace {

struct SystemKeyword {
    std::string_view keyword;
    std::string_view kind;
};

/// Of systems that hold horizontal coordinates, in both versions of the text.
constexpr std::array<SystemKeyword, 15> kSystems{{
    {"PROJCS", "projected"},
    {"PROJCRS", "projected"},
    {"PROJECTEDCRS", "projected"},
    {"GEOGCS", "geographic"},
    {"GEOGCRS", "geographic"},
    {"GEOGRAPHICCRS", "geographic"},
    {"GEODCRS", "geodetic"},
    {"GEODETICCRS", "geodetic"},
    {"GEOCCS", "geocentric"},
    {"LOCAL_CS", "local"},
    {"ENGCRS", "local"},
    {"ENGINEERINGCRS", "local"},
    {"FITTED_CS", "local"},
    {"DERIVEDPROJCRS", "projected"},
    {"IMAGECRS", "local"},
}};

std::string_view kindOf(const WktNode& node) {
    for (const SystemKeyword& system : kSystems) {
        if (system.keyword == node.keyword) {
            return system.kind;
        }
    }
    return {};
}

std::string codeOf(const WktNode& node) {
    const WktNode* const id = node.find({"AUTHORITY", "ID"});
    return id != nullptr && id->values.size() >= 2
               ? fmt::format("{}:{}", id->values[0], id->values[1])
               : std::string();
}

const WktNode* unitNode(const WktNode& node) {
    return node.find({"UNIT", "LENGTHUNIT", "ANGLEUNIT"});
}

/// The unit of an axis, counted from 0: its own or that of the whole system.
const WktNode* axisUnit(const WktNode& system, std::size_t axis) {
    for (const WktNode& node : system.nodes) {
        if (node.keyword == "AXIS" && axis-- == 0) {
            const WktNode* const own = unitNode(node);
            return own != nullptr ? own : unitNode(system);
        }
    }
    return nullptr;
}

/// @param oddities  gets a line when name and factor differ
CrsUnit readUnit(const WktNode* node, bool isAngle, std::vector<std::string>& oddities) {
    if (node == nullptr) {
        return {};
    }
    double factor = 0.0;
    if (node->values.size() >= 2 && !parseNumber(node->values[1], factor)) {
        factor = 0.0;
    }
    isAngle = node->keyword == "ANGLEUNIT" || (node->keyword == "UNIT" && isAngle);
    CrsUnit unit = unitOf(node->name(), factor, isAngle);
    if (!agrees(unit, factor)) {
        oddities.push_back(fmt::format("the unit '{}' has the factor {}; the name is taken",
                                       node->name(), factor));
    }
    return unit;
}

void setHorizontal(const WktNode& node, CrsDescription& crs) {
    crs.kind = kindOf(node);
    crs.horizontal.name = node.name();
    crs.horizontal.code = codeOf(node);
    const bool hasBase = node.find({"CS"}) != nullptr;
    const WktNode* unit = hasBase ? axisUnit(node, 0) : unitNode(node);
    unit = unit != nullptr ? unit : unitNode(node);
    const bool isAngle = crs.kind == "geographic";
    crs.horizontal.unit = readUnit(unit, isAngle, crs.oddities);
    if (crs.kind == "geodetic") {  // either kind of coordinates
        crs.kind = crs.horizontal.unit.isAngle ? "geographic" : "geocentric";
    }
    if (const WktNode* const up = axisUnit(node, 2); up != nullptr && hasBase) {
        crs.vertical = CrsPart{{}, {}, readUnit(up, false, crs.oddities)};
    }
}

void setVertical(const WktNode& node, CrsDescription& crs) {
    const WktNode* unit = unitNode(node);
    unit = unit != nullptr ? unit : axisUnit(node, 0);
    crs.vertical = CrsPart{node.name(), codeOf(node), readUnit(unit, false, crs.oddities)};
}

/// Looks at a system and at those within that belong to it.
void collect(const WktNode& node, CrsDescription& crs) {
    if (!kindOf(node).empty()) {
        setHorizontal(node, crs);
    }
    for (const WktNode& inner : node.nodes) {
        const std::string_view key = inner.keyword;
        if (key == "VERT_CS" || key == "VERTCS" || key == "VERTCRS" || key == "VERTICALCRS") {
            setVertical(inner, crs);
        } else if (crs.kind.empty() && !kindOf(inner).empty()) {
            setHorizontal(inner, crs);
        }
    }
}

}  // namespace

std::optional<CrsDescription> describeWkt(const std::string& text) {
    const std::optional<WktNode> parsed = parseWkt(text);
    if (!parsed) {
        return std::nullopt;
    }
    const WktNode* root = &*parsed;
    if (root->keyword == "BOUNDCRS") {  // a system and the way from it to another one
        const WktNode* const source = root->find({"SOURCECRS"});
        root = source != nullptr && !source->nodes.empty() ? &source->nodes.front() : root;
    }
    CrsDescription crs;
    crs.name = root->name();
    crs.code = codeOf(*root);
    collect(*root, crs);
    return crs.kind.empty() ? std::nullopt : std::optional(crs);
}

}  // namespace Ovr::Formats
