// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include "HostExport.h"

namespace Ovr::Interfaces {

/// Something that a point set lends to its scan data, found through the ServiceRegistry.
class HOST_EXPORT IService {
  public:
    virtual ~IService();
};

}  // namespace Ovr::Interfaces
