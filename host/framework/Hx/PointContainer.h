// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include "HostExport.h"
#include "Tq/BaseNode.h"
#include "Tq/HxClass.h"

namespace Hx {

/// Root of the point containers.
class HOST_EXPORT PointContainerBase {
  public:
    using ClassPointer = std::shared_ptr<PointContainerBase>;

    PointContainerBase() = default;
    PointContainerBase(const PointContainerBase&) = delete;
    PointContainerBase& operator=(const PointContainerBase&) = delete;

    static const Tq_1_1::HxClass* Class();
    virtual const Tq_1_1::HxClass* getClassType() const = 0;
    virtual ~PointContainerBase();
};

/// A point container that is owned by shared pointers and can be visited.
class HOST_EXPORT PointContainer : public PointContainerBase,
                                   public Tq_1_1::VisitorCore,
                                   public std::enable_shared_from_this<PointContainer> {
  public:
    static const Tq_1_1::HxClass* Class();
    ~PointContainer() override;
};

/// Says that a class keeps points.
class HOST_EXPORT PointDataInterf {
  public:
    virtual ~PointDataInterf();
};

}  // namespace Hx
