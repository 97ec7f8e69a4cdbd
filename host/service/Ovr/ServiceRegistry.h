// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <mutex>
#include <typeindex>
#include <unordered_map>
#include <utility>

#include "HostExport.h"
#include "Ovr/IService.h"

namespace Ovr {

/// The services lent to one scan-data object, at most one per interface type.
/// Threads: any; a lock of its own guards the map and is never held during a call into a service.
class HOST_EXPORT ServiceRegistry {
  public:
    /// @return shared with the registry; empty when nothing is registered for the type, or when
    ///         what is registered does not have that interface
    template <typename Interface>
    std::shared_ptr<Interface> getService() const {
        return std::dynamic_pointer_cast<Interface>(find(typeid(Interface)));
    }

    /// Replaces and releases an earlier service of the type.
    /// @return false when @p service is empty; nothing is stored then
    template <typename Interface>
    bool registerService(std::shared_ptr<Interface> service) {
        return store(typeid(Interface), std::move(service));
    }

    /// Stores a service under a type whose interface it may not have.
    bool store(std::type_index type, std::shared_ptr<Interfaces::IService> service);

  private:
    std::shared_ptr<Interfaces::IService> find(std::type_index type) const;

    mutable std::mutex mutex_;
    std::unordered_map<std::type_index, std::shared_ptr<Interfaces::IService>> services_;
};

}  // namespace Ovr
