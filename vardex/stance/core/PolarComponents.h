// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include "Tq/Vec3d.h"

#include "stance/core/Polar.h"

/// The host keeps a polar value as a vector: x is the radius, y the horizontal and z the vertical
/// angle. Here components go in and out of such vectors. Angles stay as they are, also between
/// classes of different conventions.
namespace Vardex::PolarComponents {

/// The components of one of the host's polar values.
template <typename T>
Polar<T> componentsOf(const Tq_1_1::Vec3d<T>& value) {
    return {value.x, value.y, value.z};
}

/// Sets the components of a polar value. @return the value
template <typename PolarValue>
PolarValue& assign(PolarValue& value, const Polar<typename PolarValue::Scalar>& components) {
    value.x = components.radius;
    value.y = components.horizontal;
    value.z = components.vertical;
    return value;
}

/// A new value of another class or precision with the same components, rounded to nearest.
template <typename PolarValue, typename T>
std::unique_ptr<PolarValue> convertedTo(const Tq_1_1::Vec3d<T>& value) {
    using Scalar = typename PolarValue::Scalar;
    const auto [radius, horizontal, vertical] = componentsOf(value);
    return std::make_unique<PolarValue>(static_cast<Scalar>(radius),
                                        static_cast<Scalar>(horizontal),
                                        static_cast<Scalar>(vertical));
}

}  // namespace Vardex::PolarComponents
