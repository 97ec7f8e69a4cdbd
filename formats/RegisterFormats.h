// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

namespace Ovr::Formats {

/// Fills the service's registry with every format of this folder. Called by whoever wants files to
/// be read; nothing registers itself, for a linker would drop a registration that nobody names.
/// Calling it again changes nothing.
void registerFormats();

}  // namespace Ovr::Formats
