// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "HostExport.h"

namespace Ovr::uuids {

/// A universally unique identifier, most significant byte first.
struct HOST_EXPORT uuid {
    std::array<std::uint8_t, 16> bytes{};

    /// 36 characters, lower case: "01234567-89ab-cdef-0123-456789abcdef".
    std::string string() const;

    /// Reads the text form in either case, also in braces.
    /// @return empty for anything else
    static std::optional<uuid> fromString(std::string_view text);

    friend constexpr bool operator==(const uuid&, const uuid&) = default;
};

}  // namespace Ovr::uuids
