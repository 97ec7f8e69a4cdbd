// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Ovr/Progress.h"

namespace Ovr::DataStructures {

IProgress::~IProgress() = default;
ICancelInfo::~ICancelInfo() = default;

}  // namespace Ovr::DataStructures
