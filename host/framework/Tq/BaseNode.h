// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>

#include "HostExport.h"
#include "Tq/HxClass.h"
#include "Tq/SmartPtr.h"

namespace Tq_1_1 {

/// Root of everything that can be visited.
class HOST_EXPORT VisitorCore {
  public:
    virtual ~VisitorCore();
};

/// Root of the host's node classes. SmartPtrs share a node and count its owners.
class HOST_EXPORT BaseNode : public RefCounted<BaseNode> {
  public:
    using ClassPointer = StrictSmartPtr<BaseNode>;

    /// Why a node is made.
    enum CreateType : std::int32_t {
        CREATE_NEW = 0,
        CREATE_COPY = 1,
        CREATE_TEMPLATE = 3  ///< a fresh node of the same class: attributes and name as when new
    };

    static const HxClass* Class();
    virtual const HxClass* getClassType() const;

  protected:
    friend class RefCounted<BaseNode>;
    virtual ~BaseNode() = default;
};

}  // namespace Tq_1_1
