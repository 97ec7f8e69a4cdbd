// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <regex>
#include <string>
#include <utility>
#include <vector>

#include "Program.h"
#include "support/LasBytes.h"

namespace ScanHost::Tests {
namespace {

/// A PDF as other programs see it: its words with their places, and its pixels. Both in pixels of
/// the picture: two to a point.
class Page {
  public:
    Page(const Folder& folder, const std::string& file) {
        const std::string list =
            runShell("pdftotext -bbox " + file + " - && pdftoppm -r 144 " + file + " page",
                     folder.path())
                .out;
        const std::regex word(
            R"re(<word xMin="(\S+)" yMin="(\S+)" xMax="(\S+)" yMax="(\S+)">(.*)</word>)re");
        for (auto i = std::sregex_iterator(list.begin(), list.end(), word);
             i != std::sregex_iterator(); ++i) {
            const auto number = [&](std::size_t group) { return 2.0 * std::stod((*i)[group]); };
            words_.push_back(
                {(*i)[5], 0.5 * (number(1) + number(3)), 0.5 * (number(2) + number(4))});
        }
        const std::string image = readFile(folder.path() / "page-1.ppm");
        int end = 0;
        EXPECT_EQ(std::sscanf(image.c_str(), "P6 %d %d 255%*c%n", &width_, &height_, &end), 2)
            << list;
        pixels_ = image.substr(static_cast<std::size_t>(end));
    }

    /// Whether words follow each other somewhere.
    bool says(const std::string& text) const {
        std::string all;
        for (const Word& word : words_) {
            all += word.text + ' ';
        }
        return all.find(text) != std::string::npos;
    }

    /// Where the lines from a number at the lower edge and one on the left meet [pixels].
    std::pair<int, int> find(double across, double up) const {
        const auto isNumber = [](const Word& word, double value) {
            char* end = nullptr;
            return std::strtod(word.text.c_str(), &end) == value && *end == '\0' &&
                   end != word.text.c_str();
        };
        const Word* column = nullptr;
        const Word* row = nullptr;
        for (const Word& word : words_) {
            if (isNumber(word, across) && (column == nullptr || word.y > column->y)) {
                column = &word;
            }
            if (isNumber(word, up) && (row == nullptr || word.x < row->x)) {
                row = &word;
            }
        }
        if (column == nullptr || row == nullptr) {
            ADD_FAILURE() << "no number " << across << " or " << up;
            return {0, 0};
        }
        return {static_cast<int>(column->x), static_cast<int>(row->y)};
    }

    /// The colour that most pixels around a place have: r, g, b or y, k for black, and a blank for
    /// paper, grids and hatches.
    char seen(const std::pair<int, int>& place) const {
        const std::string kinds = "rgbyk";
        std::vector<int> counts(kinds.size());
        for (int dy = -5; dy <= 5; ++dy) {
            for (int dx = -5; dx <= 5; ++dx) {
                const std::size_t kind = kinds.find(kindAt(place.first + dx, place.second + dy));
                if (kind != std::string::npos) {
                    ++counts[kind];
                }
            }
        }
        const auto most = std::max_element(counts.begin(), counts.end());
        return *most < 5 ? ' ' : kinds[static_cast<std::size_t>(most - counts.begin())];
    }

  private:
    struct Word {
        std::string text;
        double x;
        double y;
    };

    char kindAt(int x, int y) const {
        if (x < 0 || y < 0 || x >= width_ || y >= height_) {
            return ' ';
        }
        const auto at = 3 * (static_cast<std::size_t>(y) * static_cast<std::size_t>(width_) +
                             static_cast<std::size_t>(x));
        const auto channel = [&](std::size_t i) {
            return static_cast<int>(static_cast<unsigned char>(pixels_[at + i]));
        };
        const int red = channel(0);
        const int green = channel(1);
        const int blue = channel(2);
        constexpr int kApart = 60;
        return std::max({red, green, blue}) < 60          ? 'k'
               : std::min(red, green) > blue + 2 * kApart ? 'y'
               : red > std::max(green, blue) + kApart     ? 'r'
               : green > std::max(red, blue) + kApart     ? 'g'
               : blue > std::max(red, green) + kApart     ? 'b'
                                                          : ' ';
    }

