// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "Ovr/Errors.h"

namespace ScanHost {

/// Throws a Failure unless @p result is plain success. Its message is the service's own words when
/// there are any. A cancelled operation ends the program as such.
/// @param result  an IO result
/// @param what    what was tried, for results without words
void requireOk(int result, const std::string& what);
/// Throws a Failure with the error's words. A cancelled operation ends the program as such.
/// @param error  empty: nothing happens
void requireOk(const Ovr::ErrorPtr& error);

/// Throws a Failure unless a file's name is UTF-8: the host knows no other names.
void requireUtf8(const std::string& file);

}  // namespace ScanHost
