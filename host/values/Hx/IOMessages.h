// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

#include "HostExport.h"

namespace Hx::IOMessages {

/// Outcome of an operation that reads or writes. 0 is success. Some other values are notes or
/// warnings, not failures. Any 32-bit value may occur.
enum IOResult : std::int32_t {
    IO_OK = 0,
    IO_ERROR = 1,           ///< failure without a better name
    IO_CANNOT_READ = 2,     ///< unreadable file
    IO_WRONG_FORMAT = 3,    ///< the file is not of the kind expected
    IO_TRUNCATED = 4,       ///< the file ends too early
    IO_UNKNOWN_FIELDS = 5,  ///< warning: the file says more than was understood
    IO_NOT_SUPPORTED = 6,   ///< a version or variant that is not read
    IO_INVALID_VALUE = 7,   ///< a value in the file makes no sense
    IO_OUT_OF_MEMORY = 8,
    IO_CANCELLED = 9,
    IO_TIME_RANGE = 10,  ///< point times that cannot be stored, or clocks that do not fit
    IO_IS_DIRECTORY = 11,
    IO_EMPTY_FILE = 13,
    IO_NO_STREAMS = 14,        ///< the scan has no structured streams
    IO_NEWER_VERSION = 15,     ///< written by a newer version of the format
    IO_NO_TIMES_IN_FILE = 16,  ///< the file's points carry no time
    IO_WRITE_FAILED = 18,
    IO_INVALID_FILE_NAME = 89,
    IO_FILE_NOT_FOUND = 171,
    IO_NO_POINT_TIMES = 248,  ///< the records have no time field
    IO_LOCK_NOT_OBTAINED = 32769
};

/// A short English phrase for a result, for example "the file ends too early".
/// @return "unnamed result" for values without a phrase; never null
HOST_EXPORT const char* describe(IOResult result);

/// Whether the host treats a result as a failure: every negative value, and every named value
/// except IO_OK and IO_UNKNOWN_FIELDS. Other values are notes.
HOST_EXPORT bool isKnownFailure(int result);

}  // namespace Hx::IOMessages