    std::vector<Word> words_;
    std::string pixels_;
    int width_ = 0;
    int height_ = 0;
};

/// Fills a box with points 0.05 m apart.
void addBox(Support::LasBytes& las, const std::array<int, 3>& low, const std::array<int, 3>& high,
            const std::array<std::uint16_t, 3>& color) {
    for (int x = 20 * low[0]; x <= 20 * high[0]; ++x) {
        for (int y = 20 * low[1]; y <= 20 * high[1]; ++y) {
            for (int z = 20 * low[2]; z <= 20 * high[2]; ++z) {
                las.points.push_back({{x, y, z}, 100, 0.0, color});
            }
        }
    }
}

struct Place {
    double across;
    double up;
    char color;
};

void expectPlaces(const Folder& folder, const std::vector<std::string>& command,
                  const std::vector<Place>& places) {
    SCOPED_TRACE(::testing::PrintToString(command));
    std::vector<std::string> arguments{"picture", "-o", folder.file("out.pdf"), "--force"};
    arguments.insert(arguments.end(), command.begin(), command.end());
    const Outcome outcome = run(arguments);
    ASSERT_EQ(outcome.exitCode, 0) << outcome.err;
    const Page page(folder, "out.pdf");
    const auto first = page.find(places.front().across, places.front().up);
    for (const Place& place : places) {
        const auto spot = page.find(place.across, place.up);
        EXPECT_EQ(page.seen(spot), place.color) << place.across << ", " << place.up;
        // Numbers grow to the right and upwards.
        EXPECT_EQ(spot.first > first.first, place.across > places.front().across);
        EXPECT_EQ(spot.second<first.second, place.up> places.front().up);
    }
}

// A red wall in the west, a green one in the north that begins above it, and a blue floor.
TEST(Picture, ShowsWallsWhereTheirCoordinatesSay) {
    const Folder folder;
    Support::LasBytes las;
    las.format = 2;
    las.scale.fill(0.05);
    addBox(las, {102, 21, 5}, {102, 23, 6}, {60000, 2000, 2000});
    addBox(las, {103, 24, 7}, {106, 24, 8}, {2000, 60000, 2000});
    addBox(las, {104, 21, 5}, {105, 23, 5}, {2000, 2000, 60000});
    const std::string scan = folder.write("walls.las", las.bytes());
    expectPlaces(folder, {"--color", "rgb", "--plan", scan},
                 {{102, 22, 'r'},
                  {105, 24, 'g'},
                  {105, 22, 'b'},
                  {106, 22, ' '},
                  {105, 21, 'b'},
                  {103, 21, ' '},
                  {103, 22, ' '}});
    expectPlaces(folder, {"--color", "rgb", "--front", scan},
                 {{102, 6, 'r'},
                  {105, 8, 'g'},
                  {103, 7, 'g'},
                  {105, 5, 'b'},
                  {106, 5, ' '},
                  {102, 8, ' '},
                  {106, 6, ' '}});
    expectPlaces(folder, {"--color", "rgb", "--side", scan},
                 {{22, 6, 'r'}, {24, 8, 'g'}, {21, 8, ' '}, {24, 5, ' '}, {24, 6, ' '}});
}

// The scanner leaves what it measured, one point is a hundred kilometres away.
TEST(Picture, HoldsTheWholePathAndCountsWhatLiesOutside) {
    const Folder folder;
    Support::LasBytes las;
    las.scale.fill(0.05);
    addBox(las, {0, 0, 0}, {10, 6, 0}, {});
    las.points.push_back({{2000000, 0, 0}, 1, 0.0, {}});
    const std::string scan = folder.write("yard.las", las.bytes());
    folder.write("yard.txt", "0 2 2 0 0 0 0 1\n9 20 4 0 0 0 0 1\n");
    expectPlaces(folder, {"--color", "height", "--plan", scan},
                 {{20, 4, 'k'}, {20, 2, ' '}, {16, 2, ' '}});
    const Page page(folder, "out.pdf");
    for (const char* text :
         {"yard.las ", "24,322 points", "coordinate system not known", "N ", "x [m]", "y [m]",
          "height [m]", "path: time [s]", "start", "end", "1 point lies outside of the picture."}) {
        EXPECT_TRUE(page.says(text)) << text;
    }
}

TEST(Picture, TellsScansApartAndNamesThem) {
    const Folder folder;
    Support::LasBytes las;
    las.scale.fill(0.05);
    addBox(las, {1, 1, 0}, {2, 2, 0}, {});
    const std::string one = folder.write("one.las", las.bytes());
    las.points.clear();
    addBox(las, {4, 2, 0}, {5, 3, 0}, {});
    const std::string other = folder.write("other.las", las.bytes());
    expectPlaces(folder, {"--width", "1200", one, other},
                 {{1, 1, 'b'}, {2, 2, 'b'}, {4, 3, 'r'}, {5, 2, 'r'}, {2, 3, ' '}, {4, 1, ' '}});
    const Page page(folder, "out.pdf");
    EXPECT_TRUE(page.says("one.las and other.las"));
    EXPECT_TRUE(page.says("2 scans"));
}

// A point every hundredth of a second, but for three seconds.
TEST(Picture, CountsTheGapsBetweenTimes) {
    const Folder folder;
    Support::LasBytes las;
    for (int i = 0; i <= 2000; ++i) {
        if (i <= 800 || i >= 1100) {
            las.points.push_back({{i, 0, 0}, 1, 0.01 * i, {}});
        }
    }
    const Json::Value picture = runJson({"picture", folder.write("walk.las", las.bytes()),
                                         "--times", "-o", folder.file("out.pdf")});
    EXPECT_EQ(picture["notes"][0], "walk.las: 1 gap, hatched; the longest from 8.00 s to 11.00 s.");
    EXPECT_TRUE(Page(folder, "out.pdf").says("scan time [s]"));
}

// The same surroundings in grids that count rows from the bottom or top, columns to the right or
// left. As the scanner saw it: up is up, and what lies clockwise is on the right.
TEST(Panorama, ShowsWhatTheScannerSawHoweverTheGridCounts) {
    const std::vector<std::string> up{"4 0 3 1 250 0 0\n", "0 -4 3 1 0 250 0\n",
                                      "-4 0 3 1 0 0 250\n", "0 0 0 0 0 0 0\n"};
    const std::vector<std::string> down{"4 0 -3 1 250 250 0\n", "0 -4 -3 1 250 250 0\n",
                                        "-4 0 -3 1 250 250 0\n", "0 4 -3 1 250 250 0\n"};
    for (const bool upFirst : {true, false}) {
        for (const bool rightward : {true, false}) {
            std::string points;
            for (std::size_t i = 0; i < 4; ++i) {
                const std::size_t col = rightward ? i : 3 - i;
                points += upFirst ? up[col] + down[col] : down[col] + up[col];
            }
            const Folder folder;
            const std::string scan = folder.write(
                "scan.ptx",
                "4\n2\n0 0 0\n1 0 0\n0 1 0\n0 0 1\n1 0 0 0\n0 1 0 0\n0 0 1 0\n0 0 0 1\n" + points);
            SCOPED_TRACE(std::string(upFirst ? "up first, " : "down first, ") +
                         (rightward ? "rightward" : "leftward"));
            expectPlaces(folder, {"--panorama", scan, "--width=1000"},
                         {{0, 30, 'r'},
                          {90, 30, 'g'},
                          {180, 30, 'b'},
                          {270, 30, ' '},
                          {0, -30, 'y'},
                          {270, -30, 'y'}});
            EXPECT_TRUE(Page(folder, "out.pdf").says("no return"));
        }
    }
}

}  // namespace
}  // namespace ScanHost::Tests
