// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <string>

#include "Ovr/Progress.h"

#include "report/Failure.h"

namespace ScanHost {

/// Lets Ctrl-C, and the signals that ask a program to end, end long work cleanly: the first one
/// asks for it, the next one ends the program as it would without this. One per program.
class Interrupt final : public Ovr::DataStructures::ICancelInfo {
  public:
    /// Takes the signals over. A file that grows beyond the limit of the process is an error of
    /// the write from then on, and no longer the program's end.
    static void listen();
    /// How the program ends after a signal: with 128 and the signal's number, as shells expect;
    /// ExitCode::Cancelled without one.
    static ExitCode exitCode();
    /// The signal in words, "Interrupt" or "Terminated"; empty without one.
    static std::string cause();
    /// Whether the user has asked for it.
    static bool wasAsked();
    /// Throws a Failure with ExitCode::Cancelled when the user has asked for it.
    static void check();

    bool isCancelled() const override { return wasAsked(); }
};

}  // namespace ScanHost
