// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>

#include "Ovr/Errors.h"
#include "Tq/Vec3d.h"
#include "las/LasRecordWriter.h"

namespace Ovr::Formats {

/// What is said once in a LAS file.
struct LasWriterSettings {
    /// Points that will be written, as far as known. More than 32 bits count makes the file LAS 1.4
    /// with point format 6 or 7; else it is LAS 1.2 with format 1 or 3, which every program reads.
    std::uint64_t expectedCount = 0;
    bool colored = false;
    std::array<double, 3> scale{0.0001, 0.0001, 0.0001};  ///< [m]
    std::array<double, 3> offset{};                       ///< [m]
    bool adjustedTime = false;  ///< times are GPS time minus 1e9 s; else week seconds or others
    std::string systemIdentifier{};    ///< up to 32 bytes
    std::string generatingSoftware{};  ///< up to 32 bytes
    std::uint16_t creationDay = 0;     ///< of the year, from 1; 0 leaves it open
    std::uint16_t creationYear = 0;
    Existing existing = Existing::Keep;  ///< what becomes of a file of the name
};

struct LasPoint {
    Tq_1_1::Vec3d<double> position;  ///< [m]
    std::uint16_t intensity = 0;
    std::array<std::uint16_t, 3> color{};  ///< red, green, blue, see wideChannel
    double time = 0.0;                     ///< [s]
};

/// The 16-bit value of an 8-bit colour channel: 255 becomes 65535.
constexpr std::uint16_t wideChannel(std::uint8_t channel) {
    return static_cast<std::uint16_t>(channel * 257U);
}

/// Writes points one after another into a LAS file, which appears when it is finished and leaves
/// no trace when it is not. Compressed or not, its records are the same.
class LasWriter {
  public:
    /// @return empty on success. Requires: called once; finite settings, scales above 0.
    [[nodiscard]] ErrorPtr open(const std::filesystem::path& file,
                                const LasWriterSettings& settings);

    /// @return InvalidValue for a coordinate that scale and offset cannot express in 32 bits;
    ///         WriteFailed when the disk does not take it
    [[nodiscard]] ErrorPtr write(const LasPoint& point);

    /// Completes the header and brings the file to its name.
    [[nodiscard]] ErrorPtr finish();

    std::uint64_t count() const { return count_; }

  private:
    std::size_t recordLength() const;
    [[nodiscard]] ErrorPtr setCoordinates(const LasPoint& point, char* record);
    std::string header() const;
    void putCounts(char* header) const;

    LasRecordWriter file_;
    std::string name_;
    LasWriterSettings settings_;
    bool wide_ = false;  ///< LAS 1.4
    std::uint64_t count_ = 0;
    std::array<std::int32_t, 3> smallest_{};
    std::array<std::int32_t, 3> largest_{};
};

}  // namespace Ovr::Formats
