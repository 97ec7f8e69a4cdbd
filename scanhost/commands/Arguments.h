// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include "Tq/Vec3d.h"

#include "report/ProgressLine.h"
#include "session/ScanOptions.h"

namespace ScanHost {

/// What every command takes.
struct CommonOptions {
    std::filesystem::path module;  ///< empty: the one beside this program
    bool json = false;
    ProgressMode progress = ProgressMode::Automatic;
};

void addCommonOptions(CLI::App& app, CommonOptions& options);
void addModuleOption(CLI::App& app, CommonOptions& options);

/// A positional SCAN and the options that go with it.
void addScan(CLI::App& app, ScanOptions& options);
/// The options alone.
void addScanSettings(CLI::App& app, ScanOptions& options);

/// Options whose values are finite numbers, in the notation that parseNumber reads. Anything else
/// is wrong usage; CLI11 itself would take "nan" and "1e999".
CLI::Option* addNumber(CLI::App& app, const std::string& name, std::optional<double>& value,
                       const std::string& unit, const std::string& help);
CLI::Option* addNumbers(CLI::App& app, const std::string& name, std::vector<double>& values,
                        const std::string& unit, const std::string& help);
CLI::Option* addCount(CLI::App& app, const std::string& name, std::optional<std::uint64_t>& value,
                      const std::string& unit, const std::string& help);
CLI::Option* addPoint(CLI::App& app, const std::string& name, Tq_1_1::Vec3d<double>& value,
                      const std::string& help);

}  // namespace ScanHost
