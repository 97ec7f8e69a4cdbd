// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "Ovr/Errors.h"
#include "Ovr/Progress.h"

namespace Ovr::Formats {

/// Tells the listener how far a piece of long work has come, and the work whether to go on.
class WorkWatch {
  public:
    explicit WorkWatch(const DataStructures::Work& work) : work_(work) {}

    /// Called as often as the work likes; the listener hears only of steps that show.
    /// @return false when the work is to stop
    [[nodiscard]] bool goOn(double fraction) {
        if (work_.progress != nullptr &&
            (fraction >= told_ + kStep || (fraction >= 1.0 && told_ < 1.0))) {
            told_ = fraction;
            work_.progress->setFraction(fraction);
        }
        return work_.cancel == nullptr || !work_.cancel->isCancelled();
    }

  private:
    static constexpr double kStep = 0.005;

    DataStructures::Work work_;
    double told_ = 0.0;
};

/// The error of work that was told to stop.
[[nodiscard]] inline ErrorPtr cancelled(const std::string& file) {
    return makeError(Interfaces::ErrorCode::Cancelled, {file, "cancelled", "", ""});
}

}  // namespace Ovr::Formats
