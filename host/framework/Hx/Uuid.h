// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include "HostExport.h"
#include "Ovr/Uuid.h"
#include "Tq/String.h"

namespace Hx {

/// The host's universally unique identifier. The default one has all bits clear.
class HOST_EXPORT Uuid {
  public:
    Uuid() = default;
    explicit Uuid(const Ovr::uuids::uuid& value) : value_(value) {}

    /// Reads the text form.
    /// @return false for any other text; the identifier is unchanged then
    [[nodiscard]] bool fromStr(const Tq_1_1::String& text);
    Tq_1_1::String toStr() const;
    bool isDefault() const { return value_ == Ovr::uuids::uuid{}; }
    const Ovr::uuids::uuid& value() const { return value_; }

    friend bool operator==(const Uuid&, const Uuid&) = default;

  private:
    Ovr::uuids::uuid value_;
};

}  // namespace Hx
