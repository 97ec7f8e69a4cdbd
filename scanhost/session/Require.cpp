// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "session/Require.h"

#include <fmt/format.h>

#include "Hx/ErrorConversion.h"
#include "Hx/IOMessages.h"
#include "Tq/String.h"

#include "report/Failure.h"
#include "report/NumberText.h"

namespace ScanHost {

void requireOk(int result, const std::string& what) {
    if (result == Hx::IOMessages::IO_OK) {
        return;
    }
    const auto named = static_cast<Hx::IOMessages::IOResult>(result);
    const std::string words = Hx::lastErrorMessage();
    throw Failure(
        words.empty() ? fmt::format("{}: {}", what, Hx::IOMessages::describe(named)) : words,
        named == Hx::IOMessages::IO_CANCELLED ? ExitCode::Cancelled : ExitCode::Failed);
}

void requireOk(const Ovr::ErrorPtr& error) {
    if (error) {
        throw Failure(error->message(), error->code() == Ovr::Interfaces::ErrorCode::Cancelled
                                            ? ExitCode::Cancelled
                                            : ExitCode::Failed);
    }
}

void requireUtf8(const std::string& file) {
    if (Tq_1_1::String::fromUtf8(file).toUtf8() != file) {
        throw unexpected(printable(file), "a name that is not UTF-8", "one that is");
    }
}

}  // namespace ScanHost
