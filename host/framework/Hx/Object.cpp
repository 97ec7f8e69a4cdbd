// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/Object.h"

#include <json/value.h>

#include <algorithm>

#include "Hx/PtSetObject.h"

namespace Hx {

namespace {

using Matrix = Tq_1_1::Mat4d<double>;

constexpr Matrix kIdentity = Matrix::identity();

}  // namespace

Object::Object() {
    static const AttrDefinition table[] = {{ATTR_NAME, L"Name", ATTR_STORED, ATTR_STRING}, {}};
    addOwnTable(table);
}

Object::~Object() {
    for (const auto& child : children_) {
        child->parent_ = nullptr;
    }
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
    // The part that both paths share cancels out. It is skipped, not multiplied by its inverse, so
    // that neighbours far from the world's origin lose no digits.
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

Action::ExecReturn Object::changedNotify(const Tq_1_1::SmartPtr<Observer>& observer,
                                         const Tq_1_1::SmartPtr<Observer>& source) {
    AttrContainer::changedNotify(observer, source);
    return source ? Action::EXEC_DONE : Action::EXEC_IGNORED;
}

}  // namespace Hx
