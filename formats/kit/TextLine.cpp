// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "kit/TextLine.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "kit/TextFields.h"

namespace Ovr::Formats {

ErrorPtr TextLine::fault(Interfaces::ErrorCode code, std::string found,
                         std::string expected) const {
    return makeError(code, {std::string(file), fmt::format("line {}", number), std::move(found),
                            std::move(expected)});
}

bool LineWalk::next() {
    while (end_ < text_.size()) {
        begin_ = end_;
        const std::size_t lineEnd = std::min(text_.find('\n', begin_), text_.size());
        end_ = std::min(lineEnd + 1, text_.size());
        ++line_.number;
        line_.text = trimmed(text_.substr(begin_, lineEnd - begin_));
        if (!line_.text.empty()) {
            return true;
        }
    }
    return false;
}

}  // namespace Ovr::Formats
