// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/Observer.h"

#include <algorithm>
#include <utility>

namespace Hx {

NotifyInfo::~NotifyInfo() = default;
Observer::~Observer() = default;

const Tq_1_1::HxClass* NotifyInfo::Class() {
    static const Tq_1_1::HxClass record(L"NotifyInfo", nullptr, Tq_1_1::hostModule(), {});
    return &record;
}

const Tq_1_1::HxClass* NotifyInfo::getClassType() const {
    return Class();
}

const Tq_1_1::HxClass* Observer::Class() {
    static const Tq_1_1::HxClass record(L"Observer", BaseNode::Class(), Tq_1_1::hostModule(), {});
    return &record;
}

const Tq_1_1::HxClass* Observer::getClassType() const {
    return Class();
}

Action::ExecReturn Observer::notify(const Tq_1_1::SmartPtr<Observer>& observer,
                                    const Tq_1_1::SmartPtr<Observer>& source) {
    return changedNotify(observer, source);
}

Action::ExecReturn Observer::changedNotify(const Tq_1_1::SmartPtr<Observer>& /*observer*/,
                                           const Tq_1_1::SmartPtr<Observer>& /*source*/) {
    return Action::EXEC_IGNORED;
}

void Observer::attachNotifyInfo(std::shared_ptr<NotifyInfo> info) {
    if (info != nullptr) {
        infos_.push_back(std::move(info));
    }
}

void Observer::detachNotifyInfo(const NotifyInfo* info) {
    std::erase_if(infos_, [info](const auto& attached) { return attached.get() == info; });
}

const NotifyInfo* Observer::lookupNotifyInfo(const Tq_1_1::HxClass* type) const {
    const auto found = std::find_if(infos_.rbegin(), infos_.rend(), [type](const auto& info) {
        return type != nullptr && info->getClassType()->isDerivedFrom(type);
    });
    return found == infos_.rend() ? nullptr : found->get();
}

}  // namespace Hx
