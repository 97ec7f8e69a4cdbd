// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>

#include "RegisterFormats.h"

int main(int argc, char** argv) {
    testing::InitGoogleMock(&argc, argv);
    Ovr::Formats::registerFormats();
    return RUN_ALL_TESTS();
}
