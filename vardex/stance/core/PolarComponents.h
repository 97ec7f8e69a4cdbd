// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include "Tq/Vec3d.h"

/// Components handed from one polar value to another, whatever their classes: the angles are not
/// converted between conventions.
namespace Vardex::PolarComponents {

/// Sets the components of a polar value. @return the value
template <typename PolarValue>
PolarValue& assign(PolarValue& value,
                   const Tq_1_1::Vec3d<typename PolarValue::Scalar>& components) {
    value.x = components.x;
    value.y = components.y;
    value.z = components.z;
    return value;
}

/// A new value of another class or precision with the same components, rounded to nearest.
template <typename PolarValue, typename T>
std::unique_ptr<PolarValue> convertedTo(const Tq_1_1::Vec3d<T>& components) {
    using Scalar = typename PolarValue::Scalar;
    return std::make_unique<PolarValue>(static_cast<Scalar>(components.x),
                                        static_cast<Scalar>(components.y),
                                        static_cast<Scalar>(components.z));
}

}  // namespace Vardex::PolarComponents
