// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "las/LasTimes.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <utility>

#include "kit/Finding.h"
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
          source_(source),
          target_(target),
          known_(known),
          timeOffset_(*lasRecordLayout(header.format).time),
          count_(std::min(header.count, target.maximumCount)),
          watch_(target.work),
          clock_(source.clock) {}

    [[nodiscard]] ErrorPtr load();

  private:
    double time(const char* record) const { return loadLittle<double>(record + timeOffset_); }

    [[nodiscard]] ErrorPtr findRange();
    [[nodiscard]] ErrorPtr write();
    [[nodiscard]] ErrorPtr writeBlock(const LasBlocks& blocks);
    std::uint64_t take(std::uint64_t number, double value);
    [[nodiscard]] ErrorPtr giveUp(ErrorPtr error);
    void remarkOnClock() const;
    void remarkOnSameTimes() const;
    void remarkOnOutside() const;
    [[nodiscard]] ErrorPtr noneWithin() const;

    InputFile& file_;
    const LasHeader& header_;
    const ScanSource& source_;
    const TimeTarget& target_;
    const std::optional<TimeRange>& known_;
    std::size_t timeOffset_;
    std::uint64_t count_;
    WorkWatch watch_;
    PointClock clock_;
    TimeRange raw_;             ///< in the file's unit
    std::uint64_t finite_ = 0;  ///< times that are finite numbers
    Finding odd_;               ///< times that are no finite number
    Finding before_;            ///< points before the trajectory, and by how much [s]
    Finding after_;             ///< points after it
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
        finite_ = count_;
    } else if (ErrorPtr error = findRange()) {
        return error;
    }
    if (!raw_.empty) {
        remarkOnClock();
        remarkOnSameTimes();
    } else if (count_ != 0) {
        return noneWithin();
    }
    if (ErrorPtr error = clock_.start(raw_, target_.trajectory, file_.name())) {
        if (target_.trajectory.empty() && !raw_.empty) {
            target_.timeZero = clock_.zero();
        }
        return error;
    }
    if (ErrorPtr error = write()) {
        return giveUp(std::move(error));
    }
    remarkOnOutside();
    target_.timeZero = clock_.zero();
    if (target_.metaData != nullptr) {
        target_.metaData->ScanDuration(clock_.duration());
    }
    return nullptr;
}

ErrorPtr LasTimeLoader::findRange() {
    const auto opened = openLasBlocks(file_, header_, count_);
    for (LasBlocks& blocks = *opened; !blocks.atEnd();) {
        if (ErrorPtr error = blocks.next()) {
            return error;
        }
        for (std::uint64_t i = 0; i < blocks.records(); ++i) {
            const double value = time(blocks.record(i));
            if (std::isfinite(value)) {
                raw_.add(value);
                ++finite_;
            }
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
            return error;
        }
        if (ErrorPtr error = writeBlock(blocks)) {
            return error;
        }
        if (!watch_.goOn(0.5 + blocks.fraction() / 2)) {
            return cancelled(file_.name());
        }
    }
    const bool anyWithin = odd_.count + before_.count + after_.count < count_;
    return anyWithin || count_ == 0 ? nullptr : noneWithin();
}

ErrorPtr LasTimeLoader::writeBlock(const LasBlocks& blocks) {
    for (std::uint64_t i = 0; i < blocks.records(); ++i) {
        const double value = time(blocks.record(i));
        if (std::isfinite(value) && !(value >= raw_.first && value <= raw_.last)) {
            return blocks.fault(ErrorCode::CannotRead, i, timeOffset_,
                                fmt::format("the time {:.9g}, which was not there before", value),
                                "a file that stays as it is");
        }
        const std::uint64_t number = blocks.first() + i;
        target_.times.setTimeStamp(0, static_cast<int>(number), take(number, value));
    }
    return nullptr;
}

/// @return the point's scan time [us]; what lies outside the scan is noticed
std::uint64_t LasTimeLoader::take(std::uint64_t number, double value) {
    if (!std::isfinite(value)) {
        odd_.add(number, 0.0);
        return 0;
    }
    const PointClock::ScanTime time = clock_.scanTimeOf(value);
    if (time.place != PointClock::Place::Within) [[unlikely]] {
        Finding& outside = time.place == PointClock::Place::Before ? before_ : after_;
        outside.add(number, clock_.distanceOutside(value));
    }
    return time.microseconds;
}

ErrorPtr LasTimeLoader::noneWithin() const {
    return makeError(
        ErrorCode::TimeRange,
        {file_.name(), "",
         raw_.empty
             ? fmt::format("{} without a time that is a finite number", countText(count_, "point"))
             : fmt::format("{} before the trajectory, {} after it", before_.count, after_.count),
         "a point with a time within the scan"});
}

void LasTimeLoader::remarkOnOutside() const {
    const auto tell = [this](const Finding& finding, const std::string& what) {
        if (finding.count != 0) {
            target_.remarks.warn(fmt::format("{}: {} of {} {}, the first is point {}", file_.name(),
                                             finding.count, countText(count_, "point"), what,
                                             finding.first));
        }
    };
    tell(odd_, "with a time that is no finite number, taken as scan time 0");
    tell(before_, fmt::format("measured before the first pose, by up to {} s, taken as scan time 0",
                              secondsText(before_.extreme)));
    tell(after_,
         fmt::format("measured after the last pose, by up to {} s", secondsText(after_.extreme)));
}

/// Takes back what was written.
ErrorPtr LasTimeLoader::giveUp(ErrorPtr error) {
    for (std::uint64_t i = 0; i < count_; ++i) {
        target_.times.setTimeStamp(0, static_cast<int>(i), 0);
    }
    return error;
}

void LasTimeLoader::remarkOnSameTimes() const {
    if (raw_.first == raw_.last && finite_ > 1) {
        target_.remarks.warn(fmt::format("{}: all times of {} are equal, {:.9g}: they say nothing",
                                         file_.name(), countText(finite_, "point"), raw_.first));
    }
}

void LasTimeLoader::remarkOnClock() const {
    if (source_.clock.points) {
        return;  // the user knows better than the header
    }
    const ClockGuess found =
        guessClock({clock_.inSeconds(raw_.first), clock_.inSeconds(raw_.last), false});
    const Clock said = header_.adjustedTime ? Clock::AdjustedGps : Clock::GpsWeek;
    const std::string line = fmt::format("{}: the point times look like {}; the header says {}",
                                         file_.name(), describe(found), phraseOf(said));
    if (found.isOnly(said)) {
        target_.remarks.note(line);
    } else {
        target_.remarks.warn(line);
    }
}

}  // namespace

ErrorPtr loadLasTimes(InputFile& file, const LasHeader& header, const ScanSource& source,
                      const TimeTarget& target, const std::optional<TimeRange>& known) {
    if (!lasRecordLayout(header.format).time) {
        return noLasTimes(file.name(), header);
    }
    return LasTimeLoader(file, header, source, target, known).load();
}

}  // namespace Ovr::Formats
