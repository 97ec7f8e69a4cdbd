// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

namespace Hx {

/// A point in time: seconds as a double, since the origin that the data's source uses.
class Time {
  public:
    void setTime(double seconds) { seconds_ = seconds; }
    double getTime() const { return seconds_; }

  private:
    double seconds_ = 0.0;
};

}  // namespace Hx
