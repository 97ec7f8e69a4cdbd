// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "Hx/Models.h"
#include "Hx/PointSetIntegration.h"
#include "Hx/PtSetObject.h"
#include "Ovr/FormatRegistry.h"

#include "mobile/CorvinMobilePointSet.h"
#include "support/TestNodes.h"

namespace Vardex::Testing {
namespace {

using namespace Hx::IOMessages;
using Point = Tq_1_1::Vec3d<double>;

std::shared_ptr<TrajectoryNode> nodeAt(double time, double x) {
    return std::make_shared<TrajectoryNode>(
        TrajectoryNode{time, {1, 0, 0, 7, 0, 1, 0, 7, 0, 0, 1, 7, x, 0, 0, 7}});
}

/// Streams whose trajectory file says in its name what reading it gives.
struct NamedStreams final : Ovr::IStructuredStreams {
    const char* name;
    explicit NamedStreams(const char* name_) : name(name_) {}
    std::filesystem::path trajectoryFile() const override { return name; }
    std::shared_ptr<Ovr::ScanProject> project() const override { return nullptr; }
};

Ovr::ErrorPtr readByName(const std::filesystem::path& file, const Ovr::TrajectoryReading&,
                         std::vector<Ovr::VardexLib::TrajectoryNode>& nodes,
                         Ovr::Remarks& /*remarks*/) {
    if (file == "words") {
        return Ovr::makeError(Ovr::Interfaces::ErrorCode::InvalidValue, {file, "", "words", ""});
    }
    nodes.clear();
    if (file == "two poses") {
        nodes = {Testing::nodeAt(100.0, {1, 0, 0}), Testing::nodeAt(110.0, {2, 0, 0})};
    }
    return nullptr;
}

using Xs = std::vector<double>;

/// Counts how often its place is asked for inside and outside a guard of the models.
class WatchedContainer final : public Hx::PtSetObject {
  public:
    mutable int guarded = 0;
    mutable int unguarded = 0;

    const Tq_1_1::Mat4d<double>& getMatrix() const override {
        const auto context = Hx::Models::the().context(Hx::ModelContext::ALL_MODELS);
        ++(context->guardsTaken() > context->guardsReleased() ? guarded : unguarded);
        return PtSetObject::getMatrix();
    }
};

/// A mobile scan of 10 s whose streams are what the test says.
class MobileTrajectory : public testing::Test {
  protected:
    MobileTrajectory() {
        Ovr::FormatRegistry::the().setTrajectoryFormat({{}, readByName, {}});
        set->setMaxScanPointTime(10.0);
        set->getIntegration()->setStructuredStreams([this](bool writable) {
            EXPECT_FALSE(writable);
            ++opened;
            return streams;
        });
    }
    ~MobileTrajectory() override { Ovr::FormatRegistry::the().setTrajectoryFormat({}); }

    std::size_t nodesKept() { return set->getMobileScanData().getTrajectoryNodes().size(); }
    Xs selected(const Hx::PC2TimeFilter& filter) {
        Xs xs;
        for (const Point& p : set->getSelectedTrajectory(filter)) {
            xs.push_back(p.x);
        }
        return xs;
    }
    double xAt(double seconds) {
        const auto position = set->getRecordingPositionForTime(seconds);
        return position ? position->x : -1.0;
    }

