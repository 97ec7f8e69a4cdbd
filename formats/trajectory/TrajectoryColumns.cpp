// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "trajectory/TrajectoryColumns.h"

#include <fmt/format.h>

#include <algorithm>
#include <cctype>
#include <string>

#include "kit/TextFields.h"

namespace Ovr::Formats {

using Interfaces::ErrorCode;

namespace {

constexpr std::string_view kExportHeader = "//world_time";
constexpr std::size_t kExportColumns = 17;
constexpr std::string_view kExpected =
    "8: time x y z qx qy qz qw, or a first line that names the columns";
constexpr std::array<std::string_view, 10> kTimeNames{
    "time", "t", "timestamp", "stamp", "world_time", "gps_time", "gpstime", "sec", "seconds",
    "time_s"};
constexpr std::array<std::string_view, 5> kPositionStems{"", "t", "p", "pos_", "position_"};
constexpr std::array<std::string_view, 6> kRotationStems{"q",     "q_",    "quat_",
                                                         "quaternion_", "rot_", "orientation_"};

template <std::size_t count>
bool isOneOf(const std::array<std::string_view, count>& names, std::string_view name) {
    return std::find(names.begin(), names.end(), name) != names.end();
}

/// A column's name without its unit, in lower case; the unit in brackets.
struct Name {
    std::string word;
    std::string unit;
};

Name nameOf(std::string_view field) {
    const std::size_t bracket = std::min(field.find('['), field.find('('));
    Name name{std::string(trimmed(field.substr(0, bracket))), {}};
    std::transform(name.word.begin(), name.word.end(), name.word.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    if (bracket < field.size()) {
        const std::string_view unit = field.substr(bracket + 1);
        name.unit = trimmed(unit.substr(0, std::min(unit.find(']'), unit.find(')'))));
    }
    return name;
}

/// The value that a column of this name holds; kValues for any other.
TrajectoryColumns::Value valueNamed(const std::string& name) {
    using enum TrajectoryColumns::Value;
    if (isOneOf(kTimeNames, name)) {
        return Time;
    }
    const std::size_t axis = name.empty() ? std::string::npos
                                          : std::string_view("xyzw").find(name.back());
    if (axis == std::string::npos) {
        return kValues;
    }
    const std::string stem = name.substr(0, name.size() - 1);
    const bool frames = stem.ends_with('_');  // as in p_RS_R_x: which frame in which one
    if (isOneOf(kRotationStems, stem) || (frames && stem.starts_with("q_"))) {
        return static_cast<TrajectoryColumns::Value>(Qx + axis);
    }
    if (axis < 3 && (isOneOf(kPositionStems, stem) || (frames && stem.starts_with("p_")))) {
        return static_cast<TrajectoryColumns::Value>(X + axis);
    }
    return kValues;
}

char separatorOf(std::string_view line) {
    for (const char separator : {';', ','}) {
        if (line.find(separator) != std::string_view::npos) {
            return separator;
        }
    }
    return ' ';
}

}  // namespace

bool TrajectoryColumns::takeNames(std::string_view line) {
    if (line.starts_with(kExportHeader)) {
        count_ = kExportColumns;
        places_ = {0, 1, 2, 3, 5, 6, 7, 4};
        return named_ = true;
    }
    line.remove_prefix(std::min(line.find_first_not_of("#/ \t"), line.size()));
    const char before = separator_;
    separator_ = separatorOf(line);
    Fields fields;
    const std::size_t count = split(line, fields);
    std::array<std::size_t, kValues> places{};
    std::size_t found = 0;
    std::string unit;
    for (std::size_t i = 0; i < std::min(count, kMostColumns); ++i) {
        const Name name = nameOf(fields[i]);
        const Value value = valueNamed(name.word);
        if (value != kValues) {
            places[value] = i;
            ++found;
            unit = value == Time ? name.unit : unit;
        }
    }
    if (found != kValues || count > kMostColumns) {
        separator_ = before;
        return false;
    }
    count_ = count;
    places_ = places;
    unit_ = timeUnitNamed(unit);
    return named_ = true;
}

ErrorPtr TrajectoryColumns::takeFirst(const TextLines& line) {
    separator_ = separatorOf(line.text());
    if (named_ || takeNames(line.text())) {
        return nullptr;
    }
    Fields fields;
    const std::size_t count = split(line.text(), fields);
    if (count == kValues + 1 && parseInteger(fields[0])) {
        indexed_ = true;
        count_ = count;
        for (std::size_t& place : places_) {
            ++place;
        }
        return nullptr;
    }
    double number = 0.0;
    if (count != kValues || !parseNumber(fields[0], number)) {
        return line.fault(ErrorCode::WrongFormat,
                          fmt::format("{} {}", countText(count, "field"), inQuotes(line.text())),
                          std::string(kExpected));
    }
    return nullptr;
}

ErrorPtr TrajectoryColumns::read(const TextLines& line, Values& values) {
    Fields fields;
    const std::size_t count = split(line.text(), fields);
    if (count != count_) {
        return line.fault(ErrorCode::WrongFormat, countText(count, "field"),
                          count_ == kValues && !named_
                              ? std::string(kExpected)
                              : fmt::format("{}, as in the lines above", count_));
    }
    if (indexed_) {
        if (ErrorPtr error = checkIndex(line, fields[0])) {
            return error;
        }
    }
    for (std::size_t i = 0; i < kValues; ++i) {
        const std::string_view field = fields[places_[i]];
        if (!parseNumber(field, values[i])) {
            return line.fault(ErrorCode::InvalidValue,
                              fmt::format("{} as field {}", inQuotes(field), places_[i] + 1),
                              "a finite number");
        }
    }
    return nullptr;
}

ErrorPtr TrajectoryColumns::checkIndex(const TextLines& line, std::string_view field) {
    const std::optional<std::int64_t> index = parseInteger(field);
    if (!index || (lastIndex_ && *index != *lastIndex_ + 1)) {
        return line.fault(ErrorCode::InvalidValue, fmt::format("{} as field 1", inQuotes(field)),
                          "a number that counts the poses, or 8 columns without one");
    }
    lastIndex_ = index;
    return nullptr;
}

/// @return number of fields, also when it is more than fit
std::size_t TrajectoryColumns::split(std::string_view line, Fields& fields) const {
    if (separator_ == ' ') {
        return splitFields(line, fields);
    }
    std::size_t count = 0;
    for (std::size_t begin = 0; begin <= line.size(); ++count) {
        const std::size_t end = std::min(line.find(separator_, begin), line.size());
        if (count < fields.size()) {
            fields[count] = trimmed(line.substr(begin, end - begin));
        }
        begin = end + 1;
    }
    return count;
}

}  // namespace Ovr::Formats
