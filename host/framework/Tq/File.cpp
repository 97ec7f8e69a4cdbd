// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Tq/File.h"

#include <filesystem>
#include <system_error>

#include "Tq/Path.h"

namespace Tq_1_1 {

std::unique_ptr<File> File::fromString(const String& path) {
    const std::filesystem::path name = pathFromUtf8(path.toUtf8()).filename();
    if (name.empty() || name == "." || name == "..") {
        return nullptr;
    }
    return std::unique_ptr<File>(new File(path));
}

String File::getName() const {
    return String::fromUtf8(utf8FromPath(pathFromUtf8(path_.toUtf8()).filename()));
}

String File::getExtension() const {
    const std::wstring name = getName().c_str();
    const std::size_t dot = name.rfind(L'.');
    return dot == std::wstring::npos ? String::EMPTY : String(name.substr(dot + 1));
}

bool File::exists() const {
    std::error_code error;
    const std::filesystem::path path = pathFromUtf8(path_.toUtf8());
    return std::filesystem::exists(path, error) && !std::filesystem::is_directory(path, error);
}

}  // namespace Tq_1_1
