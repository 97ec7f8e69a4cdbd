// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "las/CrsUnit.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <numbers>
#include <optional>

namespace Ovr::Formats {

namespace {

constexpr double kRadiansPerDegree = std::numbers::pi / 180.0;
/// Files write factors with 7 digits and more. The two feet differ by 2e-6 of a foot.
constexpr double kSameFactor = 5e-7;

struct KnownUnit {
    UnitKind kind;
    std::string_view name;
    double factor;
    bool isAngle;
};

constexpr std::array<KnownUnit, 4> kKnown{{
    {UnitKind::Metre, "metre", 1.0, false},
    {UnitKind::Foot, "foot", 0.3048, false},
    {UnitKind::UsSurveyFoot, "US survey foot", 1200.0 / 3937.0, false},
    {UnitKind::Degree, "degree", kRadiansPerDegree, true},
}};

struct Spelling {
    std::string_view text;  ///< letters alone, lower case
    UnitKind kind;
};

constexpr std::array<Spelling, 17> kSpellings{{
    {"metre", UnitKind::Metre},
    {"meter", UnitKind::Metre},
    {"metres", UnitKind::Metre},
    {"meters", UnitKind::Metre},
    {"m", UnitKind::Metre},
    {"foot", UnitKind::Foot},
    {"ft", UnitKind::Foot},
    {"internationalfoot", UnitKind::Foot},
    {"footinternational", UnitKind::Foot},
    {"ussurveyfoot", UnitKind::UsSurveyFoot},
    {"ussurveyfeet", UnitKind::UsSurveyFoot},
    {"footus", UnitKind::UsSurveyFoot},
    {"usfoot", UnitKind::UsSurveyFoot},
    {"ftus", UnitKind::UsSurveyFoot},
    {"usft", UnitKind::UsSurveyFoot},
    {"degree", UnitKind::Degree},
    {"degrees", UnitKind::Degree},
}};

std::string lettersOf(std::string_view name) {
    std::string letters;
    for (const char c : name) {
        if (std::isalpha(static_cast<unsigned char>(c)) != 0) {
            letters += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
        }
    }
    return letters;
}

bool isSame(double a, double b) {
    return std::abs(a - b) <= kSameFactor * b;
}

std::optional<UnitKind> kindNamed(std::string_view name) {
    const std::string letters = lettersOf(name);
    for (const Spelling& spelling : kSpellings) {
        if (spelling.text == letters) {
            return spelling.kind;
        }
    }
    return std::nullopt;
}

}  // namespace

CrsUnit knownUnit(UnitKind kind) {
    for (const KnownUnit& known : kKnown) {
        if (known.kind == kind) {
            return {kind, std::string(known.name), known.factor, known.isAngle};
        }
    }
    return {};
}

bool agrees(const CrsUnit& unit, double factor) {
    return factor == 0.0 || isSame(factor, unit.factor);
}

CrsUnit unitOf(std::string_view name, double factor, bool isAngle) {
    const std::optional<UnitKind> kind = kindNamed(name);
    // "foot" alone is also what people call a US survey foot: there the factor tells.
    if (kind && (*kind != UnitKind::Foot || agrees(knownUnit(*kind), factor) || factor == 1.0)) {
        return knownUnit(*kind);
    }
    for (const KnownUnit& known : kKnown) {
        if (known.isAngle == isAngle && factor != 0.0 && isSame(factor, known.factor)) {
            return knownUnit(known.kind);
        }
    }
    return {UnitKind::Other, std::string(name), factor, isAngle};
}

CrsUnit epsgUnit(unsigned code) {
    switch (code) {
        case 9001:
            return knownUnit(UnitKind::Metre);
        case 9002:
            return knownUnit(UnitKind::Foot);
        case 9003:
            return knownUnit(UnitKind::UsSurveyFoot);
        case 9102:
        case 9122:
            return knownUnit(UnitKind::Degree);
        case 9036:
            return {UnitKind::Other, "kilometre", 1000.0, false};
        case 9101:
            return {UnitKind::Other, "radian", 1.0, true};
        default:
            return {UnitKind::Other, fmt::format("unit EPSG:{}", code), 0.0,
                    code >= 9100 && code < 9200};
    }
}

}  // namespace Ovr::Formats
