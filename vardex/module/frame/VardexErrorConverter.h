// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include "Hx/ErrorConversion.h"

namespace Vardex {

/// Turns errors of the scan-data service into IO results, by the host's own table. It refuses
/// errors without a code of the service, because their meaning for the host is not defined.
/// Threads: any; it keeps no state.
class VardexErrorConverter final : public Hx::SpecificErrorConverterBase {
  public:
    /// @throw std::runtime_error  an error without a service code, or an empty pointer
    Hx::IOMessages::IOResult convertError(
        const std::shared_ptr<const Ovr::ErrorHandling::ErrorBase>& error) const override;
};

}  // namespace Vardex
