// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>
#include <json/value.h>

#include <cstdint>
#include <memory>
#include <string>

#include "Hx/CommandInterf.h"
#include "Hx/ModelContext.h"
#include "Hx/Models.h"
#include "Hx/PtSetObject.h"
#include "Hx/RestrictionManager.h"
#include "Hx/StateContext.h"
#include "Ovr/FormatRegistry.h"

#include "dataobj/VardexDataObj.h"
#include "module/frame/ModuleRecord.h"
#include "support/TempFolder.h"

namespace Vardex {
namespace {

using Hx::AttrValue;
using Tq_1_1::BaseNode;
using Tq_1_1::SmartPtr;
using Tq_1_1::String;

/// A class derived from the data object, with a record of its own.
class DerivedDataObj final : public VardexDataObj {
  public:
    using VardexDataObj::attrDefMap;
    using VardexDataObj::attrDefs;
    using VardexDataObj::attrNames;

    const Tq_1_1::HxClass* getClassType() const override {
        static const Tq_1_1::HxClass record(L"DerivedDataObj", VardexDataObj::Class(), theModule(),
                                            {});
        return &record;
    }
};

/// The running application for as long as it lives.
struct RunningApplication {
    explicit RunningApplication(std::shared_ptr<Hx::RestrictionManager> manager) {
        application.setRestrictionManager(std::move(manager));
        Hx::Models::the().setApplication(&application);
    }
    ~RunningApplication() { Hx::Models::the().setApplication(nullptr); }
    Hx::Application application;
};

template <typename T>
SmartPtr<T> makeNode() {
    SmartPtr<T> node(new T);
    node->init(BaseNode::CREATE_NEW, nullptr);
    return node;
}

AttrValue progressOf(const Hx::AttrContainer& object) {
    return object.getAttribute(13)->getValue();
}

TEST(DataObjectStatics, AnswerForOneAttributeBetweenInitAndClear) {
    const SmartPtr<DerivedDataObj> object(new DerivedDataObj);
    const auto expectOwnAttribute = [&](bool there) {
        const String name = there ? String(L"ProcessingProgress") : String::NIL;
        EXPECT_EQ(DerivedDataObj::attrNames != nullptr, there);
        EXPECT_EQ(DerivedDataObj::attrDefMap != nullptr, there);
        EXPECT_EQ(object->getAttrToken(L"ProcessingProgress"), there ? 13U : 0xFFFFFFFFU);
        EXPECT_EQ(object->getAttrName(13), name);
        EXPECT_EQ(object->getAttrDefinition(13), there ? &DerivedDataObj::attrDefs[0] : nullptr);
        EXPECT_EQ(object->getAttrDefinition(14), nullptr);
        EXPECT_TRUE(object->getAttrName(14).isNull());
        EXPECT_EQ(object->getAttrToken(L"Name"), 1U);
        EXPECT_EQ(object->getAttrName(2), L"FilePath");
        EXPECT_EQ(object->getAttrDefinition(1)->name, L"Name");
    };
    for (const char* round : {"never set up", "cleared"}) {
        SCOPED_TRACE(round);
        expectOwnAttribute(false);
        VardexDataObj::Class()->initClassStatics();
        const auto* names = DerivedDataObj::attrNames;
        const auto* definitions = DerivedDataObj::attrDefMap;
        VardexDataObj::initStatics();
        EXPECT_EQ(DerivedDataObj::attrNames, names);
        EXPECT_EQ(DerivedDataObj::attrDefMap, definitions);
        EXPECT_EQ(definitions->size(), 1U);
        expectOwnAttribute(true);
        VardexDataObj::Class()->clearClassStatics();
        VardexDataObj::clearStatics();
    }
    const Hx::AttrDefinition(&definitions)[2] = DerivedDataObj::attrDefs;
    EXPECT_TRUE(definitions[0].usage == 0U && definitions[0].type == 16U);
    EXPECT_TRUE(definitions[1].usage == 54U && definitions[1].type == 1U);
    EXPECT_EQ(object->getProgressAttrToken(), 13U);
    EXPECT_EQ(object->getStateAttrToken(), 0xFFFFFFFFU);
}

TEST(DataObject, IsNamedAfterItsClassAndUnprocessedWhenNewAndNotWhenItIsACopy) {
    const auto original = makeNode<VardexDataObj>();
    EXPECT_EQ(original->getAttribute(13)->getOwner(), original.get());
    EXPECT_EQ(makeNode<DerivedDataObj>()->getName(), L"DerivedDataObj");
    const auto matrix = Tq_1_1::Mat4d<double>::translation({1, 2, 3});
    EXPECT_EQ(progressOf(*original), AttrValue(std::int32_t{-1}));
    original->setName(L"site", 0);
    original->getAttribute(13)->setValue(std::int32_t{40}, original.get());
    ASSERT_TRUE(original->setMatrix(matrix));
    for (const auto type :
         {BaseNode::CREATE_NEW, BaseNode::CREATE_COPY, BaseNode::CREATE_TEMPLATE}) {
        SCOPED_TRACE(type);
        const bool fresh = type == BaseNode::CREATE_TEMPLATE;
        const SmartPtr<Hx::AttrContainer> made = original->duplicate(type);
        const auto* copy = dynamic_cast<const VardexDataObj*>(made.get());
        ASSERT_TRUE(copy != nullptr && copy != original.get());
        EXPECT_EQ(copy->getName(), fresh ? L"VardexDataObj" : L"site");
        EXPECT_EQ(progressOf(*copy), AttrValue(std::int32_t{fresh ? -1 : 40}));
        EXPECT_EQ(copy->getMatrix() == matrix, !fresh);
    }
}

TEST(DataObject, SaysInJsonWhetherItLiesBelowAScan) {
    const auto object = makeNode<VardexDataObj>();
    const auto folder = makeNode<Hx::Transform>();
    const auto scan = makeNode<Hx::PtSetObject>();
    ASSERT_TRUE(folder->addChild(object));
    for (const bool below : {false, true}) {
        if (below) {
            ASSERT_TRUE(scan->addChild(folder));
        }
        EXPECT_EQ(object->isPointCloud(), below);
        EXPECT_EQ(object->isProcessed(), below);
        Json::Value expected = object->Transform::toJson();
        expected["IsPointCloud"] = false;
        expected["PointCloud"] = below;
        expected["IsProcessed"] = below;
        EXPECT_EQ(object->toJson(), expected);
    }
}

TEST(DataObject, HasTakenAndReleasedTheModelsWhenListenersHearOfAChange) {
    const auto object = makeNode<VardexDataObj>();
    const auto context = Hx::Models::the().context(0xFFFFFFFFFFFFFFFFULL);
    const auto references = context->referenceCount();
    const std::size_t taken = context->guardsTaken();
    int told = 0;
    const int listener = object->addListener([&](const auto& source) {
        ++told;
        EXPECT_EQ(source.get(), object.get());
        EXPECT_EQ(context->guardsTaken(), taken + 1);
        EXPECT_EQ(context->guardsReleased(), context->guardsTaken()) << "still held";
    });
    EXPECT_EQ(object->notify(object, object), Hx::Action::EXEC_DONE);
    EXPECT_TRUE(object->removeListener(listener));
    EXPECT_FALSE(object->removeListener(listener));
    EXPECT_EQ(object->notify(object, object), Hx::Action::EXEC_DONE);
    EXPECT_EQ(told, 1);
    EXPECT_EQ(context->referenceCount(), references);
    EXPECT_EQ(object->notify({}, {}), Hx::Action::EXEC_IGNORED);
}

Ovr::ErrorPtr readProjectByContent(const std::filesystem::path& file, Ovr::ProjectFile& /*project*/,
                                   Ovr::Remarks& remarks) {
    const std::string content = Support::TempFolder::read(file);
    if (content == "newer") {
        return Ovr::makeError(Ovr::Interfaces::ErrorCode::NewerVersion, {file, "", content, ""});
    }
    if (content == "unknown field") {
        remarks.warn(content);
    }
    return nullptr;
}

TEST(CreateFromImportedKpx, HandsAnObjectOutUnlessReadingFails) {
    const Support::TempFolder folder;
    const std::shared_ptr<void> reset(
        nullptr, [](void*) { Ovr::FormatRegistry::the().setProjectFormat({}); });
    Ovr::FormatRegistry::the().setProjectFormat({{}, {}, readProjectByContent});
    const auto fileOf = [](const std::filesystem::path& path) {
        return std::shared_ptr<Tq_1_1::File>(
            Tq_1_1::File::fromString(String::fromUtf8(path.string())));
    };
    struct Case {
        const char* name;
        std::shared_ptr<Tq_1_1::File> file;
        int result;
        bool handedOut;
    };
    for (const Case& c : {
             Case{"no file", nullptr, 171, false},
             Case{"missing", fileOf(folder.path() / "none.json"), 171, false},
             Case{"newer", fileOf(folder.write("b.json", "newer")), 15, false},
             Case{"good", fileOf(folder.write("d.json", "good")), 0, true},
             Case{"unknown field", fileOf(folder.write("e.json", "unknown field")), 5, true},
         }) {
        const auto before = makeNode<VardexDataObj>();
        SmartPtr<VardexDataObj> result = before;
        EXPECT_EQ(VardexDataObj::createFromImportedKpx(c.file, result), c.result) << c.name;
        EXPECT_EQ(result == before, !c.handedOut) << c.name;
        EXPECT_EQ(before->referenceCount(), c.handedOut ? 1 : 2) << c.name;
        ASSERT_TRUE(result) << c.name;
        EXPECT_EQ(result->isValid(), c.handedOut) << c.name;
        EXPECT_EQ(result->getName(), L"VardexDataObj") << c.name;
        EXPECT_EQ(progressOf(*result), AttrValue(std::int32_t{-1})) << c.name;
    }
}

TEST(CommandFilter, DeniesCommandsWhileADataObjectIsSelectedFirst) {
    const auto manager = std::make_shared<Hx::RestrictionManager>();
    const RunningApplication application(manager);
    manager->addDenialFunction(&application, [](const auto*, const auto*) { return false; });
    const auto object = makeNode<VardexDataObj>();
    const auto other = makeNode<Hx::RawScanFileObject>();
    const Hx::StateContext selected({object}), first({object, other}), second({other, object});
    const Hx::StateContext derived({makeNode<DerivedDataObj>()}), nothing;
    const Hx::Command command(L"Plane:Create");
    EXPECT_TRUE(manager->isDenied(&command, &selected));
    EXPECT_TRUE(manager->isDenied(&command, &first));
    for (const Hx::StateContext* state : {&second, &derived, &nothing}) {
        EXPECT_FALSE(manager->isDenied(&command, state));
    }
    EXPECT_FALSE(manager->isDenied(&command, nullptr));
    EXPECT_FALSE(manager->isDenied(nullptr, &selected));
    EXPECT_EQ(VardexDataObj::forbiddenCommands.size(), 13U);
}

TEST(CommandFilter, IsRegisteredByEveryObjectUnderOneKey) {
    const auto manager = std::make_shared<Hx::RestrictionManager>();
    const void* const key = VardexDataObj::commandFilterKey.get();
    {
        const RunningApplication application(manager);
        const auto first = makeNode<VardexDataObj>();
        EXPECT_EQ(manager->getRegistrationCount(key), 1U);
        const auto created = VardexDataObj::Class();
        static_cast<const VardexDataObj::ClassCreator*>(created)->create();
        EXPECT_EQ(manager->getRegistrationCount(key), 2U);
        first->duplicate(BaseNode::CREATE_COPY);
    }
    EXPECT_EQ(manager->getRegistrationCount(key), 3U);
    EXPECT_EQ(manager.use_count(), 1);

    EXPECT_TRUE(makeNode<VardexDataObj>());
    const RunningApplication unrestricted(nullptr);
    EXPECT_TRUE(makeNode<VardexDataObj>());
    EXPECT_EQ(manager->getRegistrationCount(key), 3U);
}

}  // namespace
}  // namespace Vardex
