// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/IOMessages.h"

#include <algorithm>
#include <iterator>

namespace Hx::IOMessages {

namespace {

struct Phrase {
    IOResult result;
    const char* text;
};

constexpr Phrase kPhrases[] = {
    {IO_OK, "done"},
    {IO_ERROR, "failed"},
    {IO_CANNOT_READ, "the file cannot be read"},
    {IO_WRONG_FORMAT, "the file is not of the expected kind"},
    {IO_TRUNCATED, "the file ends too early"},
    {IO_UNKNOWN_FIELDS, "the file says more than was understood"},
    {IO_NOT_SUPPORTED, "this variant of the format is not supported"},
    {IO_INVALID_VALUE, "a value in the file makes no sense"},
    {IO_OUT_OF_MEMORY, "out of memory"},
    {IO_CANCELLED, "cancelled"},
    {IO_TIME_RANGE, "the point times cannot be kept"},
    {IO_IS_DIRECTORY, "this is a directory"},
    {IO_EMPTY_FILE, "the file is empty"},
    {IO_NO_STREAMS, "the scan has no trajectory file"},
    {IO_NEWER_VERSION, "the file was written by a newer version"},
    {IO_NO_TIMES_IN_FILE, "the points of the file carry no time"},
    {IO_WRITE_FAILED, "writing failed"},
    {IO_INVALID_FILE_NAME, "this is not a file name"},
    {IO_FILE_NOT_FOUND, "there is no such file"},
    {IO_NO_POINT_TIMES, "the point records have no time field"},
    {IO_LOCK_NOT_OBTAINED, "the point data are in use"},
};

const Phrase* findPhrase(int result) {
    const auto* found = std::find_if(std::begin(kPhrases), std::end(kPhrases),
                                     [result](const Phrase& p) { return p.result == result; });
    return found == std::end(kPhrases) ? nullptr : found;
}

}  // namespace

const char* describe(IOResult result) {
    const Phrase* phrase = findPhrase(result);
    return phrase == nullptr ? "unnamed result" : phrase->text;
}

bool isKnownFailure(int result) {
    return result < 0 ||
           (result != IO_OK && result != IO_UNKNOWN_FIELDS && findPhrase(result) != nullptr);
}

}  // namespace Hx::IOMessages
