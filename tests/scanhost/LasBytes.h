// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include "Tq/Vec3d.h"

namespace ScanHost::Tests {

template <typename T>
void put(std::string& bytes, std::size_t offset, T value) {
    std::memcpy(bytes.data() + offset, &value, sizeof value);
}

template <typename T>
T get(const std::string& bytes, std::size_t offset) {
    T value{};
    std::memcpy(&value, bytes.data() + offset, sizeof value);
    return value;
}

/// The header of a LAS 1.2 file with a scale of a millimetre; the points stand right behind it.
inline std::string lasHeader(std::uint8_t format, std::uint16_t recordLength, std::uint32_t count) {
    constexpr std::uint16_t kHeaderSize = 227;
    std::string header(kHeaderSize, '\0');
    std::memcpy(header.data(), "LASF", 4);
    put<std::uint8_t>(header, 24, 1);
    put<std::uint8_t>(header, 25, 2);
    put(header, 94, kHeaderSize);
    put<std::uint32_t>(header, 96, kHeaderSize);
    put(header, 104, format);
    put(header, 105, recordLength);
    put(header, 107, count);
    for (std::size_t axis = 0; axis < 3; ++axis) {
        put(header, 131 + 8 * axis, 0.001);
    }
    return header;
}

/// The same with the points, all of whose bytes are zero.
inline std::string lasFile(std::uint8_t format, std::uint16_t recordLength, std::uint32_t count) {
    std::string bytes = lasHeader(format, recordLength, count);
    bytes.resize(bytes.size() + std::size_t{count} * recordLength);
    return bytes;
}

struct LasValue {
    Tq_1_1::Vec3d<double> point;
    std::uint16_t intensity;
    std::uint16_t red;
    double time;
};

/// The points of a LAS file of format 3, read byte by byte.
inline std::vector<LasValue> readLas(const std::string& bytes) {
    std::vector<LasValue> values;
    const auto length = get<std::uint16_t>(bytes, 105);
    const auto first = get<std::uint32_t>(bytes, 96);
    for (std::uint32_t i = 0; i < get<std::uint32_t>(bytes, 107); ++i) {
        const std::size_t record = first + std::size_t{i} * length;
        LasValue value{{},
                       get<std::uint16_t>(bytes, record + 12),
                       get<std::uint16_t>(bytes, record + 28),
                       get<double>(bytes, record + 20)};
        for (std::size_t axis = 0; axis < 3; ++axis) {
            value.point[axis] =
                get<std::int32_t>(bytes, record + 4 * axis) * get<double>(bytes, 131 + 8 * axis) +
                get<double>(bytes, 155 + 8 * axis);
        }
        values.push_back(value);
    }
    return values;
}

}  // namespace ScanHost::Tests
