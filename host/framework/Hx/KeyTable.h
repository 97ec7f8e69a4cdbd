// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <map>

#include "HostExport.h"
#include "Tq/String.h"

namespace Hx {

/// Tokens and their names, both ways. Threads: reading is safe from any.
class HOST_EXPORT KeyTable {
  public:
    static constexpr unsigned int NO_TOKEN = 0xFFFFFFFF;

    /// @return false, and nothing has changed, for NO_TOKEN, a null name, and a token or name that
    ///         the table has already
    [[nodiscard]] bool addEntry(unsigned int token, const Tq_1_1::String& name);
    /// @return NO_TOKEN for an unknown name
    unsigned int keyToToken(const Tq_1_1::String& name) const;
    /// @return a null string for an unknown token
    const Tq_1_1::String& tokenToKey(unsigned int token) const;

  private:
    std::map<unsigned int, Tq_1_1::String> names_;
};

}  // namespace Hx
