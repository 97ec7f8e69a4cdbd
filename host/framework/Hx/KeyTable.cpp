// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/KeyTable.h"

namespace Hx {

bool KeyTable::addEntry(unsigned int token, const Tq_1_1::String& name) {
    if (token == NO_TOKEN || name.isNull() || names_.contains(token)) {
        return false;
    }
    if (!tokens_.emplace(name, token).second) {
        return false;
    }
    names_.emplace(token, name);
    return true;
}

unsigned int KeyTable::keyToToken(const Tq_1_1::String& name) const {
    const auto found = tokens_.find(name);
    return found == tokens_.end() ? NO_TOKEN : found->second;
}

const Tq_1_1::String& KeyTable::tokenToKey(unsigned int token) const {
    const auto found = names_.find(token);
    return found == names_.end() ? Tq_1_1::String::NIL : found->second;
}

}  // namespace Hx
