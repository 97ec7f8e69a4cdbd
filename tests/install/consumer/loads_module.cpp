// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <iostream>
#include <string>

#include "Hx/Models.h"
#include "Hx/OvrPointSet.h"
#include "Hx/PointSetFactory.h"
#include "Platform/LibraryLoader.h"

// Opens the module that the argument names, keeps a point in a point set of it, and closes it.

namespace {

bool keepsPoints(const wchar_t* identifier) {
    const auto set = std::dynamic_pointer_cast<Hx::OvrPointSet>(
        Hx::Models::the().getPointSetFactory()->create(identifier));
    if (set == nullptr || !set->resize(1, 3)) {
        return false;
    }
    Hx::PointSet::ScanPt point = set->getScanPt(0, 2);
    point.setPosition({1.5F, -2.0F, 0.25F});
    set->setScanPt(0, 2, point);
    return set->getScanPt(0, 2).position() == Tq_1_1::Vec3d<float>{1.5F, -2.0F, 0.25F};
}

}  // namespace

int main(int argc, char** argv) {
    std::string error;
    auto library = Platform::LoadedLibrary::open(argc > 1 ? argv[1] : "", error);
    if (!library) {
        std::cerr << error << '\n';
        return 1;
    }
    const bool works =
        keepsPoints(L"Vardex.CorvinStanceScan") && keepsPoints(L"Vardex.CorvinMobileScan");
    library.reset();
    const bool gone = !Platform::LoadedLibrary::isMapped(argv[1]);
    std::cout << (works ? "keeps points" : "keeps no points") << (gone ? ", gone" : ", stays");
    return works && gone ? 0 : 1;
}
