// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <json/forwards.h>

#include <vector>

#include "HostExport.h"
#include "Hx/AttrDefinition.h"
#include "Hx/Attribute.h"
#include "Hx/Observer.h"
#include "Tq/SmartPtr.h"
#include "Tq/String.h"

namespace Hx {

/// A node with attributes, each known by a token and a name. A new container has none: its maker
/// holds it by a SmartPtr and then calls init. The virtual operations keep their order, because
/// classes of modules rely on it.
class HOST_EXPORT AttrContainer : public Observer {
  public:
    static const Tq_1_1::HxClass* Class();
    const Tq_1_1::HxClass* getClassType() const override;

    /// A new container of the same class, initialised.
    /// @return empty when the class cannot be duplicated
    Tq_1_1::StrictSmartPtr<AttrContainer> duplicate(CreateType type) const;

    /// @return empty when there is no attribute of that token
    Tq_1_1::SmartPtr<Attribute> getAttribute(unsigned int token) const;
    /// The value of an attribute that is text.
    /// @return a null string when there is no such attribute, or its value is something else
    const Tq_1_1::String& getTextAttribute(unsigned int token) const;
    /// In the order in which they were created.
    const std::vector<Tq_1_1::SmartPtr<Attribute>>& getAttributes() const { return attributes_; }

    /// Token of the attribute for the progress of the object's processing, and of the one for its
    /// state. The base has neither: AttrDefinition::NO_TOKEN.
    virtual unsigned int getProgressAttrToken() const;
    virtual unsigned int getStateAttrToken() const;

  protected:
    ~AttrContainer() override = default;

    /// What duplicate does. The base answers an empty pointer.
    virtual Tq_1_1::StrictSmartPtr<AttrContainer> doDuplicate(CreateType type) const;

  public:
    /// Creates the attributes and gives them their first values. Called once. Overrides call the
    /// base's first. The base creates the attributes of the host's own classes.
    /// @param source  the container to copy from; null for a new one
    virtual void init(CreateType type, const AttrContainer* source);
    /// A JSON object; the base's is without members.
    virtual Json::Value toJson() const;
    // The lookups of the base know the attributes of the host's own classes.
    /// @return AttrDefinition::NO_TOKEN for an unknown name
    virtual unsigned int getAttrToken(const Tq_1_1::String& name) const;
    /// @return a null string for an unknown token
    virtual const Tq_1_1::String& getAttrName(unsigned int token) const;
    /// @return null for an unknown token
    virtual const AttrDefinition* getAttrDefinition(unsigned int token) const;

  protected:
    /// Creates an attribute for each line of a table. It takes the value that @p source has for the
    /// token; without one the value is 0 or a null string.
    /// @param table   closed by an entry without a name
    /// @param type    CREATE_TEMPLATE: the values of @p source are not used
    /// @param source  may be null
    /// @return false when a line has an unknown type or a token that the container has already;
    ///         such a line is left out, all others get their attribute
    [[nodiscard]] bool createAttributes(const AttrDefinition* table, CreateType type,
                                        const AttrContainer* source);
    /// For constructors of the host's own classes: init creates the attributes of the table, and
    /// the lookups know them. The table outlives the container.
    void addOwnTable(const AttrDefinition* table) { ownTables_.push_back(table); }

  private:
    std::vector<const AttrDefinition*> ownTables_;
    std::vector<Tq_1_1::SmartPtr<Attribute>> attributes_;
};

}  // namespace Hx
