// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <ostream>
#include <string>
#include <unordered_set>
#include <vector>

#include "report/ProgressLine.h"
#include "report/Report.h"

namespace ScanHost {

/// Where a command's words go: its report to standard output, warnings and progress to standard
/// error. With JSON the standard output gets one document and nothing else.
class Console {
  public:
    Console(std::ostream& out, std::ostream& err) : out_(out), err_(err) {}

    void setJson(bool json) { json_ = json; }
    bool isJson() const { return json_; }
    /// Says no warnings from now on; JSON documents still have them.
    void setQuiet(bool quiet) { quiet_ = quiet; }
    /// A path that is printed as another name wherever it stands.
    void setAlias(std::string path, std::string name);
    /// The text with the name in place of the path.
    std::string aliased(std::string text) const;
    /// Whether there was anything to warn of.
    bool hasWarned() const { return !warnings_.empty(); }
    void setProgress(ProgressMode mode) { progress_ = makeProgress(err_, mode); }
    /// Empty when nothing is to be shown.
    const std::shared_ptr<ProgressLine>& progress() const { return progress_; }

    /// Says a warning once, however often it comes. JSON documents repeat it.
    void warn(const std::string& message);
    void warn(const std::vector<std::string>& messages);
    /// Says why a command ends.
    void error(const std::string& message);

    /// Prints a report. Throws a Failure when standard output does not take it.
    void show(const Report& report);
    /// Standard output, for text that is not a report.
    std::ostream& stream() { return out_; }
    /// Prints text as it is. Throws a Failure when standard output does not take it.
    void print(const std::string& text);

  private:
    void flush();

    std::ostream& out_;
    std::ostream& err_;
    bool json_ = false;
    std::shared_ptr<ProgressLine> progress_;
    bool quiet_ = false;
    std::string aliasPath_;  ///< empty: none
    std::string aliasName_;
    std::vector<std::string> warnings_;
    std::unordered_set<std::string> told_;
};

}  // namespace ScanHost
