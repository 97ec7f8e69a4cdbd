// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include "commands/Options.h"
#include "report/ProgressLine.h"
#include "session/ScanOptions.h"

namespace ScanHost {

/// What every command takes.
struct CommonOptions {
    bool json = false;
    ProgressMode progress = ProgressMode::Automatic;
};

/// Declares what every command takes.
void declareCommon(Options& options, CommonOptions& target);

/// Declares a positional SCAN and the options that go with it.
void declareScan(Options& options, ScanOptions& target);
/// Declares the options alone.
void declareScanSettings(Options& options, ScanOptions& target);

}  // namespace ScanHost
