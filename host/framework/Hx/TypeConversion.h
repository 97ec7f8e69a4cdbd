// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "HostExport.h"
#include "Hx/Uuid.h"
#include "Ovr/Uuid.h"
#include "Tq/String.h"

namespace Hx::TypeConversion {

/// Narrow text is UTF-8; a null host string becomes the empty text.
HOST_EXPORT void convert(const Tq_1_1::String& from, std::string& to);
HOST_EXPORT void convert(const std::string& from, Tq_1_1::String& to);
HOST_EXPORT void convert(const Uuid& from, Ovr::uuids::uuid& to);

}  // namespace Hx::TypeConversion
