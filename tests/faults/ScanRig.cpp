// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "faults/ScanRig.h"

#include <gtest/gtest.h>

#include <future>
#include <sstream>

#include "Hx/Models.h"
#include "Hx/PointSetIntegration.h"
#include "Hx/RestrictionManager.h"
#include "RegisterFormats.h"
#include "support/LasBytes.h"
#include "support/TempFolder.h"

namespace Vardex::Testing {

namespace {

const Support::TempFolder& filesFolder() {
    static const Support::TempFolder folder;
    return folder;
}

std::string walkBytes() {
    Support::LasBytes las;
    las.format = 3;
    las.system = "a model with a long name";
    las.software = "a program with a long name";
    for (int i = 0; i < 6; ++i) {
        las.points.push_back({{100 * i, -i, 7},
                              static_cast<std::uint16_t>(1000 * i),
                              100.0 + (i * 7 % 6) * 0.5,
                              {0, 256, 65535}});
    }
    return las.bytes();
}

/// The host's application, with a restriction manager.
Hx::RestrictionManager& restrictions() {
    static const auto manager = std::make_shared<Hx::RestrictionManager>();
    static Hx::Application application;
    application.setRestrictionManager(manager);
    Hx::Models::the().setApplication(&application);
    return *manager;
}

Hx::ModelContext& models() {
    return *Hx::Models::the().context(Hx::ModelContext::ALL_MODELS);
}

std::string pointsOf(const CorvinPointSet& set) {
    std::ostringstream text;
    text.precision(9);
    for (std::uint64_t i = 0; i < set.getNumPoints(); ++i) {
        const auto& point = set.getScanPt(i);
        text << point.x << ' ' << point.y << ' ' << point.z << ' ' << set.getReflection(i);
        for (std::size_t channel = 0; channel < 4; ++channel) {
            text << ' ' << int{set.getColor(i)[channel]};
        }
        text << '\n';
    }
    return text.str();
}

void addMetaData(const std::string& name, const Ovr::VardexLib::CorvinMetaData& record,
                 Answers& answers) {
    answers[name + " model"] = record.ScannerModel();
    answers[name + " serial number"] = record.ScannerSerialNumber();
    answers[name + " firmware"] = record.ScannerFirmwareVersion();
    answers[name + " software"] = record.ProcessingSoftwareVersion();
    answers[name + " vendor"] = record.ScannerVendor();
    answers[name + " recording time"] = std::to_string(record.RecordingTime());
    answers[name + " session"] = record.RecordingSessionID();
}

void addAnswers(const std::string& name, const CorvinPointSet& set, Answers& answers) {
    const auto& scanData = dynamic_cast<const Ovr::VardexLib::CorvinScanData&>(set.getIScanData());
    answers[name + " size"] =
        std::to_string(set.getNumRows()) + 'x' + std::to_string(set.getNumCols());
    answers[name + " valid"] = set.hasValidData() ? "yes" : "no";
    answers[name + " record size"] = std::to_string(set.getRecordSize());
    answers[name + " points"] = pointsOf(set);
    answers[name + " id"] = set.getId().toUtf8();
    answers[name + " file"] = set.getFileInfo().path.toUtf8();
    answers[name + " info"] = set.isModifiedInfo() ? "modified" : "";
    addMetaData(name, *scanData.getMetaData(), answers);
    addMetaData("cached " + name, set.getCachedMetaData(), answers);
    answers[name + " reflections"] = std::to_string(set.getMaxReflection());
    answers[name + " distances"] = set.getDistStat() != nullptr ? "known" : "";
}

}  // namespace

const ScanFiles& ScanFiles::the() {
    static const ScanFiles files = [] {
        Ovr::Formats::registerFormats();
        Hx::setLastErrorMessage("long enough to take the memory that later messages take");
        const Support::TempFolder& folder = filesFolder();
        const std::string stance =
            "1\n2\n1 2 3\n1 0 0\n0 1 0\n0 0 1\n1 0 0 0\n0 1 0 0\n0 0 1 0\n1 2 3 1\n"
            "1 2 3 0.5\n4 5 6 1\n";
        std::string path = "# a path\n";
        for (const char* pose : {"100 0", "101 1", "101.5 1", "102.5 3"}) {
            path += std::string(pose) + " 2 3 0 0 0 1\n";
        }
        return ScanFiles{
            folder.write("the-walk-through-the-hall.las", walkBytes()),
            folder.write("hall-with-two-stances.ptx", stance + stance),
            folder.write("the-walk-through-the-hall.txt", path),
            folder.write("project-of-the-hall.json",
                         R"({"version": 1, "scans": [{"kind": "stance", "name": "a place",)"
                         R"( "points": "hall-with-two-stances.ptx", "index": 1, "new": 1}]})"),
            folder.path()};
    }();
    return files;
}

ScanRig::ScanRig() {
    ScanFiles::the();
    restrictions();
    walk->getIntegration()->addModificationListener(this);
    hall->getIntegration()->addModificationListener(this);
    VardexDataObj::Class()->initClassStatics();
    container = Tq_1_1::SmartPtr<Hx::PtSetObject>(new Hx::PtSetObject);
    container->init(Tq_1_1::BaseNode::CREATE_NEW, nullptr);
    EXPECT_TRUE(container->setPointSet(walk));
    object = Tq_1_1::SmartPtr<VardexDataObj>(new VardexDataObj);
    object->init(Tq_1_1::BaseNode::CREATE_NEW, nullptr);
}

ScanRig::~ScanRig() {
    removeFilter();
    VardexDataObj::Class()->clearClassStatics();
}

void ScanRig::removeFilter() {
    restrictions().removeDenialFunction(VardexDataObj::commandFilterKey.get());
}

int ScanRig::import(Hx::OvrPointSet& set, const std::filesystem::path& file) {
    Hx::FileInfo info;
    info.path = Tq_1_1::String::fromUtf8(file.string());
    Hx::AllocMain guard(true, nullptr);
    return set.import(info, guard);
}

void ScanRig::importWalk(bool withTimes) {
    ASSERT_EQ(import(*walk, ScanFiles::the().las), 0);
    ASSERT_EQ(withTimes ? walk->loadScanPtTimes() : 0, 0);
}

Answers ScanRig::answers() const {
    Answers answers;
    addAnswers("walk", *walk, answers);
    addAnswers("hall", *hall, answers);
    std::ostringstream times;
    for (std::uint64_t i = 0; i < walk->getNumPoints(); ++i) {
        double seconds = 0.0;
        walk->getScanPtTime(0, static_cast<int>(i), seconds);
        times << seconds << ' ';
    }
    answers["times"] = times.str();
    answers["times enabled"] = walk->areTimeStampsEnabled() ? "yes" : "no";
    answers["duration"] = std::to_string(walk->getMaxScanPointTime());
    answers["nodes"] = std::to_string(walk->getMobileScanData().getTrajectoryNodes().size());
    answers["pose"] = std::to_string(hall->getSlamPose()(0, 3));
    const void* const key = VardexDataObj::commandFilterKey.get();
    answers["filter"] = restrictions().getRegistrationCount(key) != 0 ? "registered" : "";
    answers["object"] = object->getName().toUtf8() + object->getFilePath().toUtf8();
    answers["attribute"] = std::to_string(object->getAttrToken(L"ProcessingProgress"));
    answers["depth"] = std::to_string(context->depth);
    answers["result"] = result;
    return answers;
}

void ScanRig::expectFree() const {
    const auto isFree = [](const Hx::OvrPointSet& set) {
        Ovr::Interfaces::IScanIntegration& integration = set.getIScanIntegration();
        const auto lock = integration.getPointDataWriteLock(0);
        return lock != nullptr && integration.getPointDataExclusiveAccess(*lock) != nullptr;
    };
    EXPECT_TRUE(
        std::async(std::launch::async, [&] { return isFree(*walk) && isFree(*hall); }).get())
        << "a lock is held";
    EXPECT_EQ(scopes_, 0) << "a scope is open";
    EXPECT_EQ(models().guardsTaken(), models().guardsReleased()) << "a guard is held";
}

}  // namespace Vardex::Testing
