// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <limits>
#include <sstream>
#include <string>

#include "scanhost/DateText.h"
#include "scanhost/NumberText.h"
#include "scanhost/ProgressLine.h"
#include "scanhost/Report.h"
#include "scanhost/Sample/House.h"
#include "scanhost/Sample/SampleMath.h"

namespace ScanHost {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(NumberText, WritesAndReadsInEveryLocale) {
    std::setlocale(LC_ALL, "");
    EXPECT_EQ(fixedText(5412345.67891, 4), "5412345.6789");
    EXPECT_EQ(fixedText(-0.00004, 4), "0.0000");
    EXPECT_EQ(fixedText(-0.00005001, 4), "-0.0001");
    EXPECT_EQ(fixedText(2.5, 0), "2");
    EXPECT_EQ(fixedText(-1e300, 0).size(), 302U);
    EXPECT_EQ(fixedText(kNaN, 3), "not a number");
    EXPECT_EQ(fixedText(-kInfinity, 3), "-infinite");
    EXPECT_EQ(shortText(0.1), "0.1");
    struct Accepted {
        const char* text;
        double value;
    };
    for (const Accepted& c :
         {Accepted{"1.5", 1.5}, Accepted{"+2", 2.0}, Accepted{"-.5", -0.5}, Accepted{"1e3", 1000.0},
          Accepted{"1305031102.161071", 1305031102.161071}}) {
        EXPECT_EQ(parseNumber(c.text), c.value) << c.text;
    }
    for (const char* text :
         {"", "+", "+-1", "1,5", "1.5 ", " 1", "nan", "inf", "1e999", "0x10", "1.5m"}) {
        EXPECT_EQ(parseNumber(text), std::nullopt) << '"' << text << '"';
    }
    EXPECT_EQ(parsePoint("1,-2.5,+3e1"), (Tq_1_1::Vec3d<double>{1, -2.5, 30}));
    for (const char* text : {"", "1,2", "1,2,3,4", "1,,3", "1, 2,3", "1,2,nan"}) {
        EXPECT_EQ(parsePoint(text), std::nullopt) << '"' << text << '"';
    }
    EXPECT_EQ(parseCount("18446744073709551615"), 18446744073709551615U);
    for (const char* text : {"", "-1", "+1", "1.0", "18446744073709551616"}) {
        EXPECT_EQ(parseCount(text), std::nullopt) << '"' << text << '"';
    }
}

TEST(NumberText, NamesCannotSteerATerminal) {
    EXPECT_EQ(printable("Bürohaus 東.las"), "Bürohaus 東.las");
    EXPECT_EQ(printable("a\nb\x1B[31mc\x7F"), "a?b?[31mc?");
    EXPECT_EQ(printable("a\xC2\x9B"
                        "31m"),
              "a?31m");
    EXPECT_EQ(printable("a\xFF"
                        "b"),
              "a\xEF\xBF\xBD"
              "b");
}

TEST(DateText, IsTheDateInUtc) {
    EXPECT_EQ(dateText(0.0), "1970-01-01 00:00:00 UTC");
    EXPECT_EQ(dateText(1778464782.75), "2026-05-11 01:59:42 UTC");
    EXPECT_EQ(dateText(-0.5), "1969-12-31 23:59:59 UTC");
    EXPECT_EQ(dateText(951782400.0), "2000-02-29 00:00:00 UTC");
    EXPECT_EQ(dateText(1e300), "1e+300 s");
}

TEST(Report, TextAndJsonSayTheSame) {
    Report report("walk");
    report.addNumber("length", "path length", 16.25, 2, " m");
    report.addNumber("speed", "speed", kInfinity, 2, " m/s");
    report.addNone("color", "colour", "none");
    Report& times = report.group("times", "times");
    times.addCount("count", "points", 3);
    report.item("scans", "scan 1").addText("name", "name", "a\tb");
    report.item("scans", "scan 2").addFlag("cloud", "cloud", true);
    report.addTable("path", "path",
                    {{{"at", "at"}, {"x", "x [m]"}},
                     {{{"a", "a"}, {1.5, "1.5"}}, {{"bcd", "bcd"}, {10.5, "10.5"}}}});
    report.addHidden("raw", 7);
    std::ostringstream text;
    report.print(text);
    EXPECT_EQ(text.str(),
              "walk\n"
              "  path length  16.25 m\n"
              "  speed        infinite\n"
              "  colour       none\n"
              "  times\n"
              "    points  3\n"
              "  scan 1\n"
              "    name  a?b\n"
              "  scan 2\n"
              "    cloud  yes\n"
              "  path\n"
              "    at   x [m]\n"
              "    a      1.5\n"
              "    bcd   10.5\n");
    EXPECT_EQ(jsonLine(report.json()),
              R"({"color":null,"length":16.25,"path":[{"at":"a","x":1.5},{"at":"bcd","x":10.5}],)"
              R"("raw":7,"scans":[{"name":"a?b"},{"cloud":true}],"speed":null,)"
              R"("times":{"count":3}})");
    EXPECT_EQ(jsonLine(jsonNumber(1305031128.722976)), "1305031128.722976");
}

TEST(ProgressLine, SaysEachPercentOncePerTask) {
    std::ostringstream plain;
    ProgressLine line(plain, false);
    line.setFraction(0.5);
    line.begin("reading");
    for (const double fraction : {0.0, 0.004, 0.011, 0.019, 1.0}) {
        line.setFraction(fraction);
    }
    line.end();
    line.begin("writing");
    line.setFraction(0.0);
    EXPECT_EQ(plain.str(),
              "scanhost: reading 0 %\nscanhost: reading 1 %\nscanhost: reading 100 %\n"
              "scanhost: writing 0 %\n");
}

}  // namespace

