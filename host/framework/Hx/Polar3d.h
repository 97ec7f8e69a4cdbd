// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include "HostExport.h"
#include "Tq/Vec3d.h"

namespace Hx {

template <typename T>
class UnifiedPolar3d;

/// A point in polar coordinates around the scanner: component 0 is the distance r >= 0 [same unit
/// as the Cartesian point], 1 the horizontal and 2 the vertical angle [rad]. The derived
/// class decides where the angles start and how they grow. The virtual operations keep their order.
template <typename T>
class Polar3d : public Tq_1_1::Vec3d<T> {
  public:
    using Tq_1_1::Vec3d<T>::Vec3d;

    virtual Tq_1_1::Vec3d<T> getCartesian() const = 0;
    /// @return this value
    virtual Polar3d& setFromCartesian(const Tq_1_1::Vec3d<T>& point) = 0;
    virtual UnifiedPolar3d<T> getUnified() const = 0;
    /// @return this value
    virtual Polar3d& setFromUnified(const UnifiedPolar3d<T>& unified) = 0;
    virtual ~Polar3d() = default;
    virtual std::unique_ptr<Polar3d<T>> clone() const = 0;
    virtual std::unique_ptr<Polar3d<double>> toDouble() const = 0;
    virtual std::unique_ptr<Polar3d<float>> toFloat() const = 0;

  protected:
    Polar3d() = default;
    Polar3d(const Polar3d&) = default;
    Polar3d& operator=(const Polar3d&) = default;
};

}  // namespace Hx
