// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include "Hx/Polar3d.h"

namespace Vardex {

// What the module gives to the host's polar factory of one precision, so that the host makes polar
// values in the scanner's convention for stationary scans. T is float or double.

/// All components 0.
template <typename T>
std::unique_ptr<Hx::Polar3d<T>> createScanPolar();

/// The components of any polar value as they are: the angles are not converted.
template <typename T>
std::unique_ptr<Hx::Polar3d<T>> createScanPolarCopy(const Hx::Polar3d<T>& polar);

template <typename T>
std::unique_ptr<Hx::Polar3d<T>> createScanPolarFromCartesian(const Tq_1_1::Vec3d<T>& point);

}  // namespace Vardex
