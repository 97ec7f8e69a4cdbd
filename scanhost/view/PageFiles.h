// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <span>
#include <string_view>

namespace ScanHost {

/// A file that the program carries with it, to be put into pages.
struct PageFile {
    std::string_view name;
    std::string_view text;
};

/// All of them: the page's own files, three.js and its orbit controls. The build makes this
/// function of the files.
std::span<const PageFile> pageFiles();

}  // namespace ScanHost
