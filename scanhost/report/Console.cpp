// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "report/Console.h"

#include <sstream>
#include <utility>

#include "report/Failure.h"
#include "report/NumberText.h"

namespace ScanHost {

void Console::warn(const std::string& message) {
    const std::string line = printable(aliased(message));
    if (!told_.insert(line).second) {
        return;
    }
    warnings_.push_back(line);
    if (!quiet_) {
        err_ << "scanhost: warning: " << line << std::endl;
    }
}

void Console::warn(const std::vector<std::string>& messages) {
    for (const std::string& message : messages) {
        warn(message);
    }
}

void Console::error(const std::string& message) {
    err_ << "scanhost: " << printable(aliased(message)) << std::endl;
}

void Console::show(const Report& report) {
    std::ostringstream text;
    if (json_) {
        Json::Value document = report.json();
        Json::Value& warnings = document["warnings"] = Json::Value(Json::arrayValue);
        for (const std::string& warning : warnings_) {
            warnings.append(warning);
        }
        writeJson(text, document);
    } else {
        report.print(text);
    }
    print(aliased(text.str()));
}

void Console::print(const std::string& text) {
    out_ << text;
    flush();
}

void Console::setAlias(std::string path, std::string name) {
    aliasPath_ = std::move(path);
    aliasName_ = std::move(name);
}

std::string Console::aliased(std::string text) const {
    for (std::size_t at = 0;
         !aliasPath_.empty() && (at = text.find(aliasPath_, at)) != std::string::npos;
         at += aliasName_.size()) {
        text.replace(at, aliasPath_.size(), aliasName_);
    }
    return text;
}

void Console::flush() {
    if (!out_.flush()) {
        throw Failure("standard output: cannot be written to");
    }
}

}  // namespace ScanHost
