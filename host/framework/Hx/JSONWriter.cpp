// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/JSONWriter.h"

#include <json/value.h>

namespace Hx {

void JSONWriter::write(Json::Value& object, const Tq_1_1::String& key, bool value) {
    object[key.toUtf8()] = value;
}

}  // namespace Hx
