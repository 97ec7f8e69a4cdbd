// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <utility>

#include "HostExport.h"
#include "Tq/String.h"

namespace Tq_1_1 {

/// A file by name. Nothing is opened.
class HOST_EXPORT File {
  public:
    /// @param path  in the platform's notation
    /// @return empty for a null or empty path and for one that names a folder only ("a/b/")
    static std::unique_ptr<File> fromString(const String& path);

    const String& getPath() const { return path_; }
    /// Name with extension: "site.ovr" for "/data/site.ovr".
    String getName() const;
    /// The part after the last dot of the name: "ovr" for "/data/site.ovr"; empty without a dot.
    String getExtension() const;
    /// Whether there is a file (not a folder) of that path now.
    bool exists() const;

  private:
    explicit File(String path) : path_(std::move(path)) {}

    String path_;
};

}  // namespace Tq_1_1
