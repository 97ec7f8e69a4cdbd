// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <vector>

#include "HostExport.h"
#include "Hx/AttrContainer.h"
#include "Tq/Mat4d.h"
#include "Tq/SmartPtr.h"

namespace Hx {

class PtSetObject;

/// A node of the object tree. A parent owns its children; a child does not own its parent.
/// Threads: the tree is read and changed inside an AllocMain on the context of all models.
class HOST_EXPORT Object : public AttrContainer, public Tq_1_1::VisitorCore {
  public:
    static constexpr unsigned int ATTR_NAME = 1;  ///< token of the attribute "Name"

    static const Tq_1_1::HxClass* Class();
    const Tq_1_1::HxClass* getClassType() const override;

    Object();

    /// @return a null string before init and until a name is set
    const Tq_1_1::String& getName() const;
    /// Requires: init was called.
    void setName(const Tq_1_1::String& name);

    /// @return null for the root of a tree
    Object* getParent() const { return parent_; }
    const std::vector<Tq_1_1::SmartPtr<Object>>& getChildren() const { return children_; }
    /// Appends a child.
    /// @return false when it is empty, has a parent, or is this object or above it
    [[nodiscard]] bool addChild(const Tq_1_1::SmartPtr<Object>& child);

    /// The nearest object above this one that holds a point set.
    /// @return empty without one
    Tq_1_1::SmartPtr<const PtSetObject> getParentScan() const;

    /// The transformation from this object's coordinates into its parent's. The base has the
    /// identity.
    virtual const Tq_1_1::Mat4d<double>& getMatrix() const;
    /// The inverse of getMatrix.
    virtual const Tq_1_1::Mat4d<double>& getInverseMatrix() const;

    /// The transformation from this object's coordinates into those of @p target. Objects of
    /// different trees have the world coordinates in common.
    /// @param target  null for world coordinates
    /// @return valid until the next call on this object
    const Tq_1_1::Mat4d<double>& calcTrafoTo(const Object* target) const;

  protected:
    ~Object() override;

    /// Tells the listeners. The base keeps no record of changes.
    /// @return EXEC_DONE; EXEC_IGNORED without a source
    Action::ExecReturn changedNotify(const Tq_1_1::SmartPtr<Observer>& observer,
                                     const Tq_1_1::SmartPtr<Observer>& source) override;

  private:
    bool isBelowOrAt(const Object* other) const;
    /// The way from the root down to this object, both included.
    std::vector<const Object*> getPath() const;

    Object* parent_ = nullptr;
    std::vector<Tq_1_1::SmartPtr<Object>> children_;
    mutable Tq_1_1::Mat4d<double> trafo_;  // the answer of the last calcTrafoTo
};

/// An object with a place in a plane view.
class HOST_EXPORT Object2d : public Object {
  public:
    static const Tq_1_1::HxClass* Class();
    const Tq_1_1::HxClass* getClassType() const override;

  protected:
    ~Object2d() override = default;
};

/// An object with a place in space.
class HOST_EXPORT Object3d : public Object2d {
  public:
    static const Tq_1_1::HxClass* Class();
    const Tq_1_1::HxClass* getClassType() const override;

  protected:
    ~Object3d() override = default;
};

}  // namespace Hx
