// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/Observer.h"

#include <algorithm>
#include <utility>

namespace Hx {

Action::ExecReturn Observer::notify(const Tq_1_1::SmartPtr<Observer>& observer,
                                    const Tq_1_1::SmartPtr<Observer>& source) {
    return changedNotify(observer, source);
}

int Observer::addListener(Listener listener) {
    listeners_.emplace(++lastListener_, std::move(listener));
    return lastListener_;
}

bool Observer::removeListener(int number) {
    return listeners_.erase(number) != 0;
}

Action::ExecReturn Observer::changedNotify(const Tq_1_1::SmartPtr<Observer>& /*observer*/,
                                           const Tq_1_1::SmartPtr<Observer>& source) {
    const std::map<int, Listener> listeners = listeners_;  // one of them may remove itself
    for (const auto& [number, listener] : listeners) {
        listener(source);
    }
    return Action::EXEC_IGNORED;
}

void Observer::attachNotifyInfo(std::shared_ptr<NotifyInfo> info) {
    if (info != nullptr) {
        infos_.push_back(std::move(info));
    }
}

const NotifyInfo* Observer::lookupNotifyInfo(const Tq_1_1::HxClass* type) const {
    const auto found = std::find_if(infos_.rbegin(), infos_.rend(), [type](const auto& info) {
        return type != nullptr && info->getClassType()->isDerivedFrom(type);
    });
    return found == infos_.rend() ? nullptr : found->get();
}

}  // namespace Hx
