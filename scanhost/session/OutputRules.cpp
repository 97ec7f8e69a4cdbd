// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "session/OutputRules.h"

#include <algorithm>
#include <cstddef>
#include <system_error>

#include <fmt/format.h>

#include "Ovr/IStructuredStreams.h"
#include "Tq/Path.h"

#include "report/Failure.h"

namespace ScanHost {

namespace fs = std::filesystem;

namespace {

/// ".png, .svg or .pdf"
std::string listed(const std::vector<std::string>& endings) {
    std::string text = endings.front();
    for (std::size_t i = 1; i < endings.size(); ++i) {
        text += (i + 1 == endings.size() ? " or " : ", ") + endings[i];
    }
    return text;
}

}  // namespace

void OutputRules::protect(const ScanOptions& options) {
    inputs_.insert(inputs_.end(), options.files.begin(), options.files.end());
    if (options.trajectory) {
        inputs_.push_back(*options.trajectory);
    }
}

void OutputRules::protect(const ImportedScan& scan) {
    inputs_.push_back(scan.source.file);
    const auto streams = Ovr::findStructuredStreams(scan.source);
    if (streams) {
        inputs_.push_back(streams->trajectoryFile());
    }
}

void OutputRules::check(const std::vector<OutputFile>& outputs) const {
    for (const OutputFile& output : outputs) {
        check(output);
    }
}

void OutputRules::check(const OutputFile& output) const {
    const auto& [file, endings] = output;
    const std::string ending = fmt::format(".{}", Tq_1_1::lowerCaseExtension(file));
    if (file.has_extension() &&
        std::find(endings.begin(), endings.end(), ending) == endings.end()) {
        throw unexpected(file.string(), fmt::format("the ending {}", file.extension().string()),
                         listed(endings));
    }
    for (const fs::path& input : inputs_) {
        std::error_code missing;
        if (fs::equivalent(file, input, missing)) {
            throw unexpected(file.string(), "a file that this command reads", "another one");
        }
    }
    if (std::error_code ignored; !force && fs::is_regular_file(file, ignored)) {
        throw unexpected(file.string(), "a file of that name", "a new one, or --force");
    }
}

}  // namespace ScanHost
