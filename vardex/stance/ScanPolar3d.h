// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include "Hx/Polar3d.h"

#include "module/frame/VardexExport.h"
#include "stance/UnifiedPolar3d.h"

namespace Vardex {

/// The scanner's polar convention: the horizontal angle counts from +x towards -y, that is
/// clockwise seen from above, [0, 2 pi]; the vertical angle is the elevation above the x-y plane,
/// [-pi/2, pi/2]. There are a float and a double instance, both of which the module provides.
/// A direction a trace left of +x has the horizontal angle 2 pi, not 0: the difference is rounded
/// away. As a float it is 6.2831855, the next value above 2 pi.
/// Points closer than 0.000005 to the origin get both angles 0, points on the vertical axis the
/// horizontal angle 0.
template <typename T>
class VARDEX_EXPORT ScanPolar3d final : public Hx::Polar3d<T> {
  public:
    ScanPolar3d() = default;  ///< all components 0
    ScanPolar3d(T r, T horizontal, T vertical) : Hx::Polar3d<T>(r, horizontal, vertical) {}

    Tq_1_1::Vec3d<T> getCartesian() const override;
    /// For float the angles are computed in double precision and rounded at the end.
    ScanPolar3d& setFromCartesian(const Tq_1_1::Vec3d<T>& point) override;
    /// The angles are subtracted from 2 pi and pi/2 and not wrapped: 0 becomes 2 pi.
    Hx::UnifiedPolar3d<T> getUnified() const override;
    ScanPolar3d& setFromUnified(const Hx::UnifiedPolar3d<T>& unified) override;
    std::unique_ptr<Hx::Polar3d<T>> clone() const override;
    std::unique_ptr<Hx::Polar3d<double>> toDouble() const override;
    std::unique_ptr<Hx::Polar3d<float>> toFloat() const override;
};

extern template class ScanPolar3d<float>;
extern template class ScanPolar3d<double>;

}  // namespace Vardex
