// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "stance/UnifiedPolar3d.h"

#include "stance/core/PolarComponents.h"
#include "stance/core/PolarMath.h"

namespace Hx {

using Vardex::PolarComponents::assign;
using Vardex::PolarComponents::componentsOf;
using Vardex::PolarComponents::convertedTo;

template <typename T>
Tq_1_1::Vec3d<T> UnifiedPolar3d<T>::getCartesian() const {
    return Vardex::PolarMath::cartesianOfUnified(componentsOf<T>(*this));
}

template <typename T>
UnifiedPolar3d<T>& UnifiedPolar3d<T>::setFromCartesian(const Tq_1_1::Vec3d<T>& point) {
    return assign(*this, Vardex::PolarMath::unifiedOfCartesian(point));
}

template <typename T>
UnifiedPolar3d<T> UnifiedPolar3d<T>::getUnified() const {
    return *this;
}

template <typename T>
UnifiedPolar3d<T>& UnifiedPolar3d<T>::setFromUnified(const UnifiedPolar3d& unified) {
    return *this = unified;
}

template <typename T>
std::unique_ptr<Polar3d<T>> UnifiedPolar3d<T>::clone() const {
    return convertedTo<UnifiedPolar3d<T>>(*this);
}

template <typename T>
std::unique_ptr<Polar3d<double>> UnifiedPolar3d<T>::toDouble() const {
    return convertedTo<UnifiedPolar3d<double>>(*this);
}

template <typename T>
std::unique_ptr<Polar3d<float>> UnifiedPolar3d<T>::toFloat() const {
    return convertedTo<UnifiedPolar3d<float>>(*this);
}

template class UnifiedPolar3d<float>;
template class UnifiedPolar3d<double>;

}  // namespace Hx
