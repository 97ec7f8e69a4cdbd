// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "project/JsonMembers.h"

#include <fmt/format.h>

#include <limits>
#include <utility>

#include "kit/TextFields.h"

namespace Ovr::Formats {

JsonMembers::JsonMembers(JsonFile& file, const Json::Value& value)
    : file_(file), value_(value), isObject_(value.isObject()) {
    if (!isObject_) {
        file.fail(value, describeValue(file, value), "an object");
    }
}

bool JsonMembers::has(const char* key) const {
    return isObject_ && value_.isMember(key);
}

const Json::Value* JsonMembers::find(const char* key) {
    known_.insert(key);
    return has(key) ? &value_[key] : nullptr;
}

const Json::Value* JsonMembers::require(const char* key) {
    const Json::Value* const member = find(key);
    if (member == nullptr) {
        file_.fail(value_, fmt::format("no field {} in this object", inQuotes(key)), "one");
    }
    return member;
}

void JsonMembers::get(const char* key, std::optional<std::string>& out) {
    if (const Json::Value* member = find(key)) {
        out = readText(file_, *member);
    }
}

void JsonMembers::get(const char* key, std::optional<double>& out) {
    if (const Json::Value* member = find(key)) {
        out = readNumber(file_, *member);
    }
}

void JsonMembers::get(const char* key, std::optional<std::uint32_t>& out) {
    const Json::Value* const member = find(key);
    if (member == nullptr) {
        return;
    }
    const auto number =
        member->isNumeric() ? parseInteger(file_.textOf(*member)) : std::optional<std::int64_t>();
    if (!number || *number < 0 || *number > std::numeric_limits<std::uint32_t>::max()) {
        file_.fail(*member, describeValue(file_, *member), "a whole number from 0 to 4294967295");
        return;
    }
    out = static_cast<std::uint32_t>(*number);
}

void JsonMembers::require(const char* key, std::string& out) {
    const Json::Value* const member = require(key);
    if (member == nullptr) {
        return;
    }
    if (auto text = readText(file_, *member)) {
        out = *std::move(text);
    }
}

void JsonMembers::noteOthers() const {
    if (!isObject_) {
        return;
    }
    for (const std::string& key : value_.getMemberNames()) {
        if (!known_.contains(key)) {
            file_.noteUnknown(key, value_[key]);
        }
    }
}

}  // namespace Ovr::Formats
