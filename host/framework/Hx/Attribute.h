// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <memory>
#include <utility>
#include <variant>

#include "Hx/Observer.h"
#include "Tq/String.h"

namespace Hx {

class AttrContainer;

/// The value of an attribute; monostate while it has none.
using AttrValue = std::variant<std::monostate, bool, std::int32_t, double, Tq_1_1::String>;

/// One value of an attribute container.
class HOST_EXPORT Attribute final : public Observer {
  public:
    static const Tq_1_1::HxClass* Class();
    const Tq_1_1::HxClass* getClassType() const override;

    Attribute() = default;
    explicit Attribute(unsigned int token) : token_(token) {}

    unsigned int getToken() const { return token_; }
    const AttrValue& getValue() const { return value_; }
    /// @param owner  the container that changes the value; it is told of the change. May be null.
    ///               Else it and the attribute are held by a SmartPtr.
    void setValue(AttrValue value, AttrContainer* owner);
    /// The container that set the value last; null before. Not owned: an attribute may outlive it.
    const AttrContainer* getOwner() const { return owner_; }

    /// Whether a command previews attribute values. During a preview the value of an attribute's
    /// CachedAttributeInfo replaces its own value. One flag for the whole application.
    static bool isCachedAttributePending();
    static void setCachedAttributePending(bool pending);

  private:
    unsigned int token_ = 0;
    AttrValue value_;
    const AttrContainer* owner_ = nullptr;
};

/// The value that an attribute has in a preview.
class HOST_EXPORT CachedAttributeInfo final : public NotifyInfo {
  public:
    static const Tq_1_1::HxClass* Class();
    const Tq_1_1::HxClass* getClassType() const override;

    explicit CachedAttributeInfo(Tq_1_1::SmartPtr<const Attribute> attribute)
        : attribute_(std::move(attribute)) {}

    const Tq_1_1::SmartPtr<const Attribute>& getCachedAttribute() const { return attribute_; }

  private:
    Tq_1_1::SmartPtr<const Attribute> attribute_;
};

}  // namespace Hx
