// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Tq/File.h"

#include <filesystem>
#include <system_error>

namespace Tq_1_1 {

namespace {

std::filesystem::path toPath(const String& text) {
    const std::string utf8 = text.toUtf8();
    return std::u8string(utf8.begin(), utf8.end());
}

String toString(const std::filesystem::path& path) {
    const std::u8string utf8 = path.u8string();
    return String::fromUtf8({reinterpret_cast<const char*>(utf8.data()), utf8.size()});
}

}  // namespace

std::unique_ptr<File> File::fromString(const String& path) {
    const std::filesystem::path name = toPath(path).filename();
    if (name.empty() || name == "." || name == "..") {
        return nullptr;
    }
    return std::unique_ptr<File>(new File(path));
}

String File::getName() const {
    return toString(toPath(path_).filename());
}

String File::getExtension() const {
    const std::wstring name = getName().c_str();
    const std::size_t dot = name.rfind(L'.');
    return dot == std::wstring::npos ? String::EMPTY : String(name.substr(dot + 1));
}

bool File::exists() const {
    std::error_code error;
    const std::filesystem::path path = toPath(path_);
    return std::filesystem::exists(path, error) && !std::filesystem::is_directory(path, error);
}

}  // namespace Tq_1_1
