// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include "HostExport.h"
#include "Hx/Operation.h"
#include "Hx/Polar3d.h"

namespace Hx {

class PointSet;

/// The polar conventions of the point-set classes, in one precision: how to make an empty value, a
/// copy of any polar value's components, and the value of a Cartesian point.
template <typename T>
struct ScanPolar3dFactory {
    using Key = PointSetOps::KeyType<PointSet>;

    Operation::Context<Key, std::unique_ptr<Polar3d<T>>()> createEmpty;
    Operation::Context<Key, std::unique_ptr<Polar3d<T>>(const Polar3d<T>&)> createCopy;
    Operation::Context<Key, std::unique_ptr<Polar3d<T>>(const Tq_1_1::Vec3d<T>&)>
        createFromCartesian;
};

/// The factory of one precision; T is float or double.
template <typename T>
ScanPolar3dFactory<T>& getScanPolarFactory();
template <>
HOST_EXPORT ScanPolar3dFactory<float>& getScanPolarFactory<float>();
template <>
HOST_EXPORT ScanPolar3dFactory<double>& getScanPolarFactory<double>();

/// Removes the class's first entry from each of the three lists of both factories.
HOST_EXPORT void removeScanPolarType(PointSetOps::KeyType<PointSet> type);

}  // namespace Hx
