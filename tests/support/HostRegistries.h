// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <stdexcept>
#include <utility>
#include <vector>

#include "Hx/IScanPointTimes.h"
#include "Hx/Models.h"
#include "Hx/OvrPointSet.h"
#include "Hx/PointSetFactory.h"
#include "Hx/PointSetOps.h"
#include "Hx/PtSetObject.h"
#include "Hx/ScanPolar3dFactory.h"

namespace Support {

/// Calls @p visit with the entries of every list of the host that a module may edit.
template <typename Visit>
void forEachOperationList(const Visit& visit) {
    visit(Hx::PointSetOps::PreProcess::htmlUISettingsId.entries);
    visit(Hx::PointSetOps::PreProcess::patchPreProcessSettings.entries);
    visit(Hx::PointSetOps::OpenQuickView::isFullResPanoramaAvailable.entries);
    visit(Hx::SphericalCoordinateEstimation::Operations::hasReliableSphericalEstimation.entries);
    visit(Hx::IScanPointTimes::Operations::hasScanPointTimes.entries);
    visit(Hx::PtSetObject::Operations::changedNotifyOperation.entries);
    visit(Hx::getScanPolarFactory<double>().createEmpty.entries);
    visit(Hx::getScanPolarFactory<double>().createCopy.entries);
    visit(Hx::getScanPolarFactory<double>().createFromCartesian.entries);
    visit(Hx::getScanPolarFactory<float>().createEmpty.entries);
    visit(Hx::getScanPolarFactory<float>().createCopy.entries);
    visit(Hx::getScanPolarFactory<float>().createFromCartesian.entries);
}

/// The content of the host's registries at one moment, to be compared with that of another.
struct HostRegistries {
    using List = std::vector<std::pair<const void*, const void*>>;
    std::vector<List> lists;
    std::vector<Tq_1_1::String> identifiers;

    static HostRegistries now() {
        HostRegistries state;
        forEachOperationList([&state](const auto& entries) {
            List& list = state.lists.emplace_back();
            for (const auto& [type, function] : entries) {
                list.emplace_back(type, reinterpret_cast<const void*>(function));
            }
        });
        if (const auto factory = Hx::Models::the().getPointSetFactory()) {
            state.identifiers = factory->identifiers();
        }
        return state;
    }

    friend bool operator==(const HostRegistries&, const HostRegistries&) = default;
};

/// During its life every list holds entries of others. The first is for every class, the second for
/// the host's point sets, the last for an unrelated class.
class ForeignEntries {
  public:
    ForeignEntries() : record_(L"Foreign", nullptr, Tq_1_1::hostModule(), {}) {
        forEachOperationList([this](auto& entries) {
            entries.emplace_back(nullptr, nullptr);
            entries.emplace_back(Hx::OvrPointSet::Class(), nullptr);
            entries.emplace_back(&record_, nullptr);
        });
    }
    ForeignEntries(const ForeignEntries&) = delete;
    ForeignEntries& operator=(const ForeignEntries&) = delete;
    ~ForeignEntries() {
        forEachOperationList([](auto& entries) { entries.clear(); });
    }

    /// The place after the entry for the host's point sets.
    static constexpr std::size_t kAfterPointSets = 2;

  private:
    Tq_1_1::HxClass record_;
};

/// A factory that refuses one request, or throws.
class PickyFactory final : public Hx::PointSetFactory {
  public:
    enum class Manner { Refuses, Throws, ThrowsWhenLeft };

    /// @param refused  number of the request that is refused, from 1; 0 for none
    /// @param manner   how; ThrowsWhenLeft throws at each unregistration, which takes place
    explicit PickyFactory(int refused, Manner manner = Manner::Refuses)
        : refused_(refused), manner_(manner) {}

    bool registerPointSet(const Tq_1_1::String& identifier, Creator creator,
                          const Tq_1_1::String& further) override {
        if (++asked_ != refused_) {
            return PointSetFactory::registerPointSet(identifier, std::move(creator), further);
        }
        if (manner_ == Manner::Throws) {
            throw std::runtime_error("refused");
        }
        return false;
    }

    bool unregisterPointSet(const Tq_1_1::String& identifier) override {
        const bool known = PointSetFactory::unregisterPointSet(identifier);
        if (manner_ == Manner::ThrowsWhenLeft) {
            throw std::runtime_error("left");
        }
        return known;
    }

  private:
    int refused_;
    Manner manner_;
    int asked_ = 0;
};

/// During its life the host has another factory, or none.
class FactoryChange {
  public:
    explicit FactoryChange(std::shared_ptr<Hx::PointSetFactory> factory)
        : previous_(Hx::Models::the().getPointSetFactory()) {
        Hx::Models::the().setPointSetFactory(std::move(factory));
    }
    FactoryChange(const FactoryChange&) = delete;
    FactoryChange& operator=(const FactoryChange&) = delete;
    ~FactoryChange() { Hx::Models::the().setPointSetFactory(previous_); }

  private:
    std::shared_ptr<Hx::PointSetFactory> previous_;
};

}  // namespace Support
