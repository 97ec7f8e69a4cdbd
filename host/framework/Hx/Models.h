// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <map>
#include <memory>
#include <mutex>
#include <utility>

#include "HostExport.h"
#include "Hx/ModelContext.h"
#include "Tq/SmartPtr.h"

namespace Hx {

class PointSetFactory;
class RestrictionManager;

/// The part of the running application that leads to the restriction manager.
class Application {
  public:
    /// @return empty when the application restricts nothing
    std::shared_ptr<RestrictionManager> getRestrictionManager() const { return restrictions_; }
    void setRestrictionManager(std::shared_ptr<RestrictionManager> manager) {
        restrictions_ = std::move(manager);
    }

  private:
    std::shared_ptr<RestrictionManager> restrictions_;
};

/// The host's model registry. Threads: any thread may ask for contexts. Everything else is set
/// while no other thread uses the registry.
class HOST_EXPORT Models {
  public:
    static Models& the();

    /// @return empty on a host that makes no point sets; there is one from the start
    std::shared_ptr<PointSetFactory> getPointSetFactory() const { return factory_; }
    void setPointSetFactory(std::shared_ptr<PointSetFactory> factory) {
        factory_ = std::move(factory);
    }

    /// @return null until an application has announced itself; not owned
    Application* getApplication() const { return application_; }
    /// @param application  null when the application ends; else it lives until the next call
    void setApplication(Application* application) { application_ = application; }

    /// The context of an identifier, made on first use; always the same one.
    Tq_1_1::SmartPtr<ModelContext> context(unsigned long long identifier);

  private:
    Models();

    std::shared_ptr<PointSetFactory> factory_;
    Application* application_ = nullptr;
    std::mutex mutex_;
    std::map<unsigned long long, Tq_1_1::SmartPtr<ModelContext>> contexts_;  // guarded by mutex_
};

}  // namespace Hx
