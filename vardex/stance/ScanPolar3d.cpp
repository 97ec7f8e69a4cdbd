// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "stance/ScanPolar3d.h"

#include "stance/core/PolarComponents.h"
#include "stance/core/PolarMath.h"

namespace Vardex {

using PolarComponents::assign;
using PolarComponents::componentsOf;
using PolarComponents::convertedTo;

template <typename T>
Tq_1_1::Vec3d<T> ScanPolar3d<T>::getCartesian() const {
    return PolarMath::cartesianOfScan(componentsOf<T>(*this));
}

template <typename T>
ScanPolar3d<T>& ScanPolar3d<T>::setFromCartesian(const Tq_1_1::Vec3d<T>& point) {
    return assign(*this, PolarMath::scanOfCartesian(point));
}

template <typename T>
Hx::UnifiedPolar3d<T> ScanPolar3d<T>::getUnified() const {
    const auto [radius, horizontal, vertical] = PolarMath::otherConvention(componentsOf<T>(*this));
    return {radius, horizontal, vertical};
}

template <typename T>
ScanPolar3d<T>& ScanPolar3d<T>::setFromUnified(const Hx::UnifiedPolar3d<T>& unified) {
    return assign(*this, PolarMath::otherConvention(componentsOf<T>(unified)));
}

template <typename T>
std::unique_ptr<Hx::Polar3d<T>> ScanPolar3d<T>::clone() const {
    return convertedTo<ScanPolar3d<T>>(*this);
}

template <typename T>
std::unique_ptr<Hx::Polar3d<double>> ScanPolar3d<T>::toDouble() const {
    return convertedTo<ScanPolar3d<double>>(*this);
}

template <typename T>
std::unique_ptr<Hx::Polar3d<float>> ScanPolar3d<T>::toFloat() const {
    return convertedTo<ScanPolar3d<float>>(*this);
}

template class ScanPolar3d<float>;
template class ScanPolar3d<double>;

}  // namespace Vardex
