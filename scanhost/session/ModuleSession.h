// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <string>

#include "Hx/Models.h"
#include "Hx/Object.h"
#include "Hx/PointSet.h"
#include "Platform/LibraryLoader.h"
#include "Tq/SmartPtr.h"

namespace ScanHost {

/// The module, loaded, and the application that it is loaded into: from construction to
/// destruction. Whoever holds objects of the module lets them go before the session ends.
class ModuleSession {
  public:
    /// Loads the module and calls its entry points. Throws a Failure when one refuses. It is the
    /// copy that the program is linked with: the classes of another would be different ones.
    ModuleSession();
    ModuleSession(const ModuleSession&) = delete;
    ModuleSession& operator=(const ModuleSession&) = delete;
    ~ModuleSession();

    /// The name that the module gave itself.
    const std::string& moduleName() const { return name_; }
    /// For example "13.2.0.14634".
    const std::string& moduleVersion() const { return version_; }

    /// A new point set from the host's factory. Throws a Failure when no class has the identifier.
    std::shared_ptr<Hx::PointSet> createPointSet(const std::string& classIdentifier) const;

    /// The root of the object tree; its coordinates are the world's.
    Hx::Object& root() { return *root_; }
    Hx::Application& application() { return *application_; }

  private:
    void callEntryPoints();

    std::shared_ptr<Hx::Application> application_;
    std::unique_ptr<Platform::LoadedLibrary> library_;
    Tq_1_1::SmartPtr<Hx::Object> root_;
    std::string name_;
    std::string version_;
};

}  // namespace ScanHost
