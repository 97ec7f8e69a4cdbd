// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <vector>

#include "Hx/GenericScans.h"

#include "mobile/CorvinMobilePointSet.h"
#include "module/RegisteredFunctions.h"
#include "module/Registration.h"
#include "module/frame/IoResult.h"
#include "module/frame/VardexErrorConverter.h"
#include "stance/CorvinStancePointSet.h"
#include "support/HostRegistries.h"

namespace Vardex {
namespace {

using Support::ForeignEntries;
using Support::HostRegistries;

TEST(IoResult, IsAFailureUnlessItIsKnownAsNone) {
    std::vector<int> none;
    for (int result = -1000; result <= 40'000; ++result) {
        if (!isFailure(result)) {
            none.push_back(result);
        }
    }
    const std::vector<int> expected = {0,   5,   12,  23,  24,  30,  31,  34,  42,
                                       43,  50,  51,  52,  54,  57,  87,  122, 124,
                                       162, 209, 216, 268, 269, 274, 277, 279, 280};
    EXPECT_EQ(none, expected);
}

TEST(ErrorConverter, AgreesWithTheHostAndRefusesWhatHasNoCode) {
    const VardexErrorConverter converter;
    const auto coded =
        std::make_shared<const Ovr::ServiceError>(Ovr::Interfaces::ErrorCode::Truncated, "cut");
    EXPECT_EQ(converter.convertError(coded), Hx::IOMessages::IO_TRUNCATED);
    EXPECT_EQ(coded.use_count(), 1);

    using Error = std::shared_ptr<const Ovr::ErrorHandling::ErrorBase>;
    for (const Error& error :
         {Error(), Error(std::make_shared<Ovr::ErrorHandling::ErrorBase>("no code"))}) {
        EXPECT_THAT([&] { static_cast<void>(converter.convertError(error)); },
                    testing::ThrowsMessage<std::runtime_error>(
                        "Custom error needs special mapping, please implement."));
    }
}

TEST(RegisteredFunctions, TellMobileScansFromStationaryOnes) {
    const std::shared_ptr<Hx::PointSet> mobile = std::make_shared<CorvinMobilePointSet>(L"");
    const std::shared_ptr<Hx::PointSet> stance = std::make_shared<CorvinStancePointSet>(L"");
    EXPECT_EQ(slamScanSettingsId(mobile.get()), Tq_1_1::String(L"SlamScan"));
    EXPECT_TRUE(slamScanSettingsId(stance.get()).isNull());
    EXPECT_TRUE(slamScanSettingsId(nullptr).isNull());

    const std::shared_ptr<Hx::IScanPointTimes> times = scanPointTimesOf(mobile);
    EXPECT_EQ(times.get(), dynamic_cast<Hx::IScanPointTimes*>(mobile.get()));
    EXPECT_EQ(mobile.use_count(), 2);
    EXPECT_EQ(scanPointTimesOf(stance), nullptr);
    EXPECT_EQ(stance.use_count(), 1);
    EXPECT_EQ(scanPointTimesOf(nullptr), nullptr);
}

/// The one entry that registering puts into a list between those of others.
const HostRegistries::List::value_type& added(const HostRegistries& state, std::size_t list,
                                              std::size_t rank = 0) {
    return state.lists.at(list).at(ForeignEntries::kAfterPointSets + rank);
}

TEST(Registration, PutsEveryEntryAfterThoseOfTheHostsPointSets) {
    const ForeignEntries foreign;
    const HostRegistries before = HostRegistries::now();
    ASSERT_TRUE(registerAll());
    const HostRegistries state = HostRegistries::now();
    const void* mobile = CorvinMobilePointSet::Class();
    const void* stance = CorvinStancePointSet::Class();
    const auto function = [](auto* f) { return reinterpret_cast<const void*>(f); };
    using Entry = HostRegistries::List::value_type;
    EXPECT_EQ(added(state, 0, 1), Entry(mobile, function(&slamScanSettingsId)));
    EXPECT_EQ(added(state, 0), Entry(stance, function(&Hx::htmlUISettingsIdForGenericScans)));
    EXPECT_EQ(added(state, 1),
              Entry(stance, function(&Hx::patchPreProcessSettingsForGenericScans)));
    EXPECT_EQ(added(state, 2), Entry(mobile, function(&noFullResPanorama)));
    EXPECT_EQ(added(state, 3), Entry(stance, function(&alwaysReliableSphericalEstimation)));
    EXPECT_EQ(added(state, 4), Entry(mobile, function(&scanPointTimesOf)));
    EXPECT_EQ(added(state, 5),
              Entry(CorvinPointSet::Class(), function(&Hx::OvrPointSet::changedNotify)));
    for (std::size_t list = 0; list < state.lists.size(); ++list) {
        EXPECT_EQ(state.lists[list].size(), list == 0 ? 5U : 4U) << list;
        EXPECT_TRUE(list < 6 || added(state, list).first == stance) << list;
    }
    unregisterAll();
    EXPECT_EQ(HostRegistries::now(), before);
}

}  // namespace
}  // namespace Vardex
