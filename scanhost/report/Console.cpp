// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "report/Console.h"

#include <algorithm>
#include <utility>

#include "report/Failure.h"
#include "report/NumberText.h"

namespace ScanHost {

void Console::warn(const std::string& message) {
    const std::string line = printable(message);
    if (std::find(warnings_.begin(), warnings_.end(), line) == warnings_.end()) {
        warnings_.push_back(line);
        err_ << "scanhost: warning: " << line << std::endl;
    }
}

void Console::warn(const std::vector<std::string>& messages) {
    for (const std::string& message : messages) {
        warn(message);
    }
}

void Console::error(const std::string& message) {
    err_ << "scanhost: " << printable(message) << std::endl;
}

void Console::show(const Report& report) {
    if (json_) {
        Json::Value document = report.json();
        Json::Value& warnings = document["warnings"] = Json::Value(Json::arrayValue);
        for (const std::string& warning : warnings_) {
            warnings.append(warning);
        }
        writeJson(out_, document);
    } else {
        report.print(out_);
    }
    flush();
}

void Console::print(const std::string& text) {
    out_ << text;
    flush();
}

void Console::flush() {
    if (!out_.flush()) {
        throw Failure("standard output: cannot be written to");
    }
}

}  // namespace ScanHost
