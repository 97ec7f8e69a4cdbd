// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include "Hx/Polar3d.h"

#include "module/frame/VardexExport.h"

namespace Hx {

/// The host's unified polar form: the horizontal angle counts from +x towards +y, [0, 2 pi], the
/// vertical angle from +z, [0, pi]. The module provides the float and the double instance.
/// A direction a trace right of +x has the horizontal angle 2 pi, not 0: the difference is rounded
/// away. As a float it is 6.2831855, the next value above 2 pi.
/// Points closer than 0.000005 to the origin get both angles 0, points on the vertical axis the
/// horizontal angle 0.
template <typename T>
class VARDEX_EXPORT UnifiedPolar3d final : public Polar3d<T> {
  public:
    UnifiedPolar3d() = default;  ///< all components 0
    UnifiedPolar3d(T r, T horizontal, T vertical) : Polar3d<T>(r, horizontal, vertical) {}

    Tq_1_1::Vec3d<T> getCartesian() const override;
    /// For float every step is computed in single precision.
    UnifiedPolar3d& setFromCartesian(const Tq_1_1::Vec3d<T>& point) override;
    UnifiedPolar3d getUnified() const override;
    UnifiedPolar3d& setFromUnified(const UnifiedPolar3d& unified) override;
    std::unique_ptr<Polar3d<T>> clone() const override;
    std::unique_ptr<Polar3d<double>> toDouble() const override;
    std::unique_ptr<Polar3d<float>> toFloat() const override;
};

extern template class UnifiedPolar3d<float>;
extern template class UnifiedPolar3d<double>;

}  // namespace Hx
