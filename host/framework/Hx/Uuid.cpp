// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/Uuid.h"

namespace Hx {

bool Uuid::fromStr(const Tq_1_1::String& text) {
    const auto parsed = Ovr::uuids::uuid::fromString(text.toUtf8());
    if (parsed) {
        value_ = *parsed;
    }
    return parsed.has_value();
}

Tq_1_1::String Uuid::toStr() const {
    return Tq_1_1::String::fromUtf8(value_.string());
}

}  // namespace Hx
