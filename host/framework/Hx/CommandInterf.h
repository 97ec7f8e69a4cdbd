// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <utility>

#include "HostExport.h"
#include "Tq/String.h"

namespace Hx {

/// A command of the application.
class HOST_EXPORT CommandInterf {
  public:
    virtual ~CommandInterf();

    /// For example L"Plane:Create"; never null.
    virtual const wchar_t* getIdentifier() const = 0;
};

/// A command known by its identifier alone.
class HOST_EXPORT Command final : public CommandInterf {
  public:
    explicit Command(Tq_1_1::String identifier) : identifier_(std::move(identifier)) {}
    ~Command() override;

    const wchar_t* getIdentifier() const override { return identifier_.c_str(); }

  private:
    Tq_1_1::String identifier_;
};

}  // namespace Hx
