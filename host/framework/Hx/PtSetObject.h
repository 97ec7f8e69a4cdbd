// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include "HostExport.h"
#include "Hx/Action.h"
#include "Hx/Operation.h"
#include "Hx/PointSet.h"
#include "Hx/Transform.h"

namespace Hx {

/// The object that holds a point set in the tree. Its transformation takes the points' coordinates
/// to its parent's.
class HOST_EXPORT PtSetObject : public Transform {
  public:
    struct HOST_EXPORT Operations {
        /// How a point set of a class hears that its container was told of a change.
        static Operation::Context<PointSetOps::KeyType<PointSet>,
                                  Action::ExecReturn(PtSetObject*, PointSet*, Observer*, Observer*)>
            changedNotifyOperation;
    };

    static const Tq_1_1::HxClass* Class();
    const Tq_1_1::HxClass* getClassType() const override;

    /// Takes a point set and releases the old one. This object becomes the container of the new.
    /// @param pointSet  may be empty
    /// @return false, and nothing has changed, when another object holds the point set
    [[nodiscard]] bool setPointSet(std::shared_ptr<PointSet> pointSet);

  protected:
    ~PtSetObject() override;

    /// Passes the change on to the point set, through changedNotifyOperation.
    /// @return EXEC_FAILED when the point set failed, else what the base answers
    Action::ExecReturn changedNotify(const Tq_1_1::SmartPtr<Observer>& observer,
                                     const Tq_1_1::SmartPtr<Observer>& source) override;

  private:
    std::shared_ptr<PointSet> pointSet_;
};

}  // namespace Hx
