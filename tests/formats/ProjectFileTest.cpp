// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <array>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "Hx/ErrorConversion.h"
#include "Hx/PtSetObject.h"
#include "Hx/RawScanFileObject.h"
#include "Ovr/FormatRegistry.h"
#include "support/ExpectError.h"
#include "support/TempFolder.h"

namespace Ovr::Formats {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

const std::string kPtxScan =
    "1\n1\n0 0 0\n1 0 0\n0 1 0\n0 0 1\n1 0 0 0\n0 1 0 0\n0 0 1 0\n0 0 0 1\n1 2 3 0.5\n";
const std::string kStance = R"("kind": "stance", "name": "A", "points": "hall.ptx")";
const std::string kMobile = R"("kind": "mobile", "name": "A", "points": "walk.las")";

/// A folder with points, a trajectory and a project file.
class ProjectFolder {
  public:
    ProjectFolder() {
        std::filesystem::create_directory(folder_.path() / "sub");
        folder_.write("hall.ptx", kPtxScan + kPtxScan);
        folder_.write("walk.txt", "0 0 0 0 0 0 0 1\n");
        folder_.write("walk.las", "x");
        folder_.write("sub/w\xc3\xa4lk.LAS", "x");
        folder_.write("broken.ptx", "no header\n");
    }

    std::filesystem::path write(const std::string& text) const {
        return folder_.write("site.json", text);
    }
    std::filesystem::path writeScans(const std::string& scans) const {
        return write("{\"version\": 1, \"scans\": [" + scans + "]}");
    }
    std::filesystem::path path(const std::string& name) const { return folder_.path() / name; }

  private:
    Support::TempFolder folder_;
};

ErrorPtr read(const std::filesystem::path& file, ProjectFile& project) {
    return FormatRegistry::the().readProject(file, project);
}

TEST(ProjectFile, GivesWhatItSaysOfAScan) {
    const ProjectFolder folder;
    const auto file = folder.writeScans(R"({
        "kind": "mobile", "name": "Walk \u00e4", "points": "sub/w\u00e4lk.LAS",
        "trajectory": "./sub/../walk.txt", "clock": {"unit": "us", "offset": -0.5},
        "scannerModel": "Corvin 2", "serialNumber": "00417", "firmware": "3.4", "software": "1.9",
        "vendor": "V", "recordingTime": 1718000000.25,
        "sessionId": "{01234567-89AB-cdef-0123-456789abcdef}"
      }, {
        "kind": "stance", "name": "Hall", "points": "hall.ptx", "index": 1,
        "slamPose": [0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1e0, 0, 12.5, -3, 1.5e-1, 1]
      })");
    ProjectFile project;
    const ErrorPtr error = read(file, project);
    ASSERT_EQ(error, nullptr) << error->message();
    EXPECT_EQ(project.file, file);
    EXPECT_TRUE(project.warnings.empty());
    ASSERT_EQ(project.scans.size(), 2U);

    const ProjectScan& walk = project.scans[0];
    EXPECT_EQ(walk.name, "Walk \xc3\xa4");
    EXPECT_EQ(*walk.scannerModel + *walk.serialNumber + *walk.firmware, "Corvin 2004173.4");
    EXPECT_EQ(*walk.software + *walk.vendor, "1.9V");
    EXPECT_EQ(walk.recordingTime, 1718000000.25);
    ASSERT_TRUE(walk.sessionId);
    EXPECT_EQ(walk.sessionId->string(), "01234567-89ab-cdef-0123-456789abcdef");
    const auto shared = std::make_shared<ScanProject>();
    const ScanListing listing = walk.listing(shared);
    EXPECT_EQ(listing.name, walk.name);
    EXPECT_TRUE(
        std::filesystem::equivalent(listing.source.file, folder.path("sub/w\xc3\xa4lk.LAS")));
    EXPECT_TRUE(std::filesystem::equivalent(*listing.source.trajectory, folder.path("walk.txt")));
    EXPECT_EQ(listing.source.clock.unit, TimeUnit::Microseconds);
    EXPECT_EQ(listing.source.clock.offset, -0.5);
    EXPECT_EQ(listing.source.project, shared);

    const ScanListing hall = project.scans[1].listing(nullptr);
    EXPECT_NE(hall.classIdentifier, listing.classIdentifier);
    EXPECT_EQ(hall.source.scanIndex, 1U);
    EXPECT_EQ(hall.source.byteOffset, kPtxScan.size());
    EXPECT_EQ(hall.source.line, 12U);
    EXPECT_EQ(project.scans[1].slamPose,
              (std::array<double, 16>{0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 12.5, -3, 0.15, 1}));
}

// Through the object tree: nothing changes unless everything was read.

template <typename T>
Tq_1_1::SmartPtr<T> makeNode() {
    Tq_1_1::SmartPtr<T> node(new T);
    node->init(Tq_1_1::BaseNode::CREATE_NEW, nullptr);
    return node;
}

std::unique_ptr<Tq_1_1::File> asFile(const std::filesystem::path& path) {
    return Tq_1_1::File::fromString(Tq_1_1::String::fromUtf8(path.string()));
}

TEST(FillFrom, ChangesNothingWhenItFails) {
    const ProjectFolder folder;
    const auto scan = makeNode<Hx::PtSetObject>();
    const auto object = makeNode<Hx::RawScanFileObject>();
    const auto old = folder.writeScans("{" + kStance + "}");
    ASSERT_EQ(object->fillFrom(*asFile(old), nullptr), Hx::IOMessages::IO_OK);
    const auto project = object->getProject();
    const auto broken = folder.path("broken.ptx");
    EXPECT_EQ(object->fillFrom(*asFile(broken), scan.get()), Hx::IOMessages::IO_WRONG_FORMAT);
    EXPECT_THAT(Hx::lastErrorMessage(), StartsWith(broken.string() + ": line 1, column 1"));

    const auto other = makeNode<Hx::Object>();
    ASSERT_TRUE(other->addChild(object));
    EXPECT_EQ(object->fillFrom(*asFile(old), scan.get()), Hx::IOMessages::IO_ERROR);
    EXPECT_THAT(Hx::lastErrorMessage(), HasSubstr("another scan"));

    EXPECT_EQ(object->getProject(), project);
    EXPECT_EQ(object->getFilePath().toUtf8(), old.string());
    EXPECT_EQ(object->getParent(), other.get());
    EXPECT_TRUE(scan->getChildren().empty());
}

}  // namespace
}  // namespace Ovr::Formats
