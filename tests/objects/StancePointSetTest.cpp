// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "stance/CorvinStancePointSet.h"

#include <gtest/gtest.h>

#include <memory>

#include "Hx/PointSetOps.h"

#include "stance/ScanPolar3d.h"
#include "stance/ScanPolarCreators.h"

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

TEST(CreateNewPointSet, GivesNothingWhenASizingOrTheHostsCheckFails) {
    const CorvinStancePointSet set(L"scan");
    EXPECT_EQ(set.createNewPointSet(-1, 4, L"copy"), nullptr);
    const ValidationCheck fails([](Hx::PointSet*) { return 1; });
    EXPECT_EQ(set.createNewPointSet(3, 4, L"copy"), nullptr);
}

template <typename T>
class ScanPolarTest : public testing::Test {};

using Precisions = testing::Types<float, double>;
TYPED_TEST_SUITE(ScanPolarTest, Precisions);

/// Whether a polar value is of a class and has these components.
template <typename Polar, typename T>
bool isA(const Hx::Polar3d<T>& polar, T radius, T horizontal, T vertical) {
    const Tq_1_1::Vec3d<T>& components = polar;
    return dynamic_cast<const Polar*>(&polar) != nullptr &&
           components == Tq_1_1::Vec3d<T>(radius, horizontal, vertical);
}

TYPED_TEST(ScanPolarTest, CreatorsMakeValuesOfTheScannersConvention) {
    using T = TypeParam;
    using Scan = ScanPolar3d<T>;
    const T quarter = static_cast<T>(1.5707963267948966);
    const Hx::UnifiedPolar3d<T> unified(2, 1, T{0.5});
    EXPECT_TRUE((isA<Scan, T>(*createScanPolar<T>(), 0, 0, 0)));
    EXPECT_TRUE((isA<Scan, T>(*createScanPolarCopy<T>(unified), 2, 1, T{0.5}))) << "as they are";
    EXPECT_TRUE((isA<Scan, T>(*createScanPolarFromCartesian<T>({0, -1, 0}), 1, quarter, 0)));
}

TYPED_TEST(ScanPolarTest, ConventionsLeadToEachOther) {
    using T = TypeParam;
    using Unified = Hx::UnifiedPolar3d<T>;
    const T quarter = static_cast<T>(1.5707963267948966);
    ScanPolar3d<T> scan(1, 3 * quarter, T{0.5});
    Unified unified = scan.getUnified();
    EXPECT_NEAR(unified.y, quarter, 1e-6);
    EXPECT_NEAR(unified.z, quarter - T{0.5}, 1e-6);
    EXPECT_EQ(&unified.setFromCartesian({0, 0, -3}), &unified);
    EXPECT_TRUE((isA<Unified, T>(unified, 3, 0, 2 * quarter)));
    EXPECT_EQ(&scan.setFromUnified(unified), &scan);
    EXPECT_TRUE((isA<ScanPolar3d<T>, T>(scan, 3, 4 * quarter, -quarter)));
    EXPECT_NEAR((ScanPolar3d<T>(2, 3 * quarter, 0).getCartesian().y), 2.0, 1e-6);
    EXPECT_NEAR((Unified(2, quarter, quarter).getCartesian().y), 2.0, 1e-6);
}

template <template <typename> class Polar, typename T>
void expectCopiesOfItsOwn() {
    const Polar<T> polar(2, T{1.5}, T{-0.25});
    EXPECT_TRUE((isA<Polar<T>, T>(*polar.clone(), 2, T{1.5}, T{-0.25})));
    EXPECT_TRUE((isA<Polar<double>, double>(*polar.toDouble(), 2, 1.5, -0.25)));
    EXPECT_TRUE((isA<Polar<float>, float>(*polar.toFloat(), 2, 1.5F, -0.25F)));
}

TYPED_TEST(ScanPolarTest, CopiesKeepTheConvention) {
    expectCopiesOfItsOwn<ScanPolar3d, TypeParam>();
    expectCopiesOfItsOwn<Hx::UnifiedPolar3d, TypeParam>();
}

}  // namespace
}  // namespace Vardex
