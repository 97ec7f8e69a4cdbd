// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <ostream>
#include <string>
#include <string_view>

#include <json/json.h>

#include "view/PageBytes.h"

namespace ScanHost {

/// Writes a page: one HTML file with all that it needs. Numbers go into it block by block, as soon
/// as they are known; what describes them comes last.
class PageWriter {
  public:
    /// Writes all that comes before the blocks.
    /// @param out  outlives this
    explicit PageWriter(std::ostream& out);

    /// @return number of the block in the page
    unsigned addBlock(const PageBytes& block);
    /// How long the page would be without further blocks, and without its description [bytes].
    std::uint64_t length() const;
    /// Writes the description and all that comes after it. The page is complete then.
    void finish(const Json::Value& description);

  private:
    void write(std::string_view text);
    void writeScript(std::string_view name);

    std::ostream& out_;
    unsigned blocks_ = 0;
    std::uint64_t blockLength_ = 0;  ///< [bytes]
};

/// JSON as it may stand in a script of a page: nothing in it ends the script or begins a comment.
std::string scriptJson(const Json::Value& value);

}  // namespace ScanHost
