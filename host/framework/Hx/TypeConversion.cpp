// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/TypeConversion.h"

namespace Hx::TypeConversion {

void convert(const Tq_1_1::String& from, std::string& to) {
    to = from.toUtf8();
}

void convert(const std::string& from, Tq_1_1::String& to) {
    to = Tq_1_1::String::fromUtf8(from);
}

void convert(const Uuid& from, Ovr::uuids::uuid& to) {
    to = from.value();
}

}  // namespace Hx::TypeConversion
