// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "module/frame/VardexErrorConverter.h"

#include <stdexcept>

namespace Vardex {

Hx::IOMessages::IOResult VardexErrorConverter::convertError(
    const std::shared_ptr<const Ovr::ErrorHandling::ErrorBase>& error) const {
    if (const auto coded = std::dynamic_pointer_cast<const Ovr::ServiceError>(error)) {
        return SpecificErrorConverterBase::convertError(error);
    }
    throw std::runtime_error("Custom error needs special mapping, please implement.");
}

}  // namespace Vardex
