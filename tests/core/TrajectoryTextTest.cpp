// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "trajectory/core/TrajectoryText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <limits>
#include <locale>
#include <sstream>
#include <streambuf>
#include <vector>

namespace Vardex {
namespace {

using Node = Ovr::VardexLib::TrajectoryNode;

constexpr char kHeader[] = "//world_time x y z q0 q1 q2 q3 r g b nx ny nz roll pitch yaw\n";
/// Numbers as in the classic locale, but of a locale without a name: the stream formats them.
const std::locale kUnnamed(std::locale::classic(), new std::numpunct<char>);

Node makeNode(double time, const std::array<double, 16>& pose) {
    Node node;
    node.time = time;
    std::copy(pose.begin(), pose.end(), node.pose);
    return node;
}

const std::vector<Node> kNodes = {
    makeNode(1000.25, {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 1, 2, 3, 1}),
    makeNode(12.5, {-1, 0, 0, 0, 0, -1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1}),
    makeNode(7, {0, -1, 0, 9, 1, 0, 0, 9, 0, 0, 1, 9, 4, 5, 6, 9})};

void write(std::ostream& out, const std::vector<Node>& nodes) {
    TrajectoryText::writeTrajectory(out, nodes, Tq_1_1::Mat4d<double>::identity());
}

std::string textOf(const std::vector<Node>& nodes, const std::locale& locale) {
    std::ostringstream out;
    out.imbue(locale);
    write(out, nodes);
    return out.str();
}

TEST(TrajectoryText, LinesByteByByte) {
    EXPECT_EQ(
        textOf(kNodes, std::locale::classic()),
        kHeader +
            std::string(
                "1000.250000000000000 1.000000000000000 2.000000000000000 3.000000000000000 "
                "1.000000000000000 0.000000000000000 0.000000000000000 0.000000000000000 0 0 0 "
                "0.000000000000000 0.000000000000000 1.000000000000000 "
                "0.000000000000000 0.000000000000000 0.000000000000000\n"
                "12.500000000000000 0.000000000000000 0.000000000000000 0.000000000000000 "
                "0.000000000000000 0.000000000000000 0.000000000000000 1.000000000000000 0 0 0 "
                "0.000000000000000 0.000000000000000 1.000000000000000 "
                "3.141592653589793 0.000000000000000 0.000000000000000\n"
                "7.000000000000000 4.000000000000000 5.000000000000000 6.000000000000000 "
                "0.707106781186548 0.000000000000000 0.000000000000000 -0.707106781186547 0 0 0 "
                "0.000000000000000 -0.000000000000000 1.000000000000000 "
                "1.570796326794897 3.141592653589793 3.141592653589793\n"));
}

TEST(TrajectoryText, IsWhatTheStreamItselfWouldFormat) {
    using Limits = std::numeric_limits<double>;
    std::vector<Node> nodes;
    for (const double v : {0.0, 0.1, 5e-16, 0.5e-15, 1.5e-15, 1e300, 1e22, 2.5, 1e-320,
                           Limits::max(), Limits::infinity(), Limits::quiet_NaN(),
                           1305031102.175304, 123456789.123456789, 0.707106781186547}) {
        nodes.push_back(makeNode(v, {0.6, 0.8, 0, 0, -0.8, 0.6, 0, 0, 0, 0, 1, 0, v, -v, 1, 1}));
        nodes.push_back(makeNode(-v, {v, 0.8, 0, 0, -0.8, 0.6, 0, 0, 0, 0, 1, 0, 0, 0, 1, 1}));
    }
    EXPECT_EQ(textOf(nodes, std::locale::classic()), textOf(nodes, kUnnamed));
}

TEST(TrajectoryText, KeepsTheStreamsOwnSettings) {
    struct DecimalComma : std::numpunct<char> {
        char do_decimal_point() const override { return ','; }
    };
    for (const bool comma : {true, false}) {
        std::ostringstream out;
        out.imbue(comma ? std::locale(std::locale::classic(), new DecimalComma) : out.getloc());
        out.setf(comma ? std::ios_base::scientific : std::ios_base::showpos);
        out.width(64);
        out.fill('_');
        write(out, kNodes);
        const std::string line = comma ? "1000,250000000000000 1," : "+1000.250000000000000 +1.";
        EXPECT_EQ(out.str().substr(0, 65 + line.size()), std::string("____") + kHeader + line);
        out.str("");
        out << 1.0;
        EXPECT_EQ(out.str(), comma ? "1,000000000000000" : "+1.000000000000000");
    }
}

/// Takes a limited number of characters and counts its flushes.
class SmallBuffer : public std::streambuf {
  public:
    explicit SmallBuffer(std::size_t room) : room_(room) {}
    std::string text;
    int flushes = 0;

  private:
    int_type overflow(int_type c) override {
        const char character = traits_type::to_char_type(c);
        return xsputn(&character, 1) == 1 ? c : traits_type::eof();
    }
    std::streamsize xsputn(const char* s, std::streamsize n) override {
        const std::size_t taken = std::min(static_cast<std::size_t>(n), room_ - text.size());
        text.append(s, taken);
        return static_cast<std::streamsize>(taken);
    }
    int sync() override { return flushes++, 0; }

    std::size_t room_;
};

TEST(TrajectoryText, FlushesEveryLineAndFailsLikeTheStream) {
    const std::string whole = textOf(kNodes, kUnnamed);
    for (const std::locale& locale : {std::locale::classic(), kUnnamed}) {
        for (const std::size_t room : {10000, 100, 0}) {
            SmallBuffer buffer(room);
            std::ostream out(&buffer);
            out.imbue(locale);
            write(out, kNodes);
            EXPECT_EQ(buffer.text, whole.substr(0, room));
            EXPECT_EQ(out.fail(), room < whole.size());
            EXPECT_EQ(buffer.flushes, room > whole.size() ? 4 : room > 0 ? 1 : 0);
        }
    }
}

}  // namespace
}  // namespace Vardex
