// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/KeyTable.h"

#include <algorithm>

namespace Hx {

bool KeyTable::addEntry(unsigned int token, const Tq_1_1::String& name) {
    if (token == NO_TOKEN || name.isNull() || keyToToken(name) != NO_TOKEN) {
        return false;
    }
    return names_.emplace(token, name).second;
}

unsigned int KeyTable::keyToToken(const Tq_1_1::String& name) const {
    const auto found = std::find_if(names_.begin(), names_.end(),
                                    [&name](const auto& entry) { return entry.second == name; });
    return found == names_.end() ? NO_TOKEN : found->first;
}

const Tq_1_1::String& KeyTable::tokenToKey(unsigned int token) const {
    const auto found = names_.find(token);
    return found == names_.end() ? Tq_1_1::String::NIL : found->second;
}

}  // namespace Hx
