// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <numbers>
#include <optional>

#include "Tq/Mat4d.h"

#include "module/frame/VardexExport.h"
#include "pointset/CorvinPointSet.h"
#include "stance/UnifiedPolar3d.h"  // who uses polar values of the set needs it

namespace Vardex {

/// The points of a stationary scan: a grid recorded while the scanner stood at one place (a
/// stance), and the pose of that stance in the SLAM result.
/// The host makes polar values for its points in the convention of ScanPolar3d.
class VARDEX_EXPORT CorvinStancePointSet final : public CorvinPointSet {
  public:
    /// The class record's kind. Instances come from the host's point-set factory.
    class ClassCreator : public Tq_1_1::CreateableHxClass<Hx::PointContainerBase> {
      public:
        using CreateableHxClass::CreateableHxClass;
        /// @return empty
        Hx::PointContainerBase::ClassPointer create() const override;
    };

    static const Tq_1_1::HxClass* Class();
    const Tq_1_1::HxClass* getClassType() const override;

    /// Without points; bound to scan data of its own.
    explicit CorvinStancePointSet(const Tq_1_1::String& name);
    ~CorvinStancePointSet() override;

    /// The transformation that places the stance in the SLAM result, column by column.
    /// @return the identity when the scan's metadata are not a stationary scan's
    Tq_1_1::Mat4d<double> getSlamPose() const;
    /// Marks the point set's info as modified. Does nothing when the scan's metadata are not a
    /// stationary scan's. The matrix is kept as it is.
    void setSlamPose(Tq_1_1::Mat4d<double> pose);

    /// @return empty when the host refuses a size or finds the set faulty
    std::shared_ptr<Hx::PointSet> createNewPointSet(int size1, int size2,
                                                    const Tq_1_1::String& name) const override;

    // The scanner turns once around and looks straight up [rad].
    double getHorizontalRange() const override { return 2 * std::numbers::pi; }
    double getMinHorizontalAngle() const override { return -std::numbers::pi; }
    double getMaxHorizontalAngle() const override { return std::numbers::pi; }
    double getMaxVerticalAngle() const override { return std::numbers::pi / 2; }

    bool isPointCloud() const override { return false; }
    /// 5 mm.
    std::optional<double> getPointAccuracy() const override { return 0.005; }

  private:
    VARDEX_INTERNAL std::shared_ptr<Ovr::VardexLib::CorvinMetaData> metaData() const override;
};

}  // namespace Vardex
