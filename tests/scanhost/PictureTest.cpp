// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <string>
#include <vector>

#include <png.h>

#include "Program.h"
#include "support/LasBytes.h"

namespace ScanHost::Tests {
namespace {

using Color = std::array<unsigned char, 3>;

constexpr Color kWhite{255, 255, 255};
constexpr Color kBlack{0, 0, 0};
constexpr Color kRed{220, 20, 20};
constexpr Color kNoReturn{255, 0, 255};

struct Pixels {
    png_image image{};
    std::vector<Color> values;

    explicit Pixels(const std::string& file) {
        image.version = PNG_IMAGE_VERSION;
        EXPECT_NE(png_image_begin_read_from_file(&image, file.c_str()), 0) << image.message;
        image.format = PNG_FORMAT_RGB;
        values.resize(std::size_t{image.width} * image.height);
        EXPECT_NE(png_image_finish_read(&image, nullptr, values.data(), 0, nullptr), 0);
    }
    const Color& at(std::size_t x, std::size_t y) const { return values.at(y * image.width + x); }
};

std::string ptx(int columns, int rows, const std::string& points) {
    return std::to_string(columns) + '\n' + std::to_string(rows) +
           "\n0 0 0\n1 0 0\n0 1 0\n0 0 1\n1 0 0 0\n0 1 0 0\n0 0 1 0\n0 0 0 1\n" + points;
}

struct Spot {
    const char* name;
    std::size_t x;
    std::size_t y;
    Color color;
};

void expectSpots(const Pixels& picture, const std::vector<Spot>& spots) {
    for (const Spot& spot : spots) {
        EXPECT_EQ(picture.at(spot.x, spot.y), spot.color) << spot.name;
    }
}

// One point each to the east, south, west and north: x from -3 to 4, y from -2 to 1. 7 m take 71
// cells of 0.1 m and 17 pixels, within margins of 24 pixels; row 0 is y = 1.
TEST(TopView, HasNorthUpAndEastOnTheRight) {
    const Folder folder;
    const std::string scan = folder.write("four.ptx", ptx(4, 1,
                                                          "4 0 0 0.5 250 10 10\n"
                                                          "0 -2 0 0.5 10 250 10\n"
                                                          "-3 0 0 0.5 10 10 250\n"
                                                          "0 1 0 0.5 80 80 80\n"));
    const Json::Value shown =
        runJson({"info", scan, "--picture", folder.file("top.png")})["pictures"];
    EXPECT_EQ(shown[0]["file"], folder.file("top.png"));
    EXPECT_EQ(shown[0]["shows"], "top view in cells of 0.1 m, 17 pixels each, bar 1 m");
    const Pixels picture(folder.file("top.png"));
    EXPECT_EQ(picture.image.width, 71U * 17 + 48);
    EXPECT_EQ(picture.image.height, 31U * 17 + 48);
    expectSpots(picture, {{"east", 24 + 70 * 17 + 8, 24 + 10 * 17 + 8, {250, 10, 10}},
                          {"south", 24 + 30 * 17 + 8, 24 + 30 * 17 + 8, {10, 250, 10}},
                          {"west", 24 + 8, 24 + 10 * 17 + 8, {10, 10, 250}},
                          {"north", 24 + 30 * 17 + 8, 24 + 8, {80, 80, 80}},
                          {"stance", 24 + 30 * 17, 24 + 10 * 17, kRed},
                          {"right end of the cross", 24 + 30 * 17 + 8, 24 + 10 * 17, kRed},
                          {"beyond it", 24 + 30 * 17 + 10, 24 + 10 * 17, kWhite},
                          {"bar", 24 + 169, 31 * 17 + 48 - 12, kBlack},
                          {"beyond it", 24 + 171, 31 * 17 + 48 - 12, kWhite}});
}

// Without colours the darkest point is black and the brightest white. The cells are 0.1 m and 12
// pixels; the scanner goes along the diagonal.
TEST(TopView, ShowsReflectionAsGreyAndTheWayOfTheScanner) {
    const Folder folder;
    Support::LasBytes las;
    las.scale.fill(1.0);
    las.points = {{{0, 0, 0}, 1000, 0.0, {}},
                  {{10, 10, 0}, 3000, 1.0, {}},
                  {{0, 10, 0}, 1500, 2.0, {}},
                  {{10, 0, 0}, 2000, 2.0, {}}};
    const std::string scan = folder.write("walk.las", las.bytes());
    folder.write("walk.txt", "0 2 0 0 0 0 0 1\n2 10 8 0 0 0 0 1\n");
    const Outcome outcome = run({"info", scan, "--picture", folder.file("top.png")});
    EXPECT_EQ(outcome.exitCode, 0) << outcome.err;
    EXPECT_NE(outcome.out.find("cells of 0.1 m, 12 pixels"), std::string::npos) << outcome.out;
    const Pixels picture(folder.file("top.png"));
    ASSERT_EQ(picture.image.width, 101U * 12 + 48);
    expectSpots(picture, {{"south-west", 24 + 6, 24 + 1206, kBlack},
                          {"north-east", 24 + 1206, 24 + 6, kWhite},
                          {"north-west", 24 + 6, 24 + 6, {63, 63, 63}},
                          {"south-east", 24 + 1206, 24 + 1206, {127, 127, 127}},
                          {"start of the way", 24 + 240, 24 + 1200, kRed},
                          {"end of the way", 24 + 1200, 24 + 240, kRed},
                          {"middle of the way", 24 + 720, 24 + 720, kRed}});
}

// The same surroundings in grids that count rows from the bottom or top, columns to the right or
// left. As the scanner saw it: up is up, and the columns go on to the right.
TEST(Panorama, ShowsWhatTheScannerSawHoweverTheGridCounts) {
    const std::vector<std::string> up{"4 0 3 1 10 0 0\n", "0 -4 3 1 20 0 0\n", "-4 0 3 1 30 0 0\n",
                                      "0 0 0 0 0 0 0\n"};
    const std::vector<std::string> down{"4 0 -3 1 10 99 0\n", "0 -4 -3 1 20 99 0\n",
                                        "-4 0 -3 1 30 99 0\n", "0 4 -3 1 40 99 0\n"};
    for (const bool upFirst : {true, false}) {
        for (const bool rightward : {true, false}) {
            std::string points;
            for (std::size_t i = 0; i < 4; ++i) {
                const std::size_t col = rightward ? i : 3 - i;
                points += upFirst ? up[col] + down[col] : down[col] + up[col];
            }
            const Folder folder;
            const std::string scan = folder.write("scan.ptx", ptx(4, 2, points));
            const Json::Value shown =
                runJson({"info", scan, "--picture", folder.file("top.png")})["pictures"];
            EXPECT_EQ(shown[1]["file"], folder.file("top-panorama-1.png"));
            EXPECT_EQ(shown[1]["shows"], "panorama of scan.ptx");
            const Pixels picture(folder.file("top-panorama-1.png"));
            ASSERT_EQ(picture.image.width, 900U);
            ASSERT_EQ(picture.image.height, 450U);
            SCOPED_TRACE(std::string(upFirst ? "up first, " : "down first, ") +
                         (rightward ? "rightward" : "leftward"));
            expectSpots(picture, {{"upper left", 0, 0, {10, 0, 0}},
                                  {"second", 225, 224, {20, 0, 0}},
                                  {"third", 674, 0, {30, 0, 0}},
                                  {"no return", 899, 224, kNoReturn},
                                  {"lower left", 224, 225, {10, 99, 0}},
                                  {"lower right", 675, 449, {40, 99, 0}}});
        }
    }
}

}  // namespace
}  // namespace ScanHost::Tests
