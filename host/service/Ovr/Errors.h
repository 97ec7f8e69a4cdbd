// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <utility>

#include "HostExport.h"

namespace Ovr::Interfaces {

/// What went wrong in the scan-data service. The host maps each code to one IO result.
enum class ErrorCode : std::int32_t {
    General = 1,
    FileNotFound,
    IsDirectory,
    CannotRead,
    EmptyFile,
    WrongFormat,   ///< a file of another kind, or an unknown extension
    Truncated,     ///< the file ends before what it promises
    Unsupported,   ///< a version, variant or compression that is not read
    NewerVersion,  ///< a project file of a newer version
    InvalidValue,  ///< a value that makes no sense
    OutOfMemory,   ///< also: the point set refused the size
    Cancelled,
    NoTimes,        ///< the file's points carry no time
    TimeRange,      ///< times that the records cannot hold, or clocks that do not meet
    NoTimeService,  ///< no service is registered that takes point times
    WriteFailed
};

}  // namespace Ovr::Interfaces

namespace Ovr::ErrorHandling {

/// An error of the service: one line of text for people.
class HOST_EXPORT ErrorBase {
  public:
    explicit ErrorBase(std::string message) : message_(std::move(message)) {}
    ErrorBase(const ErrorBase&) = default;
    ErrorBase& operator=(const ErrorBase&) = default;
    virtual ~ErrorBase();

    /// One line, UTF-8, for example
    /// "room.ptx: line 12: found 'abc' as field 1, expected a finite number".
    const std::string& message() const { return message_; }

  private:
    std::string message_;
};

/// An error that carries a code of the type @p Code.
template <typename Code>
class ErrorWithCode : public ErrorBase {
  public:
    ErrorWithCode(Code code, std::string message) : ErrorBase(std::move(message)), code_(code) {}

    Code code() const { return code_; }

  private:
    Code code_;
};

extern template class HOST_EXPORT ErrorWithCode<Interfaces::ErrorCode>;

}  // namespace Ovr::ErrorHandling

namespace Ovr {

/// The error of every service operation.
using ServiceError = ErrorHandling::ErrorWithCode<Interfaces::ErrorCode>;
/// Owned by the caller; empty on success.
using ErrorPtr = std::unique_ptr<ServiceError>;

/// Where a file is wrong and how. Empty members are left out of the message.
struct Fault {
    std::string file;      ///< as the user wrote it
    std::string place;     ///< "line 12" or "byte 96"
    std::string found;     ///< what stands there
    std::string expected;  ///< what should
};

/// An error with the message "FILE: PLACE: found FOUND, expected EXPECTED". Line ends and control
/// characters in the parts are replaced, so the message stays one line.
[[nodiscard]] HOST_EXPORT ErrorPtr makeError(Interfaces::ErrorCode code, const Fault& fault);

}  // namespace Ovr
