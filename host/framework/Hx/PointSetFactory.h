// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "HostExport.h"
#include "Tq/String.h"

namespace Hx {

class PointSet;

/// Makes point sets by class identifier. Threads: modules register on the loading thread; no other
/// thread uses the factory then.
class HOST_EXPORT PointSetFactory {
  public:
    using Creator = std::function<std::shared_ptr<PointSet>()>;

    virtual ~PointSetFactory();

    /// @param further  a second identifier for the same class; empty or null, for this host keeps
    ///                 one identifier per class
    /// @return false when the identifier is null, empty or taken, when the creator is empty, and
    ///         for a second identifier
    [[nodiscard]] virtual bool registerPointSet(const Tq_1_1::String& identifier, Creator creator,
                                                const Tq_1_1::String& further);
    /// @return false when the identifier is not registered
    [[nodiscard]] virtual bool unregisterPointSet(const Tq_1_1::String& identifier);

    /// @return empty for an unknown identifier
    std::shared_ptr<PointSet> create(const Tq_1_1::String& identifier) const;
    std::vector<Tq_1_1::String> identifiers() const;

  private:
    std::map<Tq_1_1::String, Creator> creators_;
};

}  // namespace Hx
