// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace Support {

// This machine and the formats are little-endian.

template <typename T>
T peek(const std::string& bytes, std::size_t at) {
    T value{};
    std::memcpy(&value, bytes.data() + at, sizeof value);
    return value;
}

/// Overwrites bytes of a file image.
template <typename T>
void poke(std::string& bytes, std::size_t at, T value) {
    std::memcpy(bytes.data() + at, &value, sizeof value);
}

/// A variable-length record: its head of 54 bytes, extended of 60, and its data.
inline std::string lasRecord(const std::string& user, std::uint16_t id, const std::string& data,
                             bool extended = false) {
    std::string record(extended ? 60 : 54, '\0');
    record.replace(2, user.size(), user);
    poke(record, 18, id);
    if (extended) {
        poke(record, 20, static_cast<std::uint64_t>(data.size()));
    } else {
        poke(record, 20, static_cast<std::uint16_t>(data.size()));
    }
    return record + data;
}

/// Makes LAS files byte by byte, right or wrong, from the published layout alone.
struct LasBytes {
    struct Point {
        std::array<std::int32_t, 3> raw{};
        std::uint16_t intensity = 0;
        double time = 0.0;
        std::array<std::uint16_t, 3> color{};
    };

    unsigned minor = 2;
    unsigned format = 1;
    std::uint16_t encoding = 0;
    std::size_t extraBytes = 0;  ///< after the fields of each record
    std::array<double, 3> scale{0.01, 0.01, 0.01};
    std::array<double, 3> offset{};
    std::array<double, 3> minimum{};
    std::array<double, 3> maximum{};
    std::string system;
    std::string software;
    std::uint32_t vlrCount = 0;
    std::string vlrs;
    std::vector<Point> points;

    static constexpr std::array<std::size_t, 11> kLength{20, 28, 26, 34, 57, 63,
                                                         30, 36, 38, 59, 67};
    static constexpr std::array<std::size_t, 11> kTimeAt{0, 20, 0, 20, 20, 20, 22, 22, 22, 22, 22};
    static constexpr std::array<std::size_t, 11> kColorAt{0, 0, 20, 28, 0, 28, 0, 30, 30, 0, 30};

    std::size_t headerSize() const { return minor == 4 ? 375 : minor == 3 ? 235 : 227; }
    std::size_t recordLength() const { return kLength[format] + extraBytes; }

    std::string bytes() const {
        std::string file(headerSize(), '\0');
        file.replace(0, 4, "LASF");
        poke(file, 6, encoding);
        file[24] = 1;
        file[25] = static_cast<char>(minor);
        file.replace(26, system.size(), system);
        file.replace(58, software.size(), software);
        poke(file, 94, static_cast<std::uint16_t>(headerSize()));
        poke(file, 96, static_cast<std::uint32_t>(headerSize() + vlrs.size()));
        poke(file, 100, vlrCount);
        file[104] = static_cast<char>(format);
        poke(file, 105, static_cast<std::uint16_t>(recordLength()));
        if (minor == 4) {
            poke(file, 247, static_cast<std::uint64_t>(points.size()));
        } else {
            poke(file, 107, static_cast<std::uint32_t>(points.size()));
        }
        for (std::size_t axis = 0; axis < 3; ++axis) {
            poke(file, 131 + 8 * axis, scale[axis]);
            poke(file, 155 + 8 * axis, offset[axis]);
            poke(file, 179 + 16 * axis, maximum[axis]);
            poke(file, 187 + 16 * axis, minimum[axis]);
        }
        file += vlrs;
        for (const Point& point : points) {
            file += record(point);
        }
        return file;
    }

  private:
    std::string record(const Point& point) const {
        std::string bytes(recordLength(), '\x7E');
        for (std::size_t axis = 0; axis < 3; ++axis) {
            poke(bytes, 4 * axis, point.raw[axis]);
        }
        poke(bytes, 12, point.intensity);
        if (kTimeAt[format] != 0) {
            poke(bytes, kTimeAt[format], point.time);
        }
        for (std::size_t c = 0; kColorAt[format] != 0 && c < 3; ++c) {
            poke(bytes, kColorAt[format] + 2 * c, point.color[c]);
        }
        return bytes;
    }
};

}  // namespace Support
