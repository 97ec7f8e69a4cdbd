// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>

#include "Ovr/Errors.h"
#include "Ovr/FormatRegistry.h"
#include "Ovr/ProjectFile.h"

namespace Ovr::Formats {

/// Reads and checks a project file. The points and trajectory files are looked for; those of which
/// a further scan than the first is named are listed, none is read.
/// @param project  changed only on success; its warnings are left empty
/// @param remarks  receives a line for each field that is not understood
/// @return empty on success; else an error that names the file, and where it can the line and
///         column, with the code FileNotFound, IsDirectory, CannotRead, EmptyFile, WrongFormat,
///         NewerVersion, InvalidValue, Unsupported for points of an unknown format, or that of
///         listing the points file
[[nodiscard]] Ovr::ErrorPtr readProjectFile(const std::filesystem::path& file,
                                            Ovr::ProjectFile& project, Ovr::Remarks& remarks);

/// Project files as the service's registry takes them.
Ovr::ProjectFormat projectFormat();

}  // namespace Ovr::Formats
