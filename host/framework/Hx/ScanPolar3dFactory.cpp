// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/ScanPolar3dFactory.h"

#include <algorithm>

namespace Hx {

namespace {

template <typename List>
void removeFirst(List& list, PointSetOps::KeyType<PointSet> type) {
    auto& entries = list.entries;
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [type](const auto& entry) { return entry.first == type; });
    if (found != entries.end()) {
        entries.erase(found);
    }
}

template <typename T>
void removeFrom(ScanPolar3dFactory<T>& factory, PointSetOps::KeyType<PointSet> type) {
    removeFirst(factory.createEmpty, type);
    removeFirst(factory.createCopy, type);
    removeFirst(factory.createFromCartesian, type);
}

}  // namespace

template <>
ScanPolar3dFactory<float>& getScanPolarFactory<float>() {
    static ScanPolar3dFactory<float> factory;
    return factory;
}

template <>
ScanPolar3dFactory<double>& getScanPolarFactory<double>() {
    static ScanPolar3dFactory<double> factory;
    return factory;
}

void removeScanPolarType(PointSetOps::KeyType<PointSet> type) {
    removeFrom(getScanPolarFactory<double>(), type);
    removeFrom(getScanPolarFactory<float>(), type);
}

}  // namespace Hx
