// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Ovr/Errors.h"

#include <algorithm>
#include <string_view>

#include "Tq/String.h"

namespace Ovr::ErrorHandling {

ErrorBase::~ErrorBase() = default;

template class ErrorWithCode<Interfaces::ErrorCode>;

}  // namespace Ovr::ErrorHandling

namespace Ovr {

namespace {

bool isControl(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < 0x20 || byte == 0x7F;
}

/// One line of valid UTF-8, also where a file or its name held other bytes.
std::string oneLine(const std::string& text) {
    std::string line = Tq_1_1::String::fromUtf8(text).toUtf8();
    std::replace_if(line.begin(), line.end(), isControl, ' ');
    return line;
}

void append(std::string& message, std::string_view separator, std::string_view label,
            const std::string& part) {
    if (part.empty()) {
        return;
    }
    if (!message.empty()) {
        message += separator;
    }
    message += label;
    message += oneLine(part);
}

}  // namespace

ErrorPtr makeError(Interfaces::ErrorCode code, const Fault& fault) {
    std::string message;
    append(message, "", "", fault.file);
    append(message, ": ", "", fault.place);
    append(message, ": ", "found ", fault.found);
    append(message, fault.found.empty() ? ": " : ", ", "expected ", fault.expected);
    return std::make_unique<ServiceError>(code, std::move(message));
}

}  // namespace Ovr
