// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <fstream>
#include <ostream>

#include "Ovr/Errors.h"

namespace Ovr::Formats {

/// A file that appears whole or not at all: it is written under another name next to its own, and
/// renamed when it is complete. Destroying it without commit() removes what was written and leaves
/// an earlier file of the name as it was.
class AtomicFile {
  public:
    AtomicFile() = default;
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;
    ~AtomicFile();

    /// @param target  the file's own name; a link is followed
    /// @return empty on success. IsDirectory for a directory; WriteFailed for a device or pipe,
    ///         which a rename would replace, and where nothing can be written.
    ///         Requires: called once.
    [[nodiscard]] ErrorPtr open(const std::filesystem::path& target);

    /// Binary. Takes everything; a failed write shows in its state and in commit().
    std::ostream& stream() { return stream_; }

    /// Brings the content to the disk and the file to its name. The stream is closed afterwards.
    /// @return WriteFailed when any of it failed; the file is removed then
    [[nodiscard]] ErrorPtr commit();

  private:
    [[nodiscard]] ErrorPtr failure(const char* what) const;
    void discard();

    std::filesystem::path target_;
    std::filesystem::path part_;  ///< empty when there is nothing to remove
    std::ofstream stream_;
};

}  // namespace Ovr::Formats
