// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <json/forwards.h>

#include <map>
#include <memory>
#include <set>
#include <string>

#include "Hx/Action.h"
#include "Hx/AttrDefinition.h"
#include "Hx/KeyTable.h"
#include "Hx/Observer.h"
#include "Hx/RawScanFileObject.h"
#include "Tq/File.h"
#include "Tq/HxClass.h"
#include "Tq/SmartPtr.h"
#include "Tq/String.h"

#include "module/frame/VardexExport.h"

namespace Hx {
class CommandInterf;
class StateContext;
}  // namespace Hx

namespace Vardex {

/// An imported scanner project in the host's object tree. While one is the first selected object,
/// the host refuses the commands that make no sense for it.
class VARDEX_EXPORT VardexDataObj : public Hx::RawScanFileObject {
  public:
    class ClassCreator : public Tq_1_1::CreateableHxClass<Tq_1_1::BaseNode> {
      public:
        using CreateableHxClass::CreateableHxClass;
        ~ClassCreator() override;
        /// A new object, on which init was not called yet.
        Tq_1_1::StrictSmartPtr<Tq_1_1::BaseNode> create() const override;
        void initClassStatics() const override;
        void clearClassStatics() const override;
    };

    /// Token of the attribute "ProcessingProgress", a 32-bit integer: -1 until processing begins.
    static constexpr unsigned int ATTR_PROCESSING_PROGRESS = 13;

    // Keys of the JSON form.
    static const std::string JSON_ATTR_IS_POINT_CLOUD;
    static const std::string JSON_ATTR_POINT_CLOUD;
    static const std::string JSON_ATTR_IS_PROCESSING_DONE;

    /// The address of the object it holds is the key of commandFilter in the host's restriction
    /// manager.
    static const Tq_1_1::SmartPtr<Hx::Observer> commandFilterKey;
    /// Identifiers of the commands that commandFilter denies.
    static const std::set<Tq_1_1::String> forbiddenCommands;

    /// Registers commandFilter with the host, if the host restricts commands at all. The
    /// registration outlives the object.
    VardexDataObj();

    static const Tq_1_1::HxClass* Class();

    /// Sets up the tables of the attribute lookups, and destroys them. Both may be called
    /// repeatedly. Until they are set up the lookups answer as the base class does. Threads: no
    /// thread may look up an attribute meanwhile.
    static void initStatics();
    static void clearStatics();

    /// Whether the object lies below a scan. Both give the same answer: points come with a scan,
    /// and processing makes a scan.
    bool isPointCloud() const;
    bool isProcessed() const;

    /// Whether a command is denied in a state. It is when the first selected object is of exactly
    /// this class and the command is one of forbiddenCommands. Null arguments and an empty
    /// selection deny nothing. Threads: any.
    static bool commandFilter(const Hx::CommandInterf* command, const Hx::StateContext* state);

    /// Makes a data object from a project file.
    /// @param file    may be empty
    /// @param result  receives the new object; a failure leaves it as it is
    /// @return an IO result: 171 for an empty pointer and a file that does not exist, else what
    ///         fillFrom gives
    [[nodiscard]] static int createFromImportedKpx(const std::shared_ptr<Tq_1_1::File>& file,
                                                   Tq_1_1::SmartPtr<VardexDataObj>& result);

    // Overrides, in the order of the host's table.
    const Tq_1_1::HxClass* getClassType() const override;

  protected:
    ~VardexDataObj() override;

    /// Waits until no one else works on the models, then does what the base class does.
    Hx::Action::ExecReturn changedNotify(const Tq_1_1::SmartPtr<Hx::Observer>& observer,
                                         const Tq_1_1::SmartPtr<Hx::Observer>& source) override;

  public:
    /// @return ATTR_PROCESSING_PROGRESS
    unsigned int getProgressAttrToken() const override;
    /// @return AttrDefinition::NO_TOKEN
    unsigned int getStateAttrToken() const override;

  protected:
    Tq_1_1::StrictSmartPtr<Hx::AttrContainer> doDuplicate(CreateType type) const override;

  public:
    /// An object without a source is new: it gets the name of its class and a progress of -1.
    void init(CreateType type, const Hx::AttrContainer* source) override;
    /// The transformation's form and three flags: "IsPointCloud", always false, since the object
    /// itself has no points; "PointCloud" and "IsProcessed", which say what isPointCloud and
    /// isProcessed do.
    Json::Value toJson() const override;
    unsigned int getAttrToken(const Tq_1_1::String& name) const override;
    const Tq_1_1::String& getAttrName(unsigned int token) const override;
    const Hx::AttrDefinition* getAttrDefinition(unsigned int token) const override;

  protected:
    /// The class's attribute, and the entry that closes the table.
    static const Hx::AttrDefinition attrDefs[2];
    /// Null outside of initStatics and clearStatics.
    static Hx::KeyTable* attrNames;
    static std::map<const unsigned int, const Hx::AttrDefinition*>* attrDefMap;
};

}  // namespace Vardex
