// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/CommandInterf.h"

namespace Hx {

CommandInterf::~CommandInterf() = default;
Command::~Command() = default;

}  // namespace Hx
