// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/OvrPointSet.h"
#include "Hx/PtSetObject.h"
#include "Hx/RawScanFileObject.h"
#include "Tq/HxClass.h"
#include "Tq/Module.h"

// The class records of the host's own classes, each below its base. A record is built on first use.
#define HOST_CLASS(Name, BaseRecord)                                                          \
    const Tq_1_1::HxClass* Name::Class() {                                                    \
        static const Tq_1_1::HxClass record(L## #Name, BaseRecord, Tq_1_1::hostModule(), {}); \
        return &record;                                                                       \
    }
#define HOST_NODE_CLASS(Name, BaseRecord)               \
    HOST_CLASS(Name, BaseRecord)                        \
    const Tq_1_1::HxClass* Name::getClassType() const { \
        return Class();                                 \
    }

namespace Tq_1_1 {

HOST_NODE_CLASS(BaseNode, nullptr)

}  // namespace Tq_1_1

namespace Hx {

HOST_NODE_CLASS(Observer, BaseNode::Class())
HOST_NODE_CLASS(Attribute, Observer::Class())
HOST_NODE_CLASS(AttrContainer, Observer::Class())
HOST_NODE_CLASS(Object, AttrContainer::Class())
HOST_NODE_CLASS(Object2d, Object::Class())
HOST_NODE_CLASS(Object3d, Object2d::Class())
HOST_NODE_CLASS(Transform, Object3d::Class())
HOST_NODE_CLASS(PtSetObject, Transform::Class())
HOST_NODE_CLASS(FileDataObject, Transform::Class())
HOST_NODE_CLASS(MiscFileDataObject, FileDataObject::Class())
HOST_NODE_CLASS(RawScanFileObject, MiscFileDataObject::Class())

HOST_NODE_CLASS(NotifyInfo, nullptr)
HOST_NODE_CLASS(CachedAttributeInfo, NotifyInfo::Class())

HOST_CLASS(PointContainerBase, nullptr)
HOST_CLASS(PointContainer, PointContainerBase::Class())
HOST_NODE_CLASS(PointSet, PointContainer::Class())
HOST_NODE_CLASS(OvrPointSet, PointSet::Class())

}  // namespace Hx
