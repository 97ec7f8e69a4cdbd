// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "stance/ScanPolarCreators.h"

#include "stance/ScanPolar3d.h"
#include "stance/core/PolarComponents.h"

namespace Vardex {

template <typename T>
std::unique_ptr<Hx::Polar3d<T>> createScanPolar() {
    return std::make_unique<ScanPolar3d<T>>();
}

template <typename T>
std::unique_ptr<Hx::Polar3d<T>> createScanPolarCopy(const Hx::Polar3d<T>& polar) {
    return PolarComponents::convertedTo<ScanPolar3d<T>>(polar);
}

template <typename T>
std::unique_ptr<Hx::Polar3d<T>> createScanPolarFromCartesian(const Tq_1_1::Vec3d<T>& point) {
    auto polar = std::make_unique<ScanPolar3d<T>>();
    polar->setFromCartesian(point);
    return polar;
}

template std::unique_ptr<Hx::Polar3d<float>> createScanPolar();
template std::unique_ptr<Hx::Polar3d<double>> createScanPolar();
template std::unique_ptr<Hx::Polar3d<float>> createScanPolarCopy(const Hx::Polar3d<float>&);
template std::unique_ptr<Hx::Polar3d<double>> createScanPolarCopy(const Hx::Polar3d<double>&);
template std::unique_ptr<Hx::Polar3d<float>> createScanPolarFromCartesian(
    const Tq_1_1::Vec3d<float>&);
template std::unique_ptr<Hx::Polar3d<double>> createScanPolarFromCartesian(
    const Tq_1_1::Vec3d<double>&);

}  // namespace Vardex
