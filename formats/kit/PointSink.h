// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstdint>
#include <filesystem>
#include <optional>

#include "Ovr/Errors.h"
#include "Ovr/IScanData.h"
#include "Ovr/IScanIntegration.h"
#include "Tq/UnitVec3d.h"
#include "Tq/Vec3d.h"

namespace Ovr::Formats {

/// Gathers the statistic of one value in a single pass.
class StatisticBuilder {
  public:
    void add(double value);
    /// All fields 0 when nothing was added. The deviation is that of the whole population.
    ValueStatistic result() const;

  private:
    // Sums of the differences to the first value: a large common part would cost all digits.
    double first_ = 0.0;
    double sum_ = 0.0;
    double sumOfSquares_ = 0.0;
    double minimum_ = 0.0;
    double maximum_ = 0.0;
    std::uint64_t count_ = 0;
};

/// A point as the readers have it.
struct ReadPoint {
    Tq_1_1::Vec3d<float> position;
    std::uint16_t reflection = 0;
    std::array<std::uint8_t, 3> color{};  ///< red, green, blue
    Tq_1_1::UnitVec3d<double> normal;
};

/// Puts the points of a file into a point set: picks the kind of records for what the file has and
/// the point set takes.
///
/// | the file has | records |
/// |---|---|
/// | colour and reflection | the colour in the colour bytes, the reflection in a field of its own |
/// | reflection alone | the reflection in the colour bytes |
class PointSink {
  public:
    /// @param colored  whether the file's points have a colour
    PointSink(Interfaces::IScanIntegration& integration, bool colored);

    /// Sizes the point set. @return OutOfMemory when it refuses.
    [[nodiscard]] ErrorPtr resize(int rows, int cols, const std::filesystem::path& file);

    void put(int row, int col, const ReadPoint& point);
    /// A cell without a return.
    void putNull(int row, int col);

    /// Of the points put so far. Reflections that are all 0 are taken as "not measured".
    std::optional<ValueStatistic> reflectionStatistic() const;
    /// Forgets what was gathered, for a second pass over the same points.
    void restart() { reflections_ = {}; }

  private:
    Interfaces::IScanIntegration& integration_;
    bool colored_;
    bool separateReflection_;
    StatisticBuilder reflections_;
};

}  // namespace Ovr::Formats
