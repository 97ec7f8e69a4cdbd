// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace Tq_1_1 {

/// The path that a text in UTF-8 names. Where the system's paths are bytes, the text's bytes are
/// kept, valid UTF-8 or not.
inline std::filesystem::path pathFromUtf8(std::string_view utf8) {
    return std::u8string(utf8.begin(), utf8.end());
}

/// The text of a path, in UTF-8 likewise.
inline std::string utf8FromPath(const std::filesystem::path& path) {
    const std::u8string utf8 = path.u8string();
    return {utf8.begin(), utf8.end()};
}

/// The extension of a path without the dot, in UTF-8, its ASCII letters in lower case.
/// @return empty for a path without extension
inline std::string lowerCaseExtension(const std::filesystem::path& path) {
    std::string extension = utf8FromPath(path.extension());
    extension.erase(0, 1);
    for (char& c : extension) {
        c = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    }
    return extension;
}

}  // namespace Tq_1_1