namespace Sample {
namespace {

TEST(SampleMath, AgreesWithTheLibrary) {
    for (double turns = -2.0; turns <= 2.0; turns += 0.00390625) {
        const SineCosine value = sineCosine(turns);
        EXPECT_NEAR(value.sine, std::sin(turns * 2 * M_PI), 1e-14) << turns;
        EXPECT_NEAR(value.cosine, std::cos(turns * 2 * M_PI), 1e-14) << turns;
    }
    const Mat4 pose = poseOf(orientationOf(0.25, 0.0), {1, 2, 3});
    const Vec3 turned = pose.transform({1, 0, 0});
    EXPECT_NEAR(turned.x, 1.0, 1e-15);
    EXPECT_NEAR(turned.y, 3.0, 1e-15);
}

/// Whether the plan of the house has air there.
bool isAir(const Vec3& p) {
    const bool roomA = p.x > 0 && p.x < 6 && p.y > 0 && p.y < 5 && p.z > 0 && p.z < 2.8;
    const bool door = p.x > 5.99 && p.x < 6.21 && p.y > 2 && p.y < 3.1 && p.z > 0 && p.z < 2.1;
    const bool roomB = p.x > 6.2 && p.x < 11 && p.y > 0 && p.y < 5 && p.z > 0 && p.z < 2.8;
    const bool pillar = p.x > 8.4 && p.x < 8.8 && p.y > 2.2 && p.y < 2.6;
    return (roomA || door || roomB) && !pillar;
}

// In small steps along the ray, which needs no geometry at all.
TEST(House, CastStopsWhereTheAirEnds) {
    constexpr double kStep = 0.002;
    Random random(7);
    int windows = 0;
    for (int i = 0; i < 1500; ++i) {
        Vec3 origin;
        do {
            origin = {11 * random.next(), 5 * random.next(), 2.8 * random.next()};
        } while (!isAir(origin));
        const Vec3 beam = directionOf(random.next(), 0.5 * random.next() - 0.25);
        double way = 0.0;
        while (isAir(origin + beam * (way + kStep))) {
            way += kStep;
        }
        const std::optional<Hit> hit = House::cast(origin, beam);
        const Vec3 end = origin + beam * way;
        if (!hit) {
            ++windows;
            const bool windowA = end.y < 0.01 && end.x > 1.49 && end.x < 3.51;
            const bool windowB = end.x > 10.99 && end.y > 1.19 && end.y < 3.81;
            EXPECT_TRUE((windowA || windowB) && end.z > 0.89 && end.z < 2.21) << i;
            continue;
        }
        EXPECT_NEAR(hit->distance, way, 2 * kStep) << i;
        EXPECT_LT(std::hypot(hit->point.x - end.x, hit->point.y - end.y, hit->point.z - end.z),
                  2 * kStep)
            << i;
    }
    EXPECT_GT(windows, 20);
}

}  // namespace
}  // namespace Sample
}  // namespace ScanHost
