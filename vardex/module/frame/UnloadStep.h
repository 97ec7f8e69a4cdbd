// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

namespace Vardex {

/// Runs one step of unloading. What the host throws in it ends here: the steps after it have to run
/// all the same, and the loader that waits for them knows no exceptions.
template <typename Step>
void unloadStep(const Step& step) noexcept {
    try {
        step();
    } catch (...) {
        // Nobody is left who could be told.
    }
}

}  // namespace Vardex
