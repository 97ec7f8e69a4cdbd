// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include "Tq/Module.h"

namespace Vardex {

/// The record of this module, which every class record names. Built on first use and destroyed when
/// the library is released, after the class records. Threads: any.
Tq_1_1::Module& theModule();

}  // namespace Vardex
