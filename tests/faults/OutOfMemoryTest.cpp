// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <json/value.h>

#include <sstream>

#include "Hx/IOMessages.h"
#include "Ovr/FormatRegistry.h"
#include "Tq/File.h"

#include "faults/ScanRig.h"
#include "module/RegisteredFunctions.h"
#include "ptx/PtxReader.h"
#include "stance/ScanPolarCreators.h"

namespace Vardex::Testing {
namespace {

using Tq_1_1::SmartPtr;
using Tq_1_1::String;
using Row = Operation<ScanRig>;

const ScanFiles& files() {
    return ScanFiles::the();
}

void withPoints(ScanRig& rig) {
    rig.importWalk(false);
}
void withTimes(ScanRig& rig) {
    rig.importWalk(true);
}
/// The path is known and not yet read.
void withPath(ScanRig& rig) {
    rig.importWalk(false);
    rig.walk->setMaxScanPointTime(2.5);
}

void run(const std::vector<Row>& rows) {
    std::size_t failed = 0;
    for (const Row& row : rows) {
        failed += Sweep(row).run();
    }
    testing::Test::RecordProperty("operations", static_cast<int>(rows.size()));
    testing::Test::RecordProperty("allocations_failed", static_cast<int>(failed));
}

/// What a failed import may leave of the points: none, or all when the failure came after them. It
/// fills the metadata one by one.
std::vector<Change> importChanges(const std::string& set) {
    std::vector<Change> changes = {{set + " size", "0x0"}, {set + " valid", "no"},
                                   {set + " points", ""},  {set + " record size", "18"},
                                   {"times", ""},          {"times", kAsDone},
                                   {"pose", kAsDone}};
    for (const char* what : {" size", " valid", " record size", " points", " id", " file", " model",
                             " software", " reflections", " distances"}) {
        changes.push_back({set + what, kAsDone});
    }
    changes.push_back({"cached " + set + " model", kAsDone});
    changes.push_back({"cached " + set + " software", kAsDone});
    return changes;
}

template <typename Set>
Row making(const char* name) {
    return {name,
            [](ScanRig& rig) { rig.result = Set(L"a set with a long name").getName().toUtf8(); }};
}

TEST(OutOfMemory, MakingAndSizing) {
    run({
        making<CorvinMobilePointSet>("mobile set"),
        making<CorvinStancePointSet>("stance"),
        {"new mobile set like another",
         [](ScanRig& rig) {
             const auto made = rig.walk->createNewPointSet(3, 4, L"a set with a long name");
             succeed(made != nullptr);
             rig.result = std::to_string(made->getNumPoints());
         }},
        {"new stance like another",
         [](ScanRig& rig) {
             const auto made = rig.hall->createNewPointSet(3, 4, L"a set with a long name");
             succeed(made != nullptr);
             rig.result = std::to_string(made->getNumPoints());
         }},
        {"resize",
         [](ScanRig& rig) { succeed(rig.hall->resize(5, 6)); },
         {},
         {{"hall record size", "18"}}},
        {"resize to more",
         [](ScanRig& rig) { succeed(rig.walk->resize(7, 8)); },
         withPoints,
         {{"walk record size", "18"}, {"walk valid", "no"}, {"walk points", ""}, {"times", ""}}},
        {"resize to fewer",
         [](ScanRig& rig) { succeed(rig.walk->resizePointStorage(1, 2, true, true)); },
         [](ScanRig& rig) {
             withPoints(rig);
             ASSERT_EQ(rig.walk->enableTimeStamps(false), 0);
             rig.walk->setValidData(false);
         },
         {{"walk record size", "18"}}},
        {"enable times",
         [](ScanRig& rig) { succeed(rig.walk->enableTimeStamps(true) == 0); },
         withPoints,
         {{"times enabled", kAsDone}}},
        {"set times",
         [](ScanRig& rig) {
             succeed(rig.walk->resizeScanPtTimes(1, 6));
             rig.walk->setScanPtTime(0, 3, 1.5);
         },
         [](ScanRig& rig) {
             withPoints(rig);
             ASSERT_EQ(rig.walk->enableTimeStamps(true), 0);
         }},
        {"sort", [](ScanRig& rig) { rig.walk->sortScanPointsByTime(rig.walk->lockPoints(1000)); },
         withTimes},
    });
}

Row importing(const char* name, bool mobile, const std::filesystem::path& file) {
    return {name,
            [=](ScanRig& rig) {
                Hx::OvrPointSet& set =
                    mobile ? static_cast<Hx::OvrPointSet&>(*rig.walk) : *rig.hall;
                succeed(ScanRig::import(set, file) == 0);
            },
            {},
            importChanges(mobile ? "walk" : "hall")};
}

/// Line by line, so that the few lines there are keep several threads busy.
void readOnThreads(ScanRig& rig) {
    Ovr::ScanSource source;
    source.file = files().ptx;
    Ovr::Interfaces::IScanIntegration& hall = rig.hall->getIScanIntegration();
    const auto lock = hall.getPointDataWriteLock(0);
    Ovr::Remarks remarks;
    Ovr::StatisticsReport statistics;
    try {
        succeed(Ovr::Formats::makePtxReader(source, {.threads = 2, .blockSize = 8})
                    ->loadPoints({hall, nullptr, 2, {}, remarks}, statistics) == nullptr);
    } catch (const std::bad_alloc&) {
        hall.setNewSize(0, 0, false, false);  // as scan data do
        throw;
    }
}

TEST(OutOfMemory, Reading) {
    const std::vector<Change> timesMayChange = {{"times enabled", kAsDone},
                                                {"walk record size", kAsDone},
                                                {"times", kAsDone},
                                                {"duration", kAsDone},
                                                {"nodes", kAsDone}};
    run({
        importing("import LAS", true, files().las),
        importing("import PTX", false, files().ptx),
        {"read PTX on threads", readOnThreads, {}, importChanges("hall")},
        {"import again",
         [](ScanRig& rig) { succeed(ScanRig::import(*rig.walk, files().las) == 0); }, withPoints,
         importChanges("walk")},
        {"load times", [](ScanRig& rig) { succeed(rig.walk->loadScanPtTimes() == 0); }, withPoints,
         timesMayChange},
        {"load times again", [](ScanRig& rig) { succeed(rig.walk->loadScanPtTimes() == 0); },
         withTimes},
        {"unload times",
         [](ScanRig& rig) { succeed(rig.walk->unloadScanPtTimes() == 0); },
         withTimes,
         {{"times", kAsDone}}},
        {"list scans",
         [](ScanRig& rig) {
             std::vector<Ovr::ScanListing> scans;
             succeed(Ovr::listScans(files().ptx, scans) == nullptr);
             rig.result = std::to_string(scans.size()) + scans.back().name;
         }},
        {"read project",
         [](ScanRig& rig) {
             Ovr::ProjectFile project;
             succeed(Ovr::FormatRegistry::the().readProject(files().project, project) == nullptr);
             rig.result = project.scans.at(0).name + project.warnings.at(0);
         }},
        {"read trajectory",
         [](ScanRig& rig) {
             std::vector<Ovr::VardexLib::TrajectoryNode> nodes;
             Ovr::Remarks remarks;
             succeed(Ovr::FormatRegistry::the().readTrajectory(files().trajectory, nullptr, nodes,
                                                               remarks) == nullptr);
             rig.result = std::to_string(nodes.size());
         }},
    });
}

TEST(OutOfMemory, TrajectoryAndOutput) {
    // A question reads the path and keeps it also when it fails later.
    const std::vector<Change> keepsNodes = {{"nodes", kAsDone}};
    const auto stretch = [](ScanRig& rig) {
        double begin = 0.0;
        double end = 0.0;
        succeed(rig.walk->getTrajectoryFractionAtPoint(
            {1, 2, 3}, [](const auto& p) { return p.x < 2.0; }, begin, end));
        rig.result = std::to_string(begin) + ' ' + std::to_string(end);
    };
    const auto position = [](ScanRig& rig) {
        const auto found = rig.walk->getRecordingPositionForTime(2.5);
        succeed(found.has_value());
        rig.result = std::to_string(found->x);
    };
    run({
        {"set nodes",
         [](ScanRig& rig) {
             rig.walk->setTrajectoryNodes({std::make_shared<TrajectoryNode>(), nullptr});
         }},
        {"selected path",
         [](ScanRig& rig) {
             const auto path = rig.walk->getSelectedTrajectory(Hx::PC2TimeFilter(0.0, 1.0));
             succeed(!path.empty());
             rig.result = std::to_string(path.size());
         },
         withPath, keepsNodes},
        {"stretch around a point", stretch, withPath, keepsNodes},
        {"bins", position, withPath, keepsNodes},
        {"bins of nodes that are there", position, withTimes},
        {"text export",
         [](ScanRig& rig) {
             std::ostringstream out;
             succeed(rig.walk->writeTrajectoryToStream(out) == 0);
             rig.result = out.str();
         },
         withPath},
        {"identifier in the project output",
         [](ScanRig& rig) {
             std::ostringstream out;
             succeed(rig.walk->writeScanDataId(out, rig.context) == 0 && out.good());
             rig.result = out.str();
         },
         withPoints},
    });
}

TEST(OutOfMemory, MetadataAndPolarValues) {
    const String text = L"a text with many letters";
    Hx::Uuid id;
    ASSERT_TRUE(id.fromStr(L"01234567-89ab-cdef-0123-456789abcdef"));
    std::vector<Row> rows;
    using Setter = void (CorvinPointSet::*)(const String&);
    for (const Setter set :
         {&CorvinPointSet::setScannerModel, &CorvinPointSet::setScannerSerialNo,
          &CorvinPointSet::setScannerFirmware, &CorvinPointSet::setScannerSoftware,
          &CorvinPointSet::setScannerVendor}) {
        rows.push_back({"metadata text",
                        [=](ScanRig& rig) { ((*rig.walk).*set)(text); },
                        {},
                        {{"walk info", kAsDone}}});
    }
    rows.push_back({"session",
                    [=](ScanRig& rig) { rig.hall->setRecordingSessionId(id); },
                    {},
                    {{"hall info", kAsDone}}});
    rows.push_back({"metadata out",
                    [](ScanRig& rig) {
                        const auto time = rig.walk->getScanRecordingTime();
                        const Hx::Uuid session = rig.walk->getRecordingSessionId();
                        rig.result = session == Hx::Uuid() || !time ? "something" : "everything";
                    },
                    [=](ScanRig& rig) {
                        rig.walk->setRecordingSessionId(id);
                        rig.walk->setRecordingTime(5.0);
                    }});
    rows.push_back({"polar values", [](ScanRig& rig) {
                        const auto polar = createScanPolarFromCartesian<double>({0.0, -2.0, 0.0});
                        const auto copy = createScanPolarCopy<double>(*polar);
                        const auto single = copy->clone()->toFloat();
                        rig.result =
                            std::to_string(single->toDouble()->x + createScanPolar<float>()->x);
                    }});
    rows.push_back({"registered functions", [](ScanRig& rig) {
                        rig.result = slamScanSettingsId(rig.walk.get()).toUtf8();
                        succeed(scanPointTimesOf(rig.walk) != nullptr);
                    }});
    run(rows);
}

TEST(OutOfMemory, DataObject) {
    run({
        {"made by its class",
         [](ScanRig& rig) {
             const auto* type =
                 static_cast<const VardexDataObj::ClassCreator*>(VardexDataObj::Class());
             const auto made = type->create();
             auto& object = dynamic_cast<VardexDataObj&>(*made);
             object.init(Tq_1_1::BaseNode::CREATE_NEW, nullptr);
             rig.result = object.getName().toUtf8();
         },
         [](ScanRig&) { ScanRig::removeFilter(); },
         {{"filter", kAsDone}}},
        {"made from a project",
         [](ScanRig& rig) {
             const std::shared_ptr<Tq_1_1::File> file =
                 Tq_1_1::File::fromString(String::fromUtf8(files().project.string()));
             succeed(VardexDataObj::createFromImportedKpx(file, rig.object) ==
                     Hx::IOMessages::IO_UNKNOWN_FIELDS);
         }},
        {"duplicate",
         [](ScanRig& rig) {
             const SmartPtr<Hx::AttrContainer> copy =
                 rig.object->duplicate(Tq_1_1::BaseNode::CREATE_COPY);
             rig.result = dynamic_cast<VardexDataObj&>(*copy).getName().toUtf8();
         }},
        {"JSON form",
         [](ScanRig& rig) {
             std::string form;
             for (const std::string& key : rig.object->toJson().getMemberNames()) {
                 form += key + ' ';
             }
             rig.result = form;
         }},
        {"notification",
         [](ScanRig& rig) {
             succeed(rig.object->notify(rig.object, rig.object) == Hx::Action::EXEC_DONE);
         }},
        {"class tables",
         [](ScanRig&) { VardexDataObj::Class()->initClassStatics(); },
         [](ScanRig&) { VardexDataObj::Class()->clearClassStatics(); },
         {{"attribute", kAsDone}}},
    });
}

}  // namespace
}  // namespace Vardex::Testing
