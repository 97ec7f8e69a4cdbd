// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <ostream>

#include "Hx/Models.h"
#include "Hx/PtSetObject.h"

#include "mobile/CorvinMobilePointSet.h"
#include "trajectory/core/NodeConversion.h"
#include "trajectory/core/TrajectoryCache.h"
#include "trajectory/core/TrajectoryFraction.h"
#include "trajectory/core/TrajectorySelection.h"
#include "trajectory/core/TrajectoryText.h"

// The trajectory operations of the mobile point set: each fetches the nodes and leaves the rest to
// an algorithm of the core.

namespace Vardex {

using namespace Hx::IOMessages;
using Ovr::VardexLib::CorvinMobileScanData;
using Tq_1_1::Mat4d;
using Tq_1_1::Vec3d;
using Nodes = std::vector<Ovr::VardexLib::TrajectoryNode>;

namespace {

/// A value of a filter; 0.0 when the filter lacks it. While a command previews its settings the
/// previewed value counts.
double filterValue(const Hx::PC2TimeFilter& filter, std::size_t number) {
    const Hx::Attribute* attribute = filter.getAttribute(number);
    if (attribute != nullptr && Hx::Attribute::isCachedAttributePending()) {
        const auto* preview = dynamic_cast<const Hx::CachedAttributeInfo*>(
            attribute->lookupNotifyInfo(Hx::CachedAttributeInfo::Class()));
        if (preview != nullptr) {
            attribute = preview->getCachedAttribute().get();
        }
    }
    const double* value =
        attribute != nullptr ? std::get_if<double>(&attribute->getValue()) : nullptr;
    return value != nullptr ? *value : 0.0;
}

/// The way from the points' coordinates into the world; the identity for a set without a place in
/// the object tree. The tree is read under the guard of all models.
Mat4d<double> placementOf(const Hx::PtSetObject* container) {
    if (container == nullptr) {
        return Mat4d<double>::identity();
    }
    Hx::AllocMain guard(true, Hx::Models::the().context(Hx::ModelContext::ALL_MODELS));
    const Mat4d<double> placement = container->calcTrafoTo(nullptr);
    guard.release();
    return placement;
}

}  // namespace

void CorvinMobilePointSet::setTrajectoryNodes(
    const std::vector<std::shared_ptr<TrajectoryNode>>& nodes) {
    mobileScanData().setTrajectoryNodes(NodeConversion::serviceNodes(nodes));
}

Nodes CorvinMobilePointSet::fetchTrajectoryNodes() const {
    CorvinMobileScanData& scanData = mobileScanData();
    Nodes nodes = scanData.getTrajectoryNodes();
    if (!nodes.empty()) {
        return nodes;
    }
    const auto streams = getIScanIntegration().openStructuredStreams(false);
    if (streams == nullptr || CorvinMobileScanData::readTrajectory(*streams, nodes) != nullptr) {
        return {};
    }
    if (!nodes.empty()) {
        scanData.setTrajectoryNodes(nodes);
    }
    return nodes;
}

std::vector<Vec3d<double>> CorvinMobilePointSet::getSelectedTrajectory(
    const Hx::PC2TimeFilter& filter) const {
    const double startFraction = filterValue(filter, Hx::PC2TimeFilter::START_ATTRIBUTE);
    const double endFraction = filterValue(filter, Hx::PC2TimeFilter::END_ATTRIBUTE);
    const double duration = getMaxScanPointTime();
    const double start = duration * startFraction;
    const double end = duration * endFraction;
    if (start > end) {
        return {};
    }
    return TrajectorySelection::selectPositions(fetchTrajectoryNodes(), start, end);
}

bool CorvinMobilePointSet::getTrajectoryFractionAtPoint(
    const Vec3d<double>& point, const std::function<bool(const Vec3d<double>&)>& predicate,
    double& begin, double& end) const {
    const Nodes nodes = fetchTrajectoryNodes();
    if (nodes.empty()) {
        return false;
    }
    const TimeFraction fraction =
        TrajectoryFraction::fractionAround(nodes, point, predicate, getMaxScanPointTime());
    begin = fraction.begin;
    end = fraction.end;
    return true;
}

std::optional<Vec3d<double>> CorvinMobilePointSet::getRecordingPositionForTime(
    const double& seconds) const {
    trajectoryCache_->buildOnce([this] { buildTrajectoryCache(); });
    return trajectoryCache_->positionAt(seconds);
}

void CorvinMobilePointSet::buildTrajectoryCache() const {
    const Nodes nodes = fetchTrajectoryNodes();
    trajectoryCache_->fill(nodes, getMaxScanPointTime());
}

IOResult CorvinMobilePointSet::writeTrajectoryToStream(std::ostream& out) const {
    Nodes nodes = mobileScanData().getTrajectoryNodes();
    if (nodes.empty()) {
        const auto streams = getIScanIntegration().openStructuredStreams(false);
        if (streams == nullptr) {
            return IO_NO_STREAMS;
        }
        // Unlike a query, an export leaves the scan data as they are.
        if (const auto error = CorvinMobileScanData::readTrajectory(*streams, nodes)) {
            return Hx::convertError(*error, createErrorConverter().get());
        }
    }
    TrajectoryText::writeTrajectory(out, nodes, placementOf(getContainer()));
    return out.fail() ? IO_WRITE_FAILED : IO_OK;
}

}  // namespace Vardex
