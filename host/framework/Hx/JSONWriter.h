// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <json/forwards.h>

#include "HostExport.h"
#include "Tq/String.h"

namespace Hx {

/// Writes members of JSON objects, keys in UTF-8. A member of the same key is replaced.
/// Requires: @p object is a JSON object or null.
class HOST_EXPORT JSONWriter {
  public:
    static void write(Json::Value& object, const Tq_1_1::String& key, bool value);
};

}  // namespace Hx
