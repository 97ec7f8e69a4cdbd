// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <mutex>
#include <string>
#include <vector>

#include "HostExport.h"

namespace Ovr {

/// What readers have to say of files that they accept, one line of UTF-8 each, in the order in
/// which it was found. A line that is there already is not added again: a file that is read twice
/// says the same twice.
/// Threads: any.
class HOST_EXPORT Remarks {
  public:
    Remarks() = default;
    Remarks(const Remarks&) = delete;
    Remarks& operator=(const Remarks&) = delete;

    /// Something that the user should look at.
    void warn(const std::string& line);
    /// Something that was found out on the way and gives no cause for concern.
    void note(const std::string& line);

    std::vector<std::string> warnings() const;
    std::vector<std::string> notes() const;

  private:
    mutable std::mutex mutex_;
    std::vector<std::string> warnings_;
    std::vector<std::string> notes_;
};

}  // namespace Ovr
