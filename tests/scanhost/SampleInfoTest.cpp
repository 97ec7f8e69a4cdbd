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

std::string keysOf(const Json::Value& object) {
    std::string keys;
    for (const std::string& key : object.getMemberNames()) {
        keys += (keys.empty() ? "" : " ") + key;
    }
    return keys;
}

// The same values as text stand in the documents, whose sessions are replayed.
TEST_F(SampleInfo, DocumentOfAProjectHasItsKeysAndNumbers) {
    const Json::Value document =
        runJson({"info", file("project.json"), "--picture", file("house.png")});
    EXPECT_EQ(keysOf(document), "module origin pictures projects scans warnings");
    EXPECT_EQ(keysOf(document["projects"][0]), "attributes class file json name");
    expectNumbers(document["origin"], {431200, 5412300, 300}, 0.0, "origin");
    EXPECT_EQ(document["warnings"].size(), 0U) << document["warnings"];
    ASSERT_EQ(document["scans"].size(), 3U);
    const std::string common =
        "bounds cells cellsWithoutReturn class classIdentifier color columns file firmware "
        "fullPanorama hasPointTimes id isPointCloud name patchedSettings placement pointAccuracy "
        "points record recordingTime "
        "reflection reliableSphericalEstimation rows scannerModel serialNumber sessionId "
        "settingsId ";
    for (const Json::Value& scan : document["scans"]) {
        const bool mobile = scan["rows"] == 1;
        EXPECT_EQ(keysOf(scan), common + (mobile ? "software times trajectory vendor"
                                                 : "slamPose software vendor"));
        EXPECT_EQ(scan["fullPanorama"], mobile ? Json::Value(false) : Json::Value());
        EXPECT_EQ(scan["patchedSettings"], mobile ? Json::Value() : Json::Value(false));
        // Every scan sees the whole house through the door, to the file's six decimals.
        expectNumbers(scan["bounds"]["min"], {431200, 5412300, 312}, 1e-5, "lower corner");
        expectNumbers(scan["bounds"]["max"], {431211, 5412305, 314.8}, 1e-5, "upper corner");
        EXPECT_EQ(scan["color"]["points"], scan["points"]);
        EXPECT_EQ(scan["cellsWithoutReturn"].asInt() + scan["points"].asInt(),
                  scan["cells"].asInt());
    }
    const Json::Value& walk = document["scans"][2];
    EXPECT_EQ(keysOf(walk["trajectory"]), "firstTime lastTime nodes pathLength");
    EXPECT_EQ(keysOf(walk["times"]), "bytesPerPoint duration first last notes");
    EXPECT_EQ(walk["recordingTime"], 1778464782.0);
    EXPECT_NEAR(walk["times"]["last"].asDouble(), 31.9992, 1e-9);
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
