// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

namespace Vardex {

/// Whether an IO result of the host stands for a failure. Success, notes and warnings do not. Every
/// result that the module does not know does.
[[nodiscard]] bool isFailure(int result);

}  // namespace Vardex
