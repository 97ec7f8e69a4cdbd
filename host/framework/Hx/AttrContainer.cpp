// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/AttrContainer.h"

#include <json/value.h>

#include <cassert>
#include <cstdint>
#include <utility>
#include <variant>

namespace Hx {

namespace {

/// The value of an attribute that was never set; none for an unknown type.
AttrValue firstValue(std::uint32_t type) {
    switch (type) {
        case ATTR_INT32:
            return AttrValue(std::in_place_type<std::int32_t>);
        case ATTR_STRING:
            return AttrValue(std::in_place_type<Tq_1_1::String>);
        default:
            return {};
    }
}

/// The first line that matches; null when no table has one.
template <typename Matches>
const AttrDefinition* findLine(const std::vector<const AttrDefinition*>& tables,
                               const Matches& matches) {
    for (const AttrDefinition* line : tables) {
        for (; !line->name.isNull(); ++line) {
            if (matches(*line)) {
                return line;
            }
        }
    }
    return nullptr;
}

}  // namespace

Tq_1_1::StrictSmartPtr<AttrContainer> AttrContainer::duplicate(CreateType type) const {
    return doDuplicate(type);
}

Tq_1_1::SmartPtr<Attribute> AttrContainer::getAttribute(unsigned int token) const {
    for (const auto& attribute : attributes_) {
        if (attribute->getToken() == token) {
            return attribute;
        }
    }
    return {};
}

const Tq_1_1::String& AttrContainer::getTextAttribute(unsigned int token) const {
    const auto attribute = getAttribute(token);
    const auto* text = attribute ? std::get_if<Tq_1_1::String>(&attribute->getValue()) : nullptr;
    return text != nullptr ? *text : Tq_1_1::String::NIL;
}

unsigned int AttrContainer::getProgressAttrToken() const {
    return AttrDefinition::NO_TOKEN;
}

unsigned int AttrContainer::getStateAttrToken() const {
    return AttrDefinition::NO_TOKEN;
}

Tq_1_1::StrictSmartPtr<AttrContainer> AttrContainer::doDuplicate(CreateType /*type*/) const {
    return {};
}

void AttrContainer::init(CreateType type, const AttrContainer* source) {
    for (const AttrDefinition* table : ownTables_) {
        [[maybe_unused]] const bool complete = createAttributes(table, type, source);
        assert(complete);
    }
}

Json::Value AttrContainer::toJson() const {
    return Json::Value(Json::objectValue);
}

unsigned int AttrContainer::getAttrToken(const Tq_1_1::String& name) const {
    const auto* line = findLine(ownTables_, [&name](const auto& own) { return own.name == name; });
    return line != nullptr ? line->token : AttrDefinition::NO_TOKEN;
}

const Tq_1_1::String& AttrContainer::getAttrName(unsigned int token) const {
    const auto* line = AttrContainer::getAttrDefinition(token);
    return line != nullptr ? line->name : Tq_1_1::String::NIL;
}

const AttrDefinition* AttrContainer::getAttrDefinition(unsigned int token) const {
    return findLine(ownTables_, [token](const auto& own) { return own.token == token; });
}

bool AttrContainer::createAttributes(const AttrDefinition* table, CreateType type,
                                     const AttrContainer* source) {
    bool complete = true;
    for (; !table->name.isNull(); ++table) {
        AttrValue value = firstValue(table->type);
        if (std::holds_alternative<std::monostate>(value) || getAttribute(table->token)) {
            complete = false;
            continue;
        }
        if (source != nullptr && type != CREATE_TEMPLATE) {
            if (const auto original = source->getAttribute(table->token)) {
                value = original->getValue();
            }
        }
        const Tq_1_1::SmartPtr<Attribute> attribute(new Attribute(table->token));
        attribute->setValue(std::move(value), nullptr);
        attributes_.push_back(attribute);
    }
    return complete;
}

}  // namespace Hx
