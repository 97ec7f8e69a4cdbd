// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include "HostExport.h"
#include "Hx/Object.h"
#include "Tq/Mat4d.h"

namespace Hx {

/// An object with a transformation of its own.
class HOST_EXPORT Transform : public Object3d {
  public:
    static const Tq_1_1::HxClass* Class();
    const Tq_1_1::HxClass* getClassType() const override;

    /// Also takes over the transformation of a source that has one.
    void init(CreateType type, const AttrContainer* source) override;
    /// Members "Class", "Name" (null without one) and "Matrix": 16 numbers, column by column.
    Json::Value toJson() const override;

    const Tq_1_1::Mat4d<double>& getMatrix() const override { return matrix_; }
    const Tq_1_1::Mat4d<double>& getInverseMatrix() const override { return inverse_; }
    /// @return false, and nothing has changed, for values that are not finite, a bottom row other
    ///         than (0, 0, 0, 1), and a matrix that has no finite inverse
    [[nodiscard]] bool setMatrix(const Tq_1_1::Mat4d<double>& matrix);

  protected:
    ~Transform() override = default;

  private:
    Tq_1_1::Mat4d<double> matrix_ = Tq_1_1::Mat4d<double>::identity();
    Tq_1_1::Mat4d<double> inverse_ = Tq_1_1::Mat4d<double>::identity();
};

}  // namespace Hx
