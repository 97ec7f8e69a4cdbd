// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/Object.h"

#include <json/value.h>

#include <algorithm>

#include "Hx/PtSetObject.h"
#include "Tq/HxClass.h"
#include "Tq/Module.h"

namespace Hx {

namespace {

using Matrix = Tq_1_1::Mat4d<double>;

constexpr Matrix kIdentity = Matrix::identity();

const AttrDefinition* attributeTable() {
    static const AttrDefinition table[] = {
        {Object::ATTR_NAME, L"Name", ATTR_STORED, ATTR_STRING},
        {},
    };
    return table;
}

}  // namespace

Object::~Object() {
    for (const auto& child : children_) {
        child->parent_ = nullptr;
    }
}

const Tq_1_1::HxClass* Object::Class() {
    static const Tq_1_1::HxClass record(L"Object", AttrContainer::Class(), Tq_1_1::hostModule(),
                                        {});
    return &record;
}

const Tq_1_1::HxClass* Object::getClassType() const {
    return Class();
}

void Object::init(CreateType type, const AttrContainer* source) {
    AttrContainer::init(type, source);
    createAttributes(attributeTable(), type, source);
}

unsigned int Object::getAttrToken(const Tq_1_1::String& name) const {
    const AttrDefinition* const line = findAttrDefinition(attributeTable(), name);
    return line != nullptr ? line->token : AttrContainer::getAttrToken(name);
}

const Tq_1_1::String& Object::getAttrName(unsigned int token) const {
    const AttrDefinition* const line = findAttrDefinition(attributeTable(), token);
    return line != nullptr ? line->name : AttrContainer::getAttrName(token);
}

const AttrDefinition* Object::getAttrDefinition(unsigned int token) const {
    const AttrDefinition* const line = findAttrDefinition(attributeTable(), token);
    return line != nullptr ? line : AttrContainer::getAttrDefinition(token);
}

const Tq_1_1::String& Object::getName() const {
    return getTextAttribute(ATTR_NAME);
}

void Object::setName(const Tq_1_1::String& name) {
    if (const auto attribute = getAttribute(ATTR_NAME)) {
        attribute->setValue(name, this);
    }
}

bool Object::addChild(const Tq_1_1::SmartPtr<Object>& child) {
    if (!child || child->parent_ != nullptr || isBelowOrAt(child.get())) {
        return false;
    }
    children_.push_back(child);
    child->parent_ = this;
    return true;
}

bool Object::removeChild(const Object* child) {
    const auto found = std::find_if(children_.begin(), children_.end(),
                                    [child](const auto& own) { return own.get() == child; });
    if (found == children_.end()) {
        return false;
    }
    (*found)->parent_ = nullptr;
    children_.erase(found);
    return true;
}

bool Object::isBelowOrAt(const Object* other) const {
    const Object* node = this;
    while (node != nullptr && node != other) {
        node = node->parent_;
    }
    return node != nullptr;
}

std::vector<const Object*> Object::getPath() const {
    std::vector<const Object*> path;
    for (const Object* node = this; node != nullptr; node = node->parent_) {
        path.push_back(node);
    }
    std::reverse(path.begin(), path.end());
    return path;
}

Tq_1_1::SmartPtr<const PtSetObject> Object::getParentScan() const {
    for (const Object* node = parent_; node != nullptr; node = node->parent_) {
        if (const auto* scan = dynamic_cast<const PtSetObject*>(node)) {
            return Tq_1_1::SmartPtr<const PtSetObject>(scan);
        }
    }
    return {};
}

const Matrix& Object::getMatrix() const {
    return kIdentity;
}

const Matrix& Object::getInverseMatrix() const {
    return kIdentity;
}

const Matrix& Object::calcTrafoTo(const Object* target) const {
    const auto path = getPath();
    const auto targetPath = target != nullptr ? target->getPath() : std::vector<const Object*>{};
    // What both paths share cancels out. It is left out rather than multiplied with its inverse:
    // neighbours far from the world's origin lose no digits that way.
    std::size_t shared = 0;
    while (shared < path.size() && shared < targetPath.size() &&
           path[shared] == targetPath[shared]) {
        ++shared;
    }
    Matrix trafo = kIdentity;
    for (std::size_t i = targetPath.size(); i-- > shared;) {
        trafo = trafo * targetPath[i]->getInverseMatrix();
    }
    for (std::size_t i = shared; i < path.size(); ++i) {
        trafo = trafo * path[i]->getMatrix();
    }
    trafo_ = trafo;
    return trafo_;
}

Action::ExecReturn Object::changedNotify(const Tq_1_1::SmartPtr<Observer>& /*observer*/,
                                         const Tq_1_1::SmartPtr<Observer>& source) {
    if (!source) {
        return Action::EXEC_IGNORED;
    }
    modified_ = true;
    return Action::EXEC_DONE;
}

}  // namespace Hx
