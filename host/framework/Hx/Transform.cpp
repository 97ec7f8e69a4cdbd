// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/Transform.h"

#include <json/value.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <optional>

namespace Hx {

namespace {

using Matrix = Tq_1_1::Mat4d<double>;

bool isFinite(const Matrix& m) {
    return std::all_of(m.values.begin(), m.values.end(), [](double v) { return std::isfinite(v); });
}

/// The cofactor of (row, col) in the 3 x 3 rotation part. Rows and columns are taken in cyclic
/// order, which gives the sign as well.
double cofactor(const Matrix& m, std::size_t row, std::size_t col) {
    const std::size_t r1 = (row + 1) % 3;
    const std::size_t r2 = (row + 2) % 3;
    const std::size_t c1 = (col + 1) % 3;
    const std::size_t c2 = (col + 2) % 3;
    return m(r1, c1) * m(r2, c2) - m(r1, c2) * m(r2, c1);
}

/// The inverse by cofactors of a matrix whose bottom row is (0, 0, 0, 1).
/// @return empty when it is not finite
std::optional<Matrix> invert(const Matrix& m) {
    const double determinant =
        m(0, 0) * cofactor(m, 0, 0) + m(0, 1) * cofactor(m, 0, 1) + m(0, 2) * cofactor(m, 0, 2);
    Matrix inverse = Matrix::identity();
    for (std::size_t row = 0; row < 3; ++row) {
        double offset = 0.0;
        for (std::size_t col = 0; col < 3; ++col) {
            inverse(row, col) = cofactor(m, col, row) / determinant;
            offset -= inverse(row, col) * m(col, 3);
        }
        inverse(row, 3) = offset;
    }
    return isFinite(inverse) ? std::optional(inverse) : std::nullopt;
}

}  // namespace

void Transform::init(CreateType type, const AttrContainer* source) {
    Object3d::init(type, source);
    const auto* const original = dynamic_cast<const Transform*>(source);
    if (original != nullptr && type != CREATE_TEMPLATE) {
        matrix_ = original->matrix_;
        inverse_ = original->inverse_;
    }
}

Json::Value Transform::toJson() const {
    Json::Value form = Object3d::toJson();
    form["Class"] = getClassType()->getName().toUtf8();
    form["Name"] = getName().isNull() ? Json::Value() : Json::Value(getName().toUtf8());
    Json::Value& matrix = form["Matrix"] = Json::Value(Json::arrayValue);
    for (const double value : matrix_.values) {
        matrix.append(value);
    }
    return form;
}

bool Transform::setMatrix(const Matrix& matrix) {
    const bool affine =
        matrix(3, 0) == 0.0 && matrix(3, 1) == 0.0 && matrix(3, 2) == 0.0 && matrix(3, 3) == 1.0;
    if (!affine || !isFinite(matrix)) {
        return false;
    }
    const auto inverse = invert(matrix);
    if (!inverse) {
        return false;
    }
    matrix_ = matrix;
    inverse_ = *inverse;
    return true;
}

}  // namespace Hx
