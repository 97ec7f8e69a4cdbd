// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

namespace Hx {

/// Which derived properties of a scan are up to date.
class ScanProperties {
  public:
    bool checkReflStatValid() const { return reflStatValid_; }
    bool checkDistStatValid() const { return distStatValid_; }
    void setReflStatValid(bool valid) { reflStatValid_ = valid; }
    void setDistStatValid(bool valid) { distStatValid_ = valid; }

  private:
    bool reflStatValid_ = false;
    bool distStatValid_ = false;
};

}  // namespace Hx
