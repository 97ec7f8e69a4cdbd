// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <string>

#include "HostExport.h"
#include "Hx/IOMessages.h"
#include "Ovr/Errors.h"

namespace Hx {

/// Maps errors of the scan-data service to IO results; point-set classes derive their own.
class HOST_EXPORT SpecificErrorConverterBase {
  public:
    virtual ~SpecificErrorConverterBase();

    /// The host's own mapping of service error codes.
    /// @return IO_ERROR for an empty pointer and for an error without a service code
    [[nodiscard]] virtual IOMessages::IOResult convertError(
        const std::shared_ptr<const Ovr::ErrorHandling::ErrorBase>& error) const;
};

/// The IO result of a service call. Keeps the error's text for lastErrorMessage.
/// @param error      empty: IO_OK
/// @param converter  null: the host's own mapping
[[nodiscard]] HOST_EXPORT IOMessages::IOResult convertError(
    const std::unique_ptr<Ovr::ErrorHandling::ErrorWithCode<Ovr::Interfaces::ErrorCode>>& error,
    const SpecificErrorConverterBase* converter);
[[nodiscard]] HOST_EXPORT IOMessages::IOResult convertError(
    const Ovr::ErrorHandling::ErrorWithCode<Ovr::Interfaces::ErrorCode>& error,
    const SpecificErrorConverterBase* converter);

/// The text of the error that this thread converted last; empty when there was none, and after
/// clearLastErrorMessage. IO results are numbers: this is where an application gets the text.
HOST_EXPORT std::string lastErrorMessage();
HOST_EXPORT void clearLastErrorMessage();
/// For host operations that fail without a service error.
HOST_EXPORT void setLastErrorMessage(std::string message);

}  // namespace Hx
