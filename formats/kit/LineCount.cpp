// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "kit/LineCount.h"

#include <algorithm>

#include "kit/TextFields.h"

namespace Ovr::Formats {

namespace {

constexpr std::size_t kPiece = 240;         // bytes whose sum fits into a byte
constexpr std::size_t kStep = 16 * kPiece;  // [bytes]

/// Whether a line that begins with this byte may be blank.
bool mayBeBlank(char first) {
    return static_cast<unsigned char>(first) <= ' ';
}

struct LineEnds {
    std::uint64_t count = 0;
    std::uint64_t doubtful = 0;  ///< those after which a line begins that may be blank
};

/// Looks at kStep bytes and the first one after them. No branches and sums of bytes: compilers
/// make vector instructions of it.
LineEnds lineEnds(const char* text) {
    LineEnds ends;
    for (std::size_t piece = 0; piece < kStep; piece += kPiece) {
        std::uint8_t count = 0;
        std::uint8_t doubtful = 0;
        for (std::size_t i = piece; i < piece + kPiece; ++i) {
            const std::uint8_t isEnd = text[i] == '\n' ? 1 : 0;
            const std::uint8_t isDoubtful = mayBeBlank(text[i + 1]) ? isEnd : 0;
            count = static_cast<std::uint8_t>(count + isEnd);
            doubtful = static_cast<std::uint8_t>(doubtful + isDoubtful);
        }
        ends.count += count;
        ends.doubtful += doubtful;
    }
    return ends;
}

/// Counts the line at the place that was reached.
/// @return false when it is too long or has no end, and nothing is counted
bool countLine(std::string_view text, bool isEnd, LineCount& counted) {
    const std::string_view rest = text.substr(counted.bytes);
    const std::size_t length = std::min(rest.find('\n'), rest.size());
    const bool isEnded = length < rest.size();
    if (rest.empty() || length > kLongestLine || !(isEnded || isEnd)) {
        return false;
    }
    counted.bytes += length + (isEnded ? 1 : 0);
    ++counted.lines;
    counted.filled += trimmed(rest.substr(0, length)).empty() ? 0 : 1;
    return true;
}

/// Goes on as long as all lines surely hold something and are not the last ones to count.
/// @return number of bytes that were looked at, up to the middle of a line
std::size_t countSteps(std::string_view text, std::uint64_t most, LineCount& counted) {
    std::size_t at = counted.bytes;
    if (at == text.size() || mayBeBlank(text[at])) {
        return at;
    }
    while (text.size() - at > kStep) {
        const LineEnds ends = lineEnds(text.data() + at);
        // Without a line end there may be a line that is too long.
        if (ends.count == 0 || ends.doubtful != 0 || ends.count >= most - counted.filled) {
            break;
        }
        counted.lines += ends.count;
        counted.filled += ends.count;
        at += kStep;
    }
    return at;
}

}  // namespace

LineCount countLines(std::string_view text, std::uint64_t most, bool isEnd) {
    LineCount counted;
    while (counted.filled < most) {
        const std::size_t seen = countSteps(text, most, counted);
        // Lines are counted at their ends: the one in the middle of which the steps ended is not.
        counted.bytes = seen == counted.bytes ? seen : text.rfind('\n', seen - 1) + 1;
        const std::size_t stop = std::min(seen + kStep, text.size());
        do {
            if (!countLine(text, isEnd, counted)) {
                return counted;
            }
        } while (counted.bytes < stop && counted.filled < most);
    }
    return counted;
}

}  // namespace Ovr::Formats
