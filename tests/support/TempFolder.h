// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

namespace Support {

/// A folder of its own for one test, removed with everything in it.
class TempFolder {
  public:
    TempFolder() {
        std::random_device entropy;
        do {
            path_ = std::filesystem::temp_directory_path() /
                    ("vardex-test-" + std::to_string(entropy()));
        } while (!std::filesystem::create_directory(path_));
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;
    ~TempFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    std::filesystem::path path() const { return path_; }
    std::filesystem::path write(const std::string& name, std::string_view content) const {
        const std::filesystem::path file = path_ / name;
        std::ofstream(file, std::ios::binary) << content;
        return file;
    }
    static std::string read(const std::filesystem::path& file) {
        std::ifstream in(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
    /// Number of files and folders in it.
    std::ptrdiff_t entries() const {
        return std::distance(std::filesystem::directory_iterator(path_), {});
    }

  private:
    std::filesystem::path path_;
};

}  // namespace Support
