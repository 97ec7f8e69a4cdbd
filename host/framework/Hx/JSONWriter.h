// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <json/forwards.h>

#include "HostExport.h"
#include "Tq/Mat4d.h"
#include "Tq/String.h"

namespace Hx {

/// Writes members of JSON objects, keys and text in UTF-8. A member of the same key is replaced.
/// Requires: @p object is a JSON object or null.
class HOST_EXPORT JSONWriter {
  public:
    static void write(Json::Value& object, const Tq_1_1::String& key, bool value);
    /// A null string is written as null.
    static void write(Json::Value& object, const Tq_1_1::String& key, const Tq_1_1::String& value);
    /// 16 numbers in storage order.
    static void write(Json::Value& object, const Tq_1_1::String& key,
                      const Tq_1_1::Mat4d<double>& value);
};

}  // namespace Hx
