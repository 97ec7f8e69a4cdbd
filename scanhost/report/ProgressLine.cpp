// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "report/ProgressLine.h"

#include <unistd.h>

#include <algorithm>
#include <utility>

#include <fmt/format.h>

namespace ScanHost {

namespace {

constexpr const char* kEraseLine = "\r\033[K";

}  // namespace

void ProgressLine::begin(const std::string& task) {
    task_ = task;
    percent_ = kNothingShown;
}

void ProgressLine::setFraction(double fraction) {
    const int percent = static_cast<int>(std::clamp(fraction, 0.0, 1.0) * 100.0);
    if (percent <= percent_ || task_.empty()) {
        return;
    }
    percent_ = percent;
    std::string line = inPlace_ ? kEraseLine : "scanhost: ";
    line += fmt::format("{} {} %", task_, percent);
    line += inPlace_ ? "" : "\n";
    out_ << line << std::flush;
}

void ProgressLine::end() {
    if (inPlace_ && percent_ != kNothingShown) {
        out_ << kEraseLine << std::flush;
    }
    begin({});
}

std::shared_ptr<ProgressLine> makeProgress(std::ostream& out, ProgressMode mode) {
    const bool terminal = isatty(STDERR_FILENO) != 0;
    if (mode == ProgressMode::None || (mode == ProgressMode::Automatic && !terminal)) {
        return nullptr;
    }
    return std::make_shared<ProgressLine>(out, mode == ProgressMode::Automatic);
}

ProgressTask::ProgressTask(std::shared_ptr<ProgressLine> line, const std::string& task)
    : line_(std::move(line)) {
    if (line_) {
        line_->begin(task);
    }
}

ProgressTask::~ProgressTask() {
    if (line_) {
        line_->end();
    }
}

}  // namespace ScanHost
