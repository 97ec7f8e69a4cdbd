// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Ovr/Progress.h"

namespace ScanHost {

/// Lets Ctrl-C end long work cleanly: the first one asks for it, the next one ends the program as
/// it would without this. One per program.
class Interrupt final : public Ovr::DataStructures::ICancelInfo {
  public:
    /// Takes the interrupt signal over.
    static void listen();
    /// Whether the user has asked for it.
    static bool wasAsked();
    /// Throws a Failure with ExitCode::Cancelled when the user has asked for it.
    static void check();

    bool isCancelled() const override { return wasAsked(); }
};

}  // namespace ScanHost
