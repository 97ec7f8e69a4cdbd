// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "las/LasTimes.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>

#include "kit/LittleEndian.h"
#include "kit/PointClock.h"
#include "kit/TextFields.h"
#include "kit/WorkWatch.h"
#include "las/LasBlocks.h"

namespace Ovr::Formats {

using Interfaces::ErrorCode;

namespace {

class LasTimeLoader {
  public:
    LasTimeLoader(InputFile& file, const LasHeader& header, const ScanSource& source,
                  const TimeTarget& target, const std::optional<TimeRange>& known)
        : file_(file),
          header_(header),
          target_(target),
          known_(known),
          timeOffset_(*lasRecordLayout(header.format).time),
          count_(std::min(header.count, target.maximumCount)),
          watch_(target.work),
          clock_(source.clock) {}

    [[nodiscard]] ErrorPtr load();

  private:
    double time(const char* record) const { return loadLittle<double>(record + timeOffset_); }

    [[nodiscard]] ErrorPtr check();
    [[nodiscard]] ErrorPtr write();
    void drop();
    void remarkOnClock() const;

    InputFile& file_;
    const LasHeader& header_;
    const TimeTarget& target_;
    const std::optional<TimeRange>& known_;
    std::size_t timeOffset_;
    std::uint64_t count_;
    WorkWatch watch_;
    PointClock clock_;
    TimeRange raw_;  ///< in the file's unit
};

ErrorPtr LasTimeLoader::load() {
    const bool fits = count_ <= std::numeric_limits<int>::max() &&
                      target_.times.resizeTimeStamps(1, static_cast<int>(count_));
    if (!fits) {
        return makeError(ErrorCode::InvalidValue,
                         {file_.name(), "", fmt::format("times of {}", countText(count_, "point")),
                          "those of the points that are loaded, in one row"});
    }
    if (known_) {
        raw_ = *known_;
    } else if (ErrorPtr error = check()) {
        return error;
    }
    TimeRange shifted = raw_;
    shifted.first = clock_.onTrajectoryClock(raw_.first);
    shifted.last = clock_.onTrajectoryClock(raw_.last);
    if (!raw_.empty) {
        remarkOnClock();
    }
    if (ErrorPtr error = clock_.start(shifted, target_.trajectory, file_.name())) {
        return error;
    }
    if (ErrorPtr error = write()) {
        return error;
    }
    target_.timeZero = clock_.zero();
    if (target_.metaData != nullptr) {
        target_.metaData->ScanDuration(clock_.duration());
    }
    return nullptr;
}

ErrorPtr LasTimeLoader::check() {
    const auto opened = openLasBlocks(file_, header_, count_);
    for (LasBlocks& blocks = *opened; !blocks.atEnd();) {
        if (ErrorPtr error = blocks.next()) {
            return error;
        }
        for (std::uint64_t i = 0; i < blocks.records(); ++i) {
            const double value = time(blocks.record(i));
            if (!std::isfinite(value)) {
                return blocks.fault(
                    ErrorCode::InvalidValue, i, timeOffset_,
                    fmt::format("the time {:.9g} of point {}", value, blocks.first() + i),
                    "a finite number");
            }
            raw_.add(value);
        }
        if (!watch_.goOn(blocks.fraction() / 2)) {
            return cancelled(file_.name());
        }
    }
    return nullptr;
}

ErrorPtr LasTimeLoader::write() {
    const auto opened = openLasBlocks(file_, header_, count_);
    for (LasBlocks& blocks = *opened; !blocks.atEnd();) {
        if (ErrorPtr error = blocks.next()) {
            drop();
            return error;
        }
        for (std::uint64_t i = 0; i < blocks.records(); ++i) {
            const double value = time(blocks.record(i));
            if (!(value >= raw_.first && value <= raw_.last)) {
                drop();
                return blocks.fault(
                    ErrorCode::CannotRead, i, timeOffset_,
                    fmt::format("the time {:.9g}, which was not there before", value),
                    "a file that stays as it is");
            }
            target_.times.setTimeStamp(0, static_cast<int>(blocks.first() + i),
                                       clock_.microseconds(value));
        }
        if (!watch_.goOn(0.5 + blocks.fraction() / 2)) {
            drop();
            return cancelled(file_.name());
        }
    }
    return nullptr;
}

void LasTimeLoader::drop() {
    for (std::uint64_t i = 0; i < count_; ++i) {
        target_.times.setTimeStamp(0, static_cast<int>(i), 0);
    }
}

void LasTimeLoader::remarkOnClock() const {
    TimeRange seconds = raw_;
    seconds.first = clock_.inSeconds(raw_.first);
    seconds.last = clock_.inSeconds(raw_.last);
    const ClockKind found = clockKind(seconds);
    const ClockKind said = header_.adjustedTime ? ClockKind::AdjustedGps : ClockKind::WeekSeconds;
    const std::string line = fmt::format("{}: the point times look like {}; the header says {}",
                                         file_.name(), describe(found), describe(said));
    if (found == said) {
        target_.remarks.note(line);
    } else {
        target_.remarks.warn(line);
    }
}

}  // namespace

ErrorPtr loadLasTimes(InputFile& file, const LasHeader& header, const ScanSource& source,
                      const TimeTarget& target, const std::optional<TimeRange>& known) {
    if (!lasRecordLayout(header.format).time) {
        return makeError(
            ErrorCode::NoTimes,
            {file.name(), "", fmt::format("point format {}, which has no time", header.format),
             "point format 1 or 3 to 10"});
    }
    return LasTimeLoader(file, header, source, target, known).load();
}

}  // namespace Ovr::Formats
