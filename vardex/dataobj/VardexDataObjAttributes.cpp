// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

// The attribute table of VardexDataObj and the lookups in it.

#include <utility>

#include "dataobj/VardexDataObj.h"

namespace Vardex {

using Definitions = std::map<const unsigned int, const Hx::AttrDefinition*>;

const Hx::AttrDefinition VardexDataObj::attrDefs[2] = {
    {ATTR_PROCESSING_PROGRESS, L"ProcessingProgress", Hx::ATTR_STORED, Hx::ATTR_INT32},
    {ATTR_PROCESSING_PROGRESS + 1, Tq_1_1::String::NIL, Hx::ATTR_NO_USE, Hx::ATTR_END},
};
Hx::KeyTable* VardexDataObj::attrNames = nullptr;
Definitions* VardexDataObj::attrDefMap = nullptr;

void VardexDataObj::initStatics() {
    if (attrNames == nullptr) {
        auto names = std::make_unique<Hx::KeyTable>();
        for (const Hx::AttrDefinition& definition : attrDefs) {
            if (!definition.name.isNull()) {
                static_cast<void>(names->addEntry(definition.token, definition.name));
            }
        }
        attrNames = names.release();
    }
    if (attrDefMap == nullptr) {
        auto definitions = std::make_unique<Definitions>();
        for (const Hx::AttrDefinition& definition : attrDefs) {
            if (!definition.name.isNull()) {
                definitions->emplace(definition.token, &definition);
            }
        }
        attrDefMap = definitions.release();
    }
}

void VardexDataObj::clearStatics() {
    delete std::exchange(attrNames, nullptr);
    delete std::exchange(attrDefMap, nullptr);
}

unsigned int VardexDataObj::getProgressAttrToken() const {
    return ATTR_PROCESSING_PROGRESS;
}

unsigned int VardexDataObj::getStateAttrToken() const {
    return Hx::AttrDefinition::NO_TOKEN;
}

unsigned int VardexDataObj::getAttrToken(const Tq_1_1::String& name) const {
    const unsigned int token =
        attrNames != nullptr ? attrNames->keyToToken(name) : Hx::KeyTable::NO_TOKEN;
    return token != Hx::KeyTable::NO_TOKEN ? token : RawScanFileObject::getAttrToken(name);
}

const Tq_1_1::String& VardexDataObj::getAttrName(unsigned int token) const {
    const Tq_1_1::String& name =
        attrNames != nullptr ? attrNames->tokenToKey(token) : Tq_1_1::String::NIL;
    return !name.isNull() ? name : RawScanFileObject::getAttrName(token);
}

const Hx::AttrDefinition* VardexDataObj::getAttrDefinition(unsigned int token) const {
    if (attrDefMap != nullptr) {
        if (const auto found = attrDefMap->find(token); found != attrDefMap->end()) {
            return found->second;
        }
    }
    return RawScanFileObject::getAttrDefinition(token);
}

}  // namespace Vardex
