// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "module/frame/IoResult.h"

#include <algorithm>
#include <iterator>

namespace Vardex {

namespace {

constexpr int kNonFailures[] = {0,  5,  12,  23,  24,  30,  31,  34,  42,  43,  50,  51,  52, 54,
                                57, 87, 122, 124, 162, 209, 216, 268, 269, 274, 277, 279, 280};
static_assert(std::size(kNonFailures) == 27);
static_assert(std::is_sorted(std::begin(kNonFailures), std::end(kNonFailures)));

}  // namespace

bool isFailure(int result) {
    return !std::binary_search(std::begin(kNonFailures), std::end(kNonFailures), result);
}

}  // namespace Vardex
