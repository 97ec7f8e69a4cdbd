// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <ostream>
#include <string>

#include "Ovr/Progress.h"

namespace ScanHost {

/// Where the progress of long work is shown.
enum class ProgressMode {
    Automatic,  ///< one line that changes in place, on a terminal only
    Plain,      ///< a line for every percent, wherever standard error goes
    None
};

/// Shows how far one task after the other has come, in whole percent. Shows nothing between tasks.
class ProgressLine final : public Ovr::DataStructures::IProgress {
  public:
    /// @param inPlace  write over the line; else each percent gets a line of its own
    ProgressLine(std::ostream& out, bool inPlace) : out_(out), inPlace_(inPlace) {}

    /// The next task.
    void begin(const std::string& task);
    /// @param fraction  of the task that is done, 0 to 1
    void setFraction(double fraction) override;
    /// Takes the line away again.
    void end();

  private:
    static constexpr int kNothingShown = -1;

    std::ostream& out_;
    bool inPlace_;
    std::string task_;
    int percent_ = kNothingShown;
};

/// @return empty when nothing is to be shown
std::shared_ptr<ProgressLine> makeProgress(std::ostream& out, ProgressMode mode);

/// One task, from construction to destruction. The line may be empty.
class ProgressTask {
  public:
    /// @param task  what is done, for example "walk.las: reading points"
    ProgressTask(std::shared_ptr<ProgressLine> line, const std::string& task);
    ProgressTask(const ProgressTask&) = delete;
    ProgressTask& operator=(const ProgressTask&) = delete;
    ~ProgressTask();

  private:
    std::shared_ptr<ProgressLine> line_;
};

}  // namespace ScanHost
