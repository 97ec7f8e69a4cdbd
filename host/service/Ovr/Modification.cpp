// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Ovr/Modification.h"

namespace Ovr::DataStructures {

IModificationListener::~IModificationListener() = default;

ScanDataModificationScope::ScanDataModificationScope(IModificationListener& listener,
                                                     const ScanDataModification& what)
    : listener_(listener), what_(what) {
    listener_.modificationBegun(what_);
}

ScanDataModificationScope::~ScanDataModificationScope() {
    listener_.modificationEnded(what_);
}

}  // namespace Ovr::DataStructures
