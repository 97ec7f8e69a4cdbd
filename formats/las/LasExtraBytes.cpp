// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "las/LasExtraBytes.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <string_view>

#include "kit/LittleEndian.h"
#include "kit/TextFields.h"
#include "las/LasRecords.h"

namespace Ovr::Formats {

namespace {

constexpr std::uint16_t kExtraBytesRecord = 4;  // of LASF_Spec

// Where the fields of a description stand [bytes].
constexpr std::size_t kType = 2;
constexpr std::size_t kOptions = 3;
constexpr std::size_t kName = 4;
constexpr std::size_t kNameLength = 32;
constexpr std::size_t kDescriptionSize = 192;

struct NumberType {
    std::string_view name;
    std::size_t length;  // [bytes]
};

/// From type 1 on. Types 11 to 20 are two of them, 21 to 30 three.
constexpr std::array<NumberType, 10> kTypes{{
    {"uint8", 1},
    {"int8", 1},
    {"uint16", 2},
    {"int16", 2},
    {"uint32", 4},
    {"int32", 4},
    {"uint64", 8},
    {"int64", 8},
    {"float", 4},
    {"double", 8},
}};
constexpr unsigned kHighestType = 30;

/// A dimension of length 0 for a type that the standard does not know.
LasDimension dimensionOf(const char* description) {
    const char* const name = description + kName;
    LasDimension dimension;
    dimension.name.assign(name, std::find(name, name + kNameLength, '\0'));
    std::replace_if(
        dimension.name.begin(), dimension.name.end(), [](char c) { return c < ' ' || c > '~'; },
        '?');
    dimension.name = trimmed(dimension.name);
    const unsigned type = loadLittle<std::uint8_t>(description + kType);
    if (type == 0) {  // bytes without a type: their number stands in place of the options
        dimension.length = loadLittle<std::uint8_t>(description + kOptions);
        dimension.type = countText(dimension.length, "byte");
    } else if (type <= kHighestType) {
        const NumberType& number = kTypes[(type - 1) % kTypes.size()];
        const std::size_t count = (type - 1) / kTypes.size() + 1;
        dimension.length = number.length * count;
        dimension.type =
            count == 1 ? std::string(number.name) : fmt::format("{}[{}]", number.name, count);
    }
    return dimension;
}

}  // namespace

LasExtraBytes readLasExtraBytes(InputFile& file, const LasHeader& header, Remarks& remarks) {
    const LasRecord* const record =
        findLasRecord(header.records, kSpecificationUser, kExtraBytesRecord);
    const std::string data = readLasRecord(file, record);
    LasExtraBytes extra;
    extra.undocumented = header.recordLength - lasRecordLayout(header.format).length;
    for (std::size_t at = 0; at + kDescriptionSize <= data.size(); at += kDescriptionSize) {
        LasDimension dimension = dimensionOf(data.data() + at);
        if (dimension.length == 0 || dimension.length > extra.undocumented) {
            remarks.warn(fmt::format(
                "{}: byte {}: extra dimension {} {}; left out with those after it", file.name(),
                record->begin + at, inQuotes(dimension.name),
                dimension.length == 0
                    ? "has an unknown type"
                    : fmt::format("takes {}, and {} are left in a record",
                                  countText(dimension.length, "byte"), extra.undocumented)));
            break;
        }
        extra.undocumented -= dimension.length;
        extra.dimensions.push_back(std::move(dimension));
    }
    return extra;
}

}  // namespace Ovr::Formats
