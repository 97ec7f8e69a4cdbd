// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "formats/ScanFormat.h"

#include <algorithm>
#include <utility>

#include "formats/InputFile.h"
#include "formats/LasReader.h"
#include "formats/PtxReader.h"
#include "formats/TextFields.h"

namespace Ovr::Formats {

using Interfaces::ErrorCode;

namespace {

/// The file's extension without the dot; ASCII letters in lower case.
std::string extensionOf(const std::filesystem::path& file) {
    std::string extension = file.extension().string();
    extension.erase(0, 1);
    std::transform(extension.begin(), extension.end(), extension.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    });
    return extension;
}

}  // namespace

IScanReader::~IScanReader() = default;

std::vector<std::string> IScanReader::notes() const {
    return {};
}

FormatRegistry::FormatRegistry() {
    registerFormat("las", lasFormat());
    registerFormat("ptx", ptxFormat());
}

FormatRegistry& FormatRegistry::the() {
    static FormatRegistry registry;
    return registry;
}

bool FormatRegistry::registerFormat(std::string extension, Format format) {
    auto entry = std::make_shared<const Format>(std::move(format));
    const std::lock_guard guard(mutex_);
    return formats_.emplace(std::move(extension), std::move(entry)).second;
}

bool FormatRegistry::unregisterFormat(const std::string& extension) {
    const std::lock_guard guard(mutex_);
    return formats_.erase(extension) != 0;
}

std::shared_ptr<const Format> FormatRegistry::find(const std::filesystem::path& file) const {
    const std::string extension = extensionOf(file);
    const std::lock_guard guard(mutex_);
    const auto entry = formats_.find(extension);
    return entry == formats_.end() ? nullptr : entry->second;
}

std::string FormatRegistry::knownExtensions() const {
    std::vector<std::string> extensions;
    {
        const std::lock_guard guard(mutex_);
        for (const auto& [extension, format] : formats_) {
            extensions.push_back(extension);
        }
    }
    std::sort(extensions.begin(), extensions.end());
    std::string text;
    for (const std::string& extension : extensions) {
        text += (text.empty() ? "." : ", .") + extension;
    }
    return text;
}

ErrorPtr unknownExtension(const std::filesystem::path& file) {
    const std::string extension = extensionOf(file);
    if (extension == "laz") {
        return makeError(ErrorCode::Unsupported,
                         {file.string(), "", "compressed LAS (.laz)", "uncompressed LAS"});
    }
    const std::string found = extension.empty()
                                  ? std::string("a file name without extension")
                                  : "the unknown extension " + inQuotes("." + extension);
    return makeError(ErrorCode::WrongFormat,
                     {file.string(), "", found, FormatRegistry::the().knownExtensions()});
}

ErrorPtr listScans(const std::filesystem::path& file, std::vector<ScanListing>& scans) {
    if (ErrorPtr error = checkReadable(file)) {
        return error;
    }
    const auto format = FormatRegistry::the().find(file);
    return format ? format->list(file, scans) : unknownExtension(file);
}

}  // namespace Ovr::Formats
