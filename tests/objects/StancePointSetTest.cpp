// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "stance/CorvinStancePointSet.h"

#include <gtest/gtest.h>

#include <memory>

#include "Hx/PointSetOps.h"

#include "stance/ScanPolar3d.h"
#include "stance/ScanPolarCreators.h"
#include "support/AllocationLimit.h"

namespace Vardex {
namespace {

/// A check of the host's validation for as long as it lives.
class ValidationCheck {
  public:
    explicit ValidationCheck(int (*check)(Hx::PointSet*)) {
        list().emplace_back(CorvinStancePointSet::Class(), check);
    }
    ~ValidationCheck() { list().pop_back(); }
    ValidationCheck(const ValidationCheck&) = delete;
    ValidationCheck& operator=(const ValidationCheck&) = delete;

  private:
    static decltype(Hx::PointSetOps::Validate::validateData.entries)& list() {
        return Hx::PointSetOps::Validate::validateData.entries;
    }
};

TEST(CreateNewPointSet, MakesAUsableSetOfItsOwnClass) {
    const ValidationCheck warns([](Hx::PointSet*) { return 87; });
    const auto made = CorvinStancePointSet(L"scan").createNewPointSet(3, 4, L"copy");
    ASSERT_NE(made, nullptr);
    EXPECT_EQ(made->getName(), L"copy");
    EXPECT_EQ(made->getClassType(), CorvinStancePointSet::Class());
    EXPECT_EQ(made->getNumPoints(), 12U);
    EXPECT_EQ(made->shared_from_this(), made);
    EXPECT_NE(&made->getScanPt(2, 3), &Hx::PointSet::ScanPt::nullReference);
}

TEST(CreateNewPointSet, GivesNothingWhenTheHostFindsFault) {
    const CorvinStancePointSet set(L"scan");
    EXPECT_EQ(set.createNewPointSet(-1, 4, L"copy"), nullptr);
    {
        const Testing::AllocationLimit limit(10'000);
        EXPECT_EQ(set.createNewPointSet(100, 100, L"copy"), nullptr);
    }
    const ValidationCheck fails([](Hx::PointSet*) { return 1; });
    EXPECT_EQ(set.createNewPointSet(3, 4, L"copy"), nullptr);
}

TEST(CreateNewPointSet, GivesNothingWhenTheSecondSizingFails) {
    static std::unique_ptr<Testing::AllocationLimit> limit;
    const ValidationCheck drops([](Hx::PointSet* set) {
        static_cast<void>(
            static_cast<CorvinStancePointSet*>(set)->resizePointStorage(100, 100, false, false));
        limit = std::make_unique<Testing::AllocationLimit>(10'000);
        return 0;
    });
    EXPECT_EQ(CorvinStancePointSet(L"scan").createNewPointSet(100, 100, L"copy"), nullptr);
    limit.reset();
}

template <typename T>
class ScanPolarTest : public testing::Test {
  protected:
    static Tq_1_1::Vec3d<T> componentsOf(const Hx::Polar3d<T>& polar) { return polar; }
};

using Precisions = testing::Types<float, double>;
TYPED_TEST_SUITE(ScanPolarTest, Precisions);

TYPED_TEST(ScanPolarTest, CreatorsMakeValuesOfTheScannersConvention) {
    using T = TypeParam;
    using Vec = Tq_1_1::Vec3d<T>;
    const auto empty = createScanPolar<T>();
    EXPECT_NE(dynamic_cast<ScanPolar3d<T>*>(empty.get()), nullptr);
    EXPECT_EQ(this->componentsOf(*empty), Vec());

    const Hx::UnifiedPolar3d<T> unified(2, 1, T{0.5});
    const auto copy = createScanPolarCopy<T>(unified);
    EXPECT_NE(dynamic_cast<ScanPolar3d<T>*>(copy.get()), nullptr);
    EXPECT_EQ(this->componentsOf(*copy), Vec(2, 1, T{0.5})) << "components are not converted";

    const auto below = createScanPolarFromCartesian<T>(Vec(0, -1, 0));
    EXPECT_NE(dynamic_cast<ScanPolar3d<T>*>(below.get()), nullptr);
    EXPECT_EQ(this->componentsOf(*below), Vec(1, static_cast<T>(1.5707963267948966), 0));
}

TYPED_TEST(ScanPolarTest, ConventionsLeadToEachOther) {
    using T = TypeParam;
    const T quarter = static_cast<T>(1.5707963267948966);
    ScanPolar3d<T> scan(1, 3 * quarter, T{0.5});
    Hx::UnifiedPolar3d<T> unified = scan.getUnified();
    EXPECT_NEAR(unified.y, quarter, 1e-6);
    EXPECT_NEAR(unified.z, quarter - T{0.5}, 1e-6);
    EXPECT_EQ(&unified.setFromCartesian({0, 0, -3}), &unified);
    EXPECT_EQ(this->componentsOf(unified), Tq_1_1::Vec3d<T>(3, 0, 2 * quarter));
    EXPECT_EQ(&scan.setFromUnified(unified), &scan);
    EXPECT_EQ(this->componentsOf(scan), Tq_1_1::Vec3d<T>(3, 4 * quarter, -quarter));
}

template <template <typename> class Polar, typename T>
void expectCopiesOfItsOwn(const Polar<T>& polar) {
    EXPECT_EQ(dynamic_cast<const Polar<T>&>(*polar.clone()), polar);
    EXPECT_EQ(dynamic_cast<const Polar<double>&>(*polar.toDouble()).y, 1.5);
    EXPECT_EQ(dynamic_cast<const Polar<float>&>(*polar.toFloat()).z, -0.25F);
}

TYPED_TEST(ScanPolarTest, CopiesKeepTheConvention) {
    using T = TypeParam;
    expectCopiesOfItsOwn(ScanPolar3d<T>(2, T{1.5}, T{-0.25}));
    expectCopiesOfItsOwn(Hx::UnifiedPolar3d<T>(2, T{1.5}, T{-0.25}));
    const T quarter = static_cast<T>(1.5707963267948966);
    EXPECT_NEAR((ScanPolar3d<T>(2, 3 * quarter, 0).getCartesian().y), 2.0, 1e-6);
    EXPECT_NEAR((Hx::UnifiedPolar3d<T>(2, quarter, quarter).getCartesian().y), 2.0, 1e-6);
}

}  // namespace
}  // namespace Vardex
