// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/ErrorConversion.h"

#include <utility>

namespace Hx {

namespace {

using IOMessages::IOResult;
using Ovr::Interfaces::ErrorCode;

thread_local std::string lastMessage;

struct Mapping {
    ErrorCode code;
    IOResult result;
};

constexpr Mapping kMappings[] = {
    {ErrorCode::General, IOMessages::IO_ERROR},
    {ErrorCode::FileNotFound, IOMessages::IO_FILE_NOT_FOUND},
    {ErrorCode::IsDirectory, IOMessages::IO_IS_DIRECTORY},
    {ErrorCode::CannotRead, IOMessages::IO_CANNOT_READ},
    {ErrorCode::EmptyFile, IOMessages::IO_EMPTY_FILE},
    {ErrorCode::WrongFormat, IOMessages::IO_WRONG_FORMAT},
    {ErrorCode::Truncated, IOMessages::IO_TRUNCATED},
    {ErrorCode::Unsupported, IOMessages::IO_NOT_SUPPORTED},
    {ErrorCode::NewerVersion, IOMessages::IO_NEWER_VERSION},
    {ErrorCode::InvalidValue, IOMessages::IO_INVALID_VALUE},
    {ErrorCode::OutOfMemory, IOMessages::IO_OUT_OF_MEMORY},
    {ErrorCode::Cancelled, IOMessages::IO_CANCELLED},
    {ErrorCode::NoTimes, IOMessages::IO_NO_TIMES_IN_FILE},
    {ErrorCode::TimeRange, IOMessages::IO_TIME_RANGE},
    {ErrorCode::NoTimeService, IOMessages::IO_NO_POINT_TIMES},
    {ErrorCode::WriteFailed, IOMessages::IO_WRITE_FAILED},
};

}  // namespace

SpecificErrorConverterBase::~SpecificErrorConverterBase() = default;

IOResult SpecificErrorConverterBase::convertError(
    const std::shared_ptr<const Ovr::ErrorHandling::ErrorBase>& error) const {
    const auto* coded = dynamic_cast<const Ovr::ServiceError*>(error.get());
    if (coded == nullptr) {
        return IOMessages::IO_ERROR;
    }
    for (const Mapping& mapping : kMappings) {
        if (mapping.code == coded->code()) {
            return mapping.result;
        }
    }
    return IOMessages::IO_ERROR;
}

IOResult convertError(const std::unique_ptr<Ovr::ServiceError>& error,
                      const SpecificErrorConverterBase* converter) {
    return error == nullptr ? IOMessages::IO_OK : convertError(*error, converter);
}

IOResult convertError(const Ovr::ServiceError& error, const SpecificErrorConverterBase* converter) {
    // Before the converter is asked: one that refuses the error throws.
    setLastErrorMessage(error.message());
    // The caller owns the error and outlives the call.
    const std::shared_ptr<const Ovr::ErrorHandling::ErrorBase> borrowed(std::shared_ptr<void>(),
                                                                        &error);
    return converter == nullptr ? SpecificErrorConverterBase().convertError(borrowed)
                                : converter->convertError(borrowed);
}

std::string lastErrorMessage() {
    return lastMessage;
}

void clearLastErrorMessage() {
    lastMessage.clear();
}

void setLastErrorMessage(std::string message) {
    lastMessage = std::move(message);
}

}  // namespace Hx
