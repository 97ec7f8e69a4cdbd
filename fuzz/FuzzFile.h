// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <sys/mman.h>
#include <unistd.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace Fuzz {

/// The fuzzer's bytes as a file in memory: the readers want a path.
class FuzzFile {
  public:
    FuzzFile(const std::uint8_t* data, std::size_t size) : descriptor_(memfd_create("fuzz", 0)) {
        if (descriptor_ < 0 || ::write(descriptor_, data, size) != static_cast<ssize_t>(size)) {
            std::abort();
        }
    }
    FuzzFile(const FuzzFile&) = delete;
    FuzzFile& operator=(const FuzzFile&) = delete;
    ~FuzzFile() { ::close(descriptor_); }

    std::filesystem::path path() const { return "/proc/self/fd/" + std::to_string(descriptor_); }

  private:
    int descriptor_;
};

}  // namespace Fuzz
