// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <vector>

#include "HostExport.h"
#include "Hx/Action.h"
#include "Tq/BaseNode.h"

namespace Hx {

/// Information that is attached to an observer, for example a previewed value.
class HOST_EXPORT NotifyInfo {
  public:
    static const Tq_1_1::HxClass* Class();
    virtual const Tq_1_1::HxClass* getClassType() const;
    virtual ~NotifyInfo() = default;
};

/// A node that can be told of changes. Threads: an info is attached while no other thread looks one
/// up.
class HOST_EXPORT Observer : public Tq_1_1::BaseNode {
  public:
    static const Tq_1_1::HxClass* Class();
    const Tq_1_1::HxClass* getClassType() const override;

    /// Tells this node that @p source changed.
    Action::ExecReturn notify(const Tq_1_1::SmartPtr<Observer>& observer,
                              const Tq_1_1::SmartPtr<Observer>& source);

    void attachNotifyInfo(std::shared_ptr<NotifyInfo> info);
    /// @return the info attached last whose class is @p type or derives from it; null without one
    const NotifyInfo* lookupNotifyInfo(const Tq_1_1::HxClass* type) const;

  protected:
    ~Observer() override = default;

    virtual Action::ExecReturn changedNotify(const Tq_1_1::SmartPtr<Observer>& observer,
                                             const Tq_1_1::SmartPtr<Observer>& source);

  private:
    std::vector<std::shared_ptr<NotifyInfo>> infos_;
};

}  // namespace Hx
