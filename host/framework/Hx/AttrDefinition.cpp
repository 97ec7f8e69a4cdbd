// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/AttrDefinition.h"

namespace Hx {

namespace {

template <typename Matches>
const AttrDefinition* findLine(const AttrDefinition* table, const Matches& matches) {
    for (; !table->name.isNull(); ++table) {
        if (matches(*table)) {
            return table;
        }
    }
    return nullptr;
}

}  // namespace

const AttrDefinition* findAttrDefinition(const AttrDefinition* table, unsigned int token) {
    return findLine(table, [token](const AttrDefinition& line) { return line.token == token; });
}

const AttrDefinition* findAttrDefinition(const AttrDefinition* table, const Tq_1_1::String& name) {
    return findLine(table, [&name](const AttrDefinition& line) { return line.name == name; });
}

}  // namespace Hx
