// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/PtSetObject.h"

#include <utility>

namespace Hx {

PtSetObject::~PtSetObject() {
    if (pointSet_) {
        pointSet_->setContainer(nullptr);
    }
}

bool PtSetObject::setPointSet(std::shared_ptr<PointSet> pointSet) {
    if (pointSet && pointSet->getContainer() != nullptr && pointSet->getContainer() != this) {
        return false;
    }
    if (pointSet_) {
        pointSet_->setContainer(nullptr);
    }
    pointSet_ = std::move(pointSet);
    if (pointSet_) {
        pointSet_->setContainer(this);
    }
    return true;
}

Action::ExecReturn PtSetObject::changedNotify(const Tq_1_1::SmartPtr<Observer>& observer,
                                              const Tq_1_1::SmartPtr<Observer>& source) {
    const Action::ExecReturn own = Transform::changedNotify(observer, source);
    if (!pointSet_) {
        return own;
    }
    auto* const function = Operations::changedNotifyOperation.find(pointSet_->getClassType());
    if (function == nullptr) {
        return own;
    }
    const auto passedOn = function(this, pointSet_.get(), observer.get(), source.get());
    return passedOn == Action::EXEC_FAILED ? passedOn : own;
}

}  // namespace Hx
