// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "las/LasNames.h"

#include <array>

namespace Ovr::Formats {

namespace {

constexpr unsigned kFirstNewFormat = 6;
constexpr unsigned kFirstUserClass = 64;

/// Formats 0 to 5.
constexpr std::array<std::string_view, 13> kOldNames{
    "created, never classified",
    "unclassified",
    "ground",
    "low vegetation",
    "medium vegetation",
    "high vegetation",
    "building",
    "low point (noise)",
    "model key point (mass point)",
    "water",
    "reserved",
    "reserved",
    "overlap points",
};

/// Formats 6 to 10.
constexpr std::array<std::string_view, 23> kNewNames{
    "created, never classified",
    "unclassified",
    "ground",
    "low vegetation",
    "medium vegetation",
    "high vegetation",
    "building",
    "low point (noise)",
    "reserved",
    "water",
    "rail",
    "road surface",
    "reserved",
    "wire, guard (shield)",
    "wire, conductor (phase)",
    "transmission tower",
    "wire-structure connector (insulator)",
    "bridge deck",
    "high noise",
    "overhead structure",
    "ignored ground",
    "snow",
    "temporal exclusion",
};

}  // namespace

std::string_view lasClassName(unsigned format, unsigned number) {
    if (format < kFirstNewFormat) {
        return number < kOldNames.size() ? kOldNames[number] : "reserved";
    }
    if (number < kNewNames.size()) {
        return kNewNames[number];
    }
    return number < kFirstUserClass ? "reserved" : "user-defined";
}

}  // namespace Ovr::Formats
