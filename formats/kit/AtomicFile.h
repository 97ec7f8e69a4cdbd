// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <ostream>
#include <string>

#include "Ovr/Errors.h"
#include "kit/DescriptorStream.h"

namespace Ovr::Formats {

/// What becomes of a file that has the name already.
enum class Existing { Keep, Replace };

/// A file that appears whole or not at all: it is written under another name next to its own, and
/// renamed when it is complete. Destroying it without commit() removes what was written and leaves
/// an earlier file of the name as it was.
class AtomicFile {
  public:
    AtomicFile() = default;
    AtomicFile(const AtomicFile&) = delete;
    AtomicFile& operator=(const AtomicFile&) = delete;
    ~AtomicFile();

    /// @param target    the file's own name; a link is followed
    /// @param existing  Keep: a file of the name is an error, here and, when it appears meanwhile,
    ///                  in commit()
    /// @return empty on success. IsDirectory for a directory; WriteFailed for a file that is kept,
    ///         for a device or pipe, which a rename would replace, and where nothing
    ///         can be written. Requires: called once.
    [[nodiscard]] ErrorPtr open(const std::filesystem::path& target, Existing existing);

    /// Binary. Takes everything; a failed write shows in its state and in commit().
    std::ostream& stream() { return stream_; }
    /// What a write has failed with.
    /// @return empty while all is written
    [[nodiscard]] ErrorPtr failure() const;

    /// Brings the content to the disk and the file to its name. The stream is closed afterwards.
    /// @return WriteFailed when any of it failed; what was written is removed then
    [[nodiscard]] ErrorPtr commit();

  private:
    [[nodiscard]] ErrorPtr failure(const std::string& what, int reason) const;
    [[nodiscard]] ErrorPtr giveUp(ErrorPtr error);
    [[nodiscard]] int putInPlace();
    void discard();

    std::filesystem::path target_;
    std::filesystem::path part_;  ///< empty when there is nothing to remove
    Existing existing_ = Existing::Keep;
    DescriptorStream stream_;
};

}  // namespace Ovr::Formats
