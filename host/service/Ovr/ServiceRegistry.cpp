// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Ovr/ServiceRegistry.h"

namespace Ovr {

bool ServiceRegistry::store(std::type_index type, std::shared_ptr<Interfaces::IService> service) {
    if (!service) {
        return false;
    }
    {
        const std::lock_guard guard(mutex_);
        services_[type].swap(service);
    }
    // The earlier service is released here, outside the lock: its destructor may call back.
    return true;
}

std::shared_ptr<Interfaces::IService> ServiceRegistry::find(std::type_index type) const {
    const std::lock_guard guard(mutex_);
    const auto entry = services_.find(type);
    return entry == services_.end() ? nullptr : entry->second;
}

}  // namespace Ovr
