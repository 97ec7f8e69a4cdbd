// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <gmock/gmock.h>

#include <string>

#include "Ovr/Errors.h"

namespace Support {

/// Expects an error of a code whose message holds some words.
inline void expectError(const Ovr::ErrorPtr& error, Ovr::Interfaces::ErrorCode code,
                        const std::string& words) {
    ASSERT_TRUE(error) << "expected: " << words;
    EXPECT_EQ(error->code(), code) << error->message();
    EXPECT_THAT(error->message(), testing::HasSubstr(words));
}

}  // namespace Support
