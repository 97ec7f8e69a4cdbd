// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

namespace Hx::Action {

/// How a notification or command ended.
enum ExecReturn : std::int32_t { EXEC_DONE = 0, EXEC_IGNORED = 1, EXEC_FAILED = 2 };

}  // namespace Hx::Action
