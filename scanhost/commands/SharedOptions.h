// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include "commands/Options.h"
#include "report/ProgressLine.h"
#include "session/OutputRules.h"
#include "session/ScanOptions.h"

namespace ScanHost {

/// What every command takes.
struct CommonOptions {
    bool json = false;
    bool quiet = false;
    bool strict = false;
    ProgressMode progress = ProgressMode::Automatic;
};

/// Declares what every command takes.
void declareCommon(Options& options, CommonOptions& target);

/// Declares --force.
void declareForce(Options& options, OutputRules& target);

/// Declares --host: to show what the host framework says as well.
void declareHost(Options& options, bool& target);

/// Declares a positional SCAN and the options that go with it.
void declareScan(Options& options, ScanOptions& target);
/// Declares the options alone.
void declareScanSettings(Options& options, ScanOptions& target);
/// Declares the positional SCAN, and which one of several it is.
void declareScanFile(Options& options, ScanOptions& target);
/// The files of a command that takes many.
void declareScanFiles(Options& options, ScanOptions& target);
void declareLenient(Options& options, ScanOptions& target);
void declareScanNumber(Options& options, ScanOptions& target);
/// Declares how times are printed and taken.
void declareTimes(Options& options, TimeOptions& target);
/// Declares the unit of the points' times.
void declareTimeUnit(Options& options, ScanOptions& target);

}  // namespace ScanHost