    std::shared_ptr<Ovr::IStructuredStreams> streams;
    int opened = 0;
    std::shared_ptr<CorvinMobilePointSet> set = std::make_shared<CorvinMobilePointSet>(L"walk");
};

TEST_F(MobileTrajectory, QueriesKeepWhatTheyReadAndExportsDoNot) {
    std::ostringstream out;
    streams = std::make_shared<NamedStreams>("two poses");
    EXPECT_EQ(set->writeTrajectoryToStream(out), IO_OK);
    EXPECT_EQ(nodesKept(), 0U);
    EXPECT_EQ(selected({0.0, 1.0}), Xs({1.0, 2.0}));
    EXPECT_EQ(nodesKept(), 2U);
    EXPECT_EQ(selected({0.0, 1.0}), Xs({1.0, 2.0}));
    EXPECT_EQ(set->writeTrajectoryToStream(out), IO_OK);
    EXPECT_EQ(opened, 2) << "found in memory afterwards";
    set->setTrajectoryNodes({nullptr});
    EXPECT_EQ(selected({0.0, 1.0}), Xs({1.0, 2.0})) << "no nodes do not hide the streams";
}

TEST_F(MobileTrajectory, WhatCannotBeReadIsEmptyForQueriesAndAResultForTheExport) {
    struct Case {
        const char* name;
        std::shared_ptr<Ovr::IStructuredStreams> streams;
        int result;
        std::size_t written;
    };
    for (const Case& c : {
             Case{"no streams", nullptr, 14, 0},
             Case{"words", std::make_shared<NamedStreams>("words"), 7, 0},
             Case{"comments alone", std::make_shared<NamedStreams>("nothing"), 0, 61},
         }) {
        streams = c.streams;
        std::ostringstream out;
        const auto flags = out.flags();
        EXPECT_EQ(set->writeTrajectoryToStream(out), c.result) << c.name;
        EXPECT_EQ(out.str().size(), c.written) << c.name;
        EXPECT_EQ(out.flags() == flags, c.written == 0) << c.name;
        double begin = -7.0;
        EXPECT_FALSE(set->getTrajectoryFractionAtPoint({}, {}, begin, begin)) << c.name;
        EXPECT_EQ(begin, -7.0) << c.name;
        EXPECT_EQ(nodesKept(), 0U) << c.name;
    }
}

TEST_F(MobileTrajectory, FilterValuesSelectByFractionOfTheDuration) {
    EXPECT_EQ(selected({0.6, 0.4}), Xs());
    EXPECT_EQ(opened, 0) << "an empty span needs no nodes";
    set->setTrajectoryNodes({nullptr, nodeAt(100, 1), nullptr, nodeAt(110, 2)});
    Hx::PC2TimeFilter filter(0.9, 1.0);
    EXPECT_EQ(selected(filter), Xs{2.0});
    EXPECT_EQ(selected({}), Xs{1.0}) << "a value that is lacking is 0";

    const Tq_1_1::SmartPtr<Hx::Attribute> preview(new Hx::Attribute);
    preview->setValue(0.0, nullptr);
    filter.getAttribute(10)->attachNotifyInfo(std::make_shared<Hx::CachedAttributeInfo>(preview));
    EXPECT_EQ(selected(filter), Xs{2.0});
    Hx::Attribute::setCachedAttributePending(true);
    EXPECT_EQ(selected(filter), Xs({1.0, 2.0}));
    Hx::Attribute::setCachedAttributePending(false);
}

TEST_F(MobileTrajectory, PositionsStayThoseOfTheFirstQuestionThatWasAnswered) {
    set->setTrajectoryNodes({nodeAt(50, 1), nodeAt(60, 2)});
    EXPECT_EQ(xAt(10.0), 2.0);
    set->setTrajectoryNodes({nodeAt(50, 7)});
    set->setMaxScanPointTime(99.0);
    EXPECT_EQ(xAt(0.0), 1.0);
    EXPECT_EQ(xAt(11.0), -1.0);
    const CorvinMobilePointSet withoutPath(L"");
    EXPECT_FALSE(withoutPath.getRecordingPositionForTime(0.0));
}

TEST_F(MobileTrajectory, ExportIsPlacedByTheContainerUnderItsGuard) {
    // A quarter turn about x, then the container's about z: together x to y, y to z, z to x.
    set->setTrajectoryNodes({std::make_shared<TrajectoryNode>(
        TrajectoryNode{7, {1, 0, 0, 7, 0, 0, 1, 7, 0, -1, 0, 7, 1, 0, 0, 7}})});
    const Tq_1_1::SmartPtr<WatchedContainer> container(new WatchedContainer);
    ASSERT_TRUE(container->setMatrix({{0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 10, 0, 0, 1}}));
    ASSERT_TRUE(container->setPointSet(set));
    const auto context = Hx::Models::the().context(Hx::ModelContext::ALL_MODELS);

    std::ostringstream out;
    EXPECT_EQ(set->writeTrajectoryToStream(out), IO_OK);
    EXPECT_EQ(out.str().substr(61),
              "7.000000000000000 10.000000000000000 1.000000000000000 0.000000000000000 "
              "0.500000000000000 0.500000000000000 0.500000000000000 0.500000000000000 0 0 0 "
              "1.000000000000000 0.000000000000000 0.000000000000000 "
              "1.570796326794897 0.000000000000000 1.570796326794897\n");
    EXPECT_TRUE(container->guarded == 1 && container->unguarded == 0);
    EXPECT_EQ(context->guardsReleased(), context->guardsTaken());
    out.setstate(std::ios_base::failbit);
    EXPECT_EQ(set->writeTrajectoryToStream(out), 18);
}

}  // namespace
}  // namespace Vardex::Testing
