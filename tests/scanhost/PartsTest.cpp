// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <limits>
#include <sstream>
#include <string>
#include <vector>

#include "RegisterFormats.h"

#include "report/DateText.h"
#include "report/Failure.h"
#include "report/NumberText.h"
#include "report/ProgressLine.h"
#include "report/Report.h"
#include "session/TrajectoryCheck.h"
#include "support/TempFolder.h"
#include "support/TestNodes.h"

namespace ScanHost {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

TEST(NumberText, WritesAndReadsNumbers) {
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
          Accepted{"1305031102.161071", 1305031102.161071}, Accepted{"1e-400", 0.0}}) {
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

TEST(TrajectoryCheck, FindsEveryPoseThatIsNotTheSame) {
    Ovr::Formats::registerFormats();
    const Support::TempFolder folder;
    const std::vector<Ovr::VardexLib::TrajectoryNode> nodes{
        Vardex::Testing::nodeAt(7.0, {1, 2, 3}), Vardex::Testing::nodeAt(8.0, {4, 5, 6})};
    struct Case {
        const char* name;
        const char* second;  // line of the copy
        const char* words;   // of the refusal; empty for none
    };
    for (const Case& c : {
             Case{"the same", "8 4 5 6 0 0 0 1", ""},
             Case{"as good as the same", "8 4 5 6.0000000009 0 0 0 1", ""},
             Case{"time", "8.25 4 5 6 0 0 0 1", "by up to 0.25 s, 0 m and 0 in"},
             Case{"x", "8 3.5 5 6 0 0 0 1", "by up to 0 s, 0.5 m and 0 in"},
             Case{"z", "8 4 5 6.00000001 0 0 0 1", "e-09 m and 0 in"},
             Case{"turned by half", "8 4 5 6 1 0 0 0", "by up to 0 s, 0 m and 2 in the rotation"},
             Case{"one pose", "", "found 1 poses, expected 2"},
             Case{"three poses", "8 4 5 6 0 0 0 1\n9 4 5 6 0 0 0 1", "found 3 poses, expected 2"},
         }) {
        const auto file = folder.write("copy.tum", std::string("7 1 2 3 0 0 0 1\n") + c.second);
        Report report;
        std::string message;
        try {
            requireSameTrajectory(file, nullptr, nodes, ScanUnits(), report);
        } catch (const Failure& failure) {
            message = failure.what();
        }
        EXPECT_EQ(message.empty(), *c.words == '\0') << c.name << '\n' << message;
        EXPECT_NE(message.find(c.words), std::string::npos) << c.name << '\n' << message;
    }
}

TEST(ProgressLine, ShowsEachPercentOnce) {
    std::ostringstream plain;
    std::ostringstream inPlace;
    for (const bool replacing : {false, true}) {
        ProgressLine line(replacing ? inPlace : plain, replacing);
        line.setFraction(0.25);
        line.begin("walk");
        for (const double fraction : {0.5, 0.5, 0.509, 0.25, 7.0}) {
            line.setFraction(fraction);
        }
        line.end();
    }
    EXPECT_EQ(plain.str(), "scanhost: walk 50 %\nscanhost: walk 100 %\n");
    EXPECT_EQ(inPlace.str(), "\r\033[Kwalk 50 %\r\033[Kwalk 100 %\r\033[K");
}

TEST(Report, WhatIsNoFiniteNumberIsWordsAndNull) {
    Report report("walk");
    report.addNumber("speed", "speed", kInfinity, 2, " m/s");
    report.addText("name", "name", "a\tb");
    std::ostringstream text;
    report.print(text);
    EXPECT_EQ(text.str(), "walk\n  speed  infinite\n  name   a?b\n");
    EXPECT_EQ(jsonLine(report.json()), R"({"name":"a?b","speed":null})");
    EXPECT_EQ(jsonLine(jsonNumber(1305031128.722976)), "1305031128.722976");
}

}  // namespace
}  // namespace ScanHost
