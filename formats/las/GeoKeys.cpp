// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <string_view>

#include "kit/TextFields.h"
#include "las/CrsDescription.h"

namespace Ovr::Formats {

namespace {

// Numbers of keys.
constexpr unsigned kModelType = 1024;
constexpr unsigned kCitation = 1026;
constexpr unsigned kGeographicType = 2048;
constexpr unsigned kGeographicCitation = 2049;
constexpr unsigned kGeocentricUnit = 2052;
constexpr unsigned kAngularUnit = 2054;
constexpr unsigned kProjectedType = 3072;
constexpr unsigned kProjectedCitation = 3073;
constexpr unsigned kLinearUnit = 3076;
constexpr unsigned kLinearUnitSize = 3077;
constexpr unsigned kVerticalType = 4096;
constexpr unsigned kVerticalCitation = 4097;
constexpr unsigned kVerticalUnit = 4099;

// Where the value of a key stands.
constexpr unsigned kDoubles = 34736;
constexpr unsigned kTexts = 34737;

constexpr unsigned kUserDefined = 32767;
constexpr std::size_t kNumbersPerKey = 4;  // key, where its value stands, how many values, value

class GeoKeys {
  public:
    GeoKeys(const std::vector<unsigned>& directory, const std::vector<double>& doubles,
            const std::string& texts)
        : directory_(directory), doubles_(doubles), texts_(texts) {}

    std::size_t count() const {
        const std::size_t fitting = directory_.size() / kNumbersPerKey;
        return fitting == 0 ? 0 : std::min<std::size_t>(directory_[3], fitting - 1);
    }

    /// 0 when the key is not there.
    unsigned number(unsigned key) const {
        const unsigned* const entry = find(key);
        return entry != nullptr && entry[1] == 0 ? entry[3] : 0;
    }
    double real(unsigned key) const {
        const unsigned* const entry = find(key);
        return entry != nullptr && entry[1] == kDoubles && entry[3] < doubles_.size()
                   ? doubles_[entry[3]]
                   : 0.0;
    }
    /// Empty also for the words that stand for no name.
    std::string text(unsigned key) const {
        const unsigned* const entry = find(key);
        if (entry == nullptr || entry[1] != kTexts || entry[3] >= texts_.size()) {
            return {};
        }
        std::string_view found = std::string_view(texts_).substr(entry[3], entry[2]);
        found = trimmed(found.substr(0, found.find_first_of(std::string_view("|\0", 2))));
        return found == "unknown" || found == "unnamed" ? std::string() : std::string(found);
    }

  private:
    const unsigned* find(unsigned key) const {
        for (std::size_t i = 1; i <= count(); ++i) {
            const unsigned* const entry = directory_.data() + i * kNumbersPerKey;
            if (entry[0] == key) {
                return entry;
            }
        }
        return nullptr;
    }

    const std::vector<unsigned>& directory_;
    const std::vector<double>& doubles_;
    const std::string& texts_;
};

std::string epsgCode(unsigned code) {
    return code == 0 || code == kUserDefined ? std::string() : fmt::format("EPSG:{}", code);
}

std::string firstOf(std::initializer_list<std::string> texts) {
    for (const std::string& text : texts) {
        if (!text.empty()) {
            return text;
        }
    }
    return {};
}

/// The zones of the transverse Mercator grids that every receiver knows, and the web's grid.
bool isInMetres(unsigned code) {
    return (code >= 32601 && code <= 32660) || (code >= 32701 && code <= 32760) ||
           (code >= 25828 && code <= 25838) || code == 3857;
}

CrsUnit unitFor(unsigned code) {
    return code == 0 || code == kUserDefined ? CrsUnit() : epsgUnit(code);
}

void setProjected(const GeoKeys& keys, CrsDescription& crs) {
    crs.kind = "projected";
    const unsigned code = keys.number(kProjectedType);
    crs.horizontal.name = firstOf({keys.text(kProjectedCitation), keys.text(kCitation)});
    crs.base = keys.text(kGeographicCitation);
    crs.horizontal.code = epsgCode(code);
    crs.horizontal.unit = unitFor(keys.number(kLinearUnit));
    if (const double size = keys.real(kLinearUnitSize);
        keys.number(kLinearUnit) == kUserDefined && size > 0.0) {
        crs.horizontal.unit = unitOf("user-defined unit", size, false);
    } else if (crs.horizontal.unit.kind == UnitKind::Unsaid && isInMetres(code)) {
        crs.horizontal.unit = knownUnit(UnitKind::Metre);
    }
}

void setGeographic(const GeoKeys& keys, bool isGeocentric, CrsDescription& crs) {
    crs.kind = isGeocentric ? "geocentric" : "geographic";
    const unsigned code = keys.number(kGeographicType);
    crs.horizontal.name = firstOf({keys.text(kGeographicCitation), keys.text(kCitation)});
    crs.horizontal.code = epsgCode(code);
    crs.horizontal.unit = unitFor(keys.number(isGeocentric ? kGeocentricUnit : kAngularUnit));
    if (crs.horizontal.unit.kind == UnitKind::Unsaid && isGeocentric) {
        crs.horizontal.unit = unitFor(keys.number(kLinearUnit));
    } else if (crs.horizontal.unit.kind == UnitKind::Unsaid) {
        crs.horizontal.unit = knownUnit(UnitKind::Degree);  // that of all registered ones but few
    }
}

}  // namespace

std::optional<CrsDescription> describeGeoKeys(const std::vector<unsigned>& directory,
                                              const std::vector<double>& doubles,
                                              const std::string& texts) {
    constexpr unsigned kProjected = 1;
    constexpr unsigned kGeographic = 2;
    constexpr unsigned kGeocentric = 3;
    const GeoKeys keys(directory, doubles, texts);
    if (keys.count() == 0) {
        return std::nullopt;
    }
    CrsDescription crs;
    const unsigned model = keys.number(kModelType);
    if (model == kProjected || (model == 0 && keys.number(kProjectedType) != 0)) {
        setProjected(keys, crs);
    } else if (model == kGeographic || model == kGeocentric || keys.number(kGeographicType) != 0) {
        setGeographic(keys, model == kGeocentric, crs);
    } else {
        crs.horizontal.name = keys.text(kCitation);
        crs.horizontal.unit = unitFor(keys.number(kLinearUnit));
    }
    crs.name = crs.horizontal.name;
    crs.code = crs.horizontal.code;
    const CrsPart vertical{keys.text(kVerticalCitation), epsgCode(keys.number(kVerticalType)),
                           unitFor(keys.number(kVerticalUnit))};
    if (vertical != CrsPart()) {
        crs.vertical = vertical;
    }
    return crs;
}

}  // namespace Ovr::Formats
