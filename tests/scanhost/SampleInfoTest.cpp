// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <string>
#include <vector>

#include <png.h>

#include "Program.h"

namespace ScanHost::Tests {
namespace {

// The sample: room A is x 0..6, y 0..5, room B x 6.2..11, y 0..5, both z 0..2.8, in a house whose
// corner is at (431200, 5412300, 312).
class SampleInfo : public testing::Test {
  protected:
    void SetUp() override { ASSERT_EQ(run({"sample", folder_.file("")}).exitCode, 0); }

    std::string file(const std::string& name) const { return folder_.file(name); }

    Folder folder_;
};

void expectNumbers(const Json::Value& actual, const std::vector<double>& expected, double tolerance,
                   const std::string& name) {
    ASSERT_EQ(actual.size(), expected.size()) << name;
    for (Json::ArrayIndex i = 0; i < actual.size(); ++i) {
        EXPECT_NEAR(actual[i].asDouble(), expected[i], tolerance) << name << ", number " << i;
    }
}

TEST_F(SampleInfo, ProjectTellsWhatItsScansHold) {
    const Json::Value document = runJson({"info", file("project.json")});
    EXPECT_EQ(document["module"]["version"], "13.2.0.14634");
    expectNumbers(document["origin"], {431200, 5412300, 300}, 0.0, "origin");
    EXPECT_EQ(document["warnings"].size(), 0U) << document["warnings"];
    struct Case {
        const char* name;
        const char* type;
        int rows;
        double smallestDuration;
        const char* settingsId;
        bool spherical;
        double recorded;
    };
    Json::ArrayIndex i = 0;
    for (const Case& c : {
             Case{"Room A", "CorvinStancePointSet", 73, 0, "GenericScan", true, 1778464182},
             Case{"Room B", "CorvinStancePointSet", 73, 0, "GenericScan", true, 1778464482},
             Case{"Walk through both rooms", "CorvinMobilePointSet", 1, 32, "SlamScan", false,
                  1778464782},
         }) {
        const Json::Value& scan = document["scans"][i++];
        EXPECT_EQ(scan["name"], c.name);
        EXPECT_EQ(scan["class"], c.type) << c.name;
        EXPECT_EQ(scan["rows"], c.rows) << c.name;
        EXPECT_EQ(scan["cells"], c.rows == 1 ? scan["points"].asInt() : 73 * 180) << c.name;
        EXPECT_EQ(scan["cellsWithoutReturn"].asInt() + scan["points"].asInt(),
                  scan["cells"].asInt())
            << c.name;
        EXPECT_EQ(scan["record"]["layout"], "WithReflection") << c.name;
        EXPECT_EQ(scan["record"]["bytesPerPoint"], 20) << c.name;
        EXPECT_EQ(scan["settingsId"], c.settingsId) << c.name;
        EXPECT_EQ(scan["reliableSphericalEstimation"], c.spherical) << c.name;
        EXPECT_EQ(scan["hasPointTimes"], !c.spherical) << c.name;
        EXPECT_EQ(scan["recordingTime"], c.recorded) << c.name;
        EXPECT_EQ(scan["serialNumber"], "SIM-0001") << c.name;
        EXPECT_EQ(scan["sessionId"], "6d1f0c52-7a0e-4c6b-9d7e-2f6f4c1a9b30") << c.name;
        // Both stances see the whole house through the door, to the file's six decimals.
        expectNumbers(scan["bounds"]["min"], {431200, 5412300, 312}, 1e-5, c.name);
        expectNumbers(scan["bounds"]["max"], {431211, 5412305, 314.8}, 1e-5, c.name);
        EXPECT_EQ(scan["color"]["points"], scan["points"]) << c.name;
    }
    const Json::Value& walk = document["scans"][2];
    EXPECT_EQ(walk["trajectory"]["nodes"], 641);
    EXPECT_EQ(walk["times"]["duration"], 32.0);
    EXPECT_NEAR(walk["times"]["first"].asDouble(), 0.0008, 1e-9);
    EXPECT_NEAR(walk["times"]["last"].asDouble(), 31.9992, 1e-9);
}

TEST_F(SampleInfo, ProjectObjectShowsItsFormAndWritesTheProjectOutput) {
    const Json::Value document =
        runJson({"info", file("project.json"), "--project-output", file("output.txt")});
    const Json::Value& project = document["projects"][0];
    EXPECT_EQ(project["class"], "VardexDataObj");
    EXPECT_EQ(project["attributes"]["ProcessingProgress"], -1);
    for (const char* key : {"IsPointCloud", "PointCloud", "IsProcessed"}) {
        EXPECT_TRUE(project["json"][key].isBool()) << key;
        EXPECT_FALSE(project["json"][key].asBool()) << key;
    }
    const std::string output = readFile(file("output.txt"));
    for (const char* line : {"Name = \"Room A\"\n", "Vardex.CorvinStanceScan = \"room-b.ptx\"\n",
                             "Vardex.CorvinMobileScan = \"walk.las\"\n"}) {
        EXPECT_NE(output.find(line), std::string::npos) << line << output;
    }
}

TEST_F(SampleInfo, CommandsAreRefusedWhileTheProjectIsSelected) {
    const Json::Value all = runJson({"commands", file("project.json")})["commands"];
    int refused = 0;
    for (const Json::Value& command : all) {
        refused += command["allowed"].asBool() ? 0 : 1;
    }
    EXPECT_EQ(refused, 13);
    const Json::Value two =
        runJson({"commands", file("project.json"), "Object:Properties", "Object:Rename"});
    EXPECT_EQ(two["commands"][0]["allowed"], false);
    EXPECT_EQ(two["commands"][1]["allowed"], true);
}

TEST_F(SampleInfo, PointOfAStanceLiesOnTheWallInItsDirection) {
    // Column 135 looks 270 degrees to the right of the scanner, row 30 level.
    const Json::Value point = runJson({"point", file("room-a.ptx"), "--row", "30", "--col", "135"});
    EXPECT_EQ(point["index"], 30 * 180 + 135);
    // The scanner's y axis in the house, from (2.3, 2.1, 1.5) to the wall y = 5.
    const double heading = 0.07 * 2 * M_PI;
    const double distance = 2.9 / std::cos(heading);
    EXPECT_NEAR(point["distance"].asDouble(), distance, 1e-5);
    expectNumbers(point["position"], {0, distance, 0}, 1e-5, "position");
    expectNumbers(point["world"], {431202.3 - distance * std::sin(heading), 5412305, 313.5}, 1e-5,
                  "world");
    EXPECT_NEAR(point["polar"]["horizontal"].asDouble(), 3 * M_PI / 2, 1e-6);
    EXPECT_NEAR(point["polar"]["vertical"].asDouble(), 0, 1e-6);
    EXPECT_NEAR(point["polarUnified"]["horizontal"].asDouble(), M_PI / 2, 1e-6);
    EXPECT_NEAR(point["polarUnified"]["vertical"].asDouble(), M_PI / 2, 1e-6);
    const Json::Value same = runJson({"point", file("room-a.ptx"), "--index", "5535"});
    EXPECT_EQ(same["world"], point["world"]);
    EXPECT_EQ(same["column"], 135);
    // Column 45 looks through the window.
    EXPECT_EQ(runJson({"point", file("room-a.ptx"), "--row", "30", "--col", "45"})["hasReturn"],
              false);
}

struct Pixels {
    png_image image{};
    std::vector<std::array<unsigned char, 3>> values;

