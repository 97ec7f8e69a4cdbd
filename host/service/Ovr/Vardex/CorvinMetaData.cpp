// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Ovr/Vardex/CorvinMetaData.h"

namespace Ovr::VardexLib {

CorvinMetaData::~CorvinMetaData() = default;
CorvinStanceMetaData::~CorvinStanceMetaData() = default;
CorvinMobileMetaData::~CorvinMobileMetaData() = default;

}  // namespace Ovr::VardexLib
