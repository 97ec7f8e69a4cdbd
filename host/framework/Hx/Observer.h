// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <map>
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

/// A node that can be told of changes. Threads: infos are attached and listeners come and go while
/// no other thread uses the node.
class HOST_EXPORT Observer : public Tq_1_1::BaseNode {
  public:
    static const Tq_1_1::HxClass* Class();
    const Tq_1_1::HxClass* getClassType() const override;

    /// What is called with the source of a change.
    using Listener = std::function<void(const Tq_1_1::SmartPtr<Observer>& source)>;

    /// Tells this node that @p source changed.
    Action::ExecReturn notify(const Tq_1_1::SmartPtr<Observer>& observer,
                              const Tq_1_1::SmartPtr<Observer>& source);

    /// Adds one who is told of each change of which this node is told. A listener may wait for the
    /// models and for other threads: nothing is guarded while it is called.
    /// @return the number by which the listener is removed again
    int addListener(Listener listener);
    /// @return false for a number that no listener has
    bool removeListener(int number);

    void attachNotifyInfo(std::shared_ptr<NotifyInfo> info);
    /// @return the info attached last whose class is @p type or derives from it; null without one
    const NotifyInfo* lookupNotifyInfo(const Tq_1_1::HxClass* type) const;

  protected:
    ~Observer() override = default;

    /// Tells the listeners, in the order in which they came. A class that overrides this calls it
    /// last and with nothing guarded.
    virtual Action::ExecReturn changedNotify(const Tq_1_1::SmartPtr<Observer>& observer,
                                             const Tq_1_1::SmartPtr<Observer>& source);

  private:
    std::vector<std::shared_ptr<NotifyInfo>> infos_;
    std::map<int, Listener> listeners_;
    int lastListener_ = 0;
};

}  // namespace Hx