    explicit Pixels(const std::string& file) {
        image.version = PNG_IMAGE_VERSION;
        EXPECT_NE(png_image_begin_read_from_file(&image, file.c_str()), 0) << image.message;
        image.format = PNG_FORMAT_RGB;
        values.resize(std::size_t{image.width} * image.height);
        EXPECT_NE(png_image_finish_read(&image, nullptr, values.data(), 0, nullptr), 0);
    }
    const auto& at(std::size_t x, std::size_t y) const { return values[y * image.width + x]; }
};

TEST_F(SampleInfo, PicturesShowTheRooms) {
    const Json::Value document =
        runJson({"info", file("project.json"), "--picture", file("house.png")});
    ASSERT_EQ(document["pictures"].size(), 3U);
    const Pixels panorama(file("house-panorama-1.png"));
    ASSERT_EQ(panorama.image.width, 900U);
    ASSERT_EQ(panorama.image.height, 73U * 5);
    const auto empty = std::count(panorama.values.begin(), panorama.values.end(),
                                  std::array<unsigned char, 3>{255, 0, 255});
    EXPECT_EQ(empty, document["scans"][0]["cellsWithoutReturn"].asInt() * 25);
    EXPECT_EQ(panorama.at(450, 0), (std::array<unsigned char, 3>{238, 236, 230})) << "ceiling";
    EXPECT_GT(panorama.at(450, 364)[0], panorama.at(450, 364)[2]) << "floor";
    const Pixels top(file("house.png"));
    const std::size_t middle = top.image.height / 2;
    EXPECT_GT(top.at(26, middle)[2], top.at(26, middle)[0] + 30) << "blue wall of room A";
    const std::size_t right = top.image.width - 27;
    EXPECT_GT(top.at(right, top.image.height - 60)[1], top.at(right, top.image.height - 60)[0])
        << "green wall of room B";
}

}  // namespace
}  // namespace ScanHost::Tests
