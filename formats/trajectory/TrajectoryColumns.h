// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "Ovr/Errors.h"
#include "Ovr/TimeUnit.h"
#include "kit/TextLines.h"

namespace Ovr::Formats {

/// Where the values of a pose stand in the lines of a trajectory file.
///
/// | the file has | columns |
/// |---|---|
/// | the header line of the module's text export | 17, the first eight are time, x, y, z, qw, qx, qy, qz |
/// | a line that names all eight, and others or not | as named |
/// | eight columns | time, x, y, z, qx, qy, qz, qw |
/// | nine columns, the first a whole number | a number that counts up, then those eight |
///
/// Columns are apart by commas, semicolons or blanks, the same in the whole file.
class TrajectoryColumns {
  public:
    enum Value : std::size_t { Time, X, Y, Z, Qx, Qy, Qz, Qw, kValues };
    using Values = std::array<double, kValues>;

    /// Looks at a line before the first pose, without comment signs.
    /// @return whether it names the columns; they are as it says from then on
    bool takeNames(std::string_view line);
    /// Looks at the first line that is no comment.
    /// @return empty when it can be a pose, or names the columns; else WrongFormat
    [[nodiscard]] ErrorPtr takeFirst(const TextLines& line);
    /// Whether the line that takeFirst looked at names the columns.
    bool hasNames() const { return named_; }

    /// Reads a pose. @return empty on success, else the fault with line, field and what was expected
    [[nodiscard]] ErrorPtr read(const TextLines& line, Values& values);

    /// Unit of the times, where the names of the columns say one.
    std::optional<TimeUnit> unit() const { return unit_; }

  private:
    static constexpr std::size_t kMostColumns = 64;
    using Fields = std::array<std::string_view, kMostColumns>;

    std::size_t split(std::string_view line, Fields& fields) const;
    [[nodiscard]] ErrorPtr checkIndex(const TextLines& line, std::string_view field);

    bool named_ = false;
    char separator_ = ' ';
    std::size_t count_ = kValues;
    std::array<std::size_t, kValues> places_{0, 1, 2, 3, 4, 5, 6, 7};
    bool indexed_ = false;  ///< the first column counts the poses
    std::optional<std::int64_t> lastIndex_;
    std::optional<TimeUnit> unit_;
};

}  // namespace Ovr::Formats
