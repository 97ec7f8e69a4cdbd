// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/JSONWriter.h"

#include <json/value.h>

namespace Hx {

void JSONWriter::write(Json::Value& object, const Tq_1_1::String& key, bool value) {
    object[key.toUtf8()] = value;
}

void JSONWriter::write(Json::Value& object, const Tq_1_1::String& key,
                       const Tq_1_1::String& value) {
    object[key.toUtf8()] = value.isNull() ? Json::Value() : Json::Value(value.toUtf8());
}

void JSONWriter::write(Json::Value& object, const Tq_1_1::String& key,
                       const Tq_1_1::Mat4d<double>& value) {
    Json::Value numbers(Json::arrayValue);
    for (const double v : value.values) {
        numbers.append(v);
    }
    object[key.toUtf8()] = numbers;
}

}  // namespace Hx
