// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <iostream>

#include "Application.h"
#include "session/Interrupt.h"

int main(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    ScanHost::Interrupt::listen();
    return static_cast<int>(
        ScanHost::runApplication({argv + 1, argv + argc}, std::cout, std::cerr));
}
