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
    /// Both may be null and outlive the watch.
    WorkWatch(DataStructures::IProgress* progress, const DataStructures::ICancelInfo* cancel)
        : progress_(progress), cancel_(cancel) {}

    /// Called as often as the work likes; the listener hears only of steps that show.
    /// @return false when the work is to stop
    bool goOn(double fraction) {
        if (progress_ != nullptr &&
            (fraction >= told_ + kStep || (fraction >= 1.0 && told_ < 1.0))) {
            told_ = fraction;
            progress_->setFraction(fraction);
        }
        return cancel_ == nullptr || !cancel_->isCancelled();
    }

  private:
    static constexpr double kStep = 0.005;

    DataStructures::IProgress* progress_;
    const DataStructures::ICancelInfo* cancel_;
    double told_ = 0.0;
};

/// The error of work that was told to stop.
inline ErrorPtr cancelled(const std::string& file) {
    return makeError(Interfaces::ErrorCode::Cancelled, {file, "cancelled", "", ""});
}

}  // namespace Ovr::Formats
