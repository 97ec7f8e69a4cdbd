// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <memory>
#include <string>

#include "Hx/PtSetObject.h"
#include "Ovr/Modification.h"

#include "dataobj/VardexDataObj.h"
#include "faults/Sweep.h"
#include "mobile/CorvinMobilePointSet.h"
#include "stance/CorvinStancePointSet.h"

namespace Vardex::Testing {

/// A file of each format, the same for all rigs: a mobile scan of six points with times, a path of
/// four poses from its first to its last point, two stances in one file, and their project.
struct ScanFiles {
    std::filesystem::path las, ptx, trajectory, project, folder;
    static const ScanFiles& the();
};

/// A mobile scan, a stance and a data object as a host holds them, on files.
class ScanRig : Ovr::DataStructures::IModificationListener {
  public:
    ScanRig();
    ~ScanRig() override;
    ScanRig(const ScanRig&) = delete;
    ScanRig& operator=(const ScanRig&) = delete;

    std::shared_ptr<CorvinMobilePointSet> walk = std::make_shared<CorvinMobilePointSet>(L"");
    std::shared_ptr<CorvinStancePointSet> hall = std::make_shared<CorvinStancePointSet>(L"");
    std::shared_ptr<Hx::WriteContextBase> context = std::make_shared<Hx::WriteContextBase>();
    Tq_1_1::SmartPtr<Hx::PtSetObject> container;
    Tq_1_1::SmartPtr<VardexDataObj> object;
    std::string result;  ///< what an operation gives

    /// @return an IO result
    static int import(Hx::OvrPointSet& set, const std::filesystem::path& file);
    /// Imports the walk; with its times when asked for.
    void importWalk(bool withTimes);
    /// Takes the data object's command filter from the host.
    static void removeFilter();

    Answers answers() const;
    /// Expects that another thread gets every lock, and that no scope and no guard is open.
    void expectFree() const;

  private:
    void modificationBegun(const Ovr::DataStructures::ScanDataModification&) override { ++scopes_; }
    void modificationEnded(const Ovr::DataStructures::ScanDataModification&) override { --scopes_; }

    int scopes_ = 0;
};

}  // namespace Vardex::Testing
