// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "BenchPointSets.h"

#include <utility>

#include "mobile/CorvinMobilePointSet.h"

namespace Vardex::Bench {

namespace {

template <typename Record>
class VectorPoints final : public OpaquePoints {
  public:
    explicit VectorPoints(std::vector<Record> records) : records_(std::move(records)) {}
    const ScanPoint& pointAt(std::uint64_t index) const override { return records_[index].point; }
    void setPointAt(const Hx::SelectItem& item, const ScanPoint& point) override {
        records_[item.index].replacePoint(point);
    }

  private:
    std::vector<Record> records_;
};

}  // namespace

template <typename Record>
std::unique_ptr<OpaquePoints> makeOpaquePoints(std::vector<Record> records) {
    return std::make_unique<VectorPoints<Record>>(std::move(records));
}

template std::unique_ptr<OpaquePoints> makeOpaquePoints(std::vector<PlainRecord>);
template std::unique_ptr<OpaquePoints> makeOpaquePoints(std::vector<ReflectionRecord>);
template std::unique_ptr<OpaquePoints> makeOpaquePoints(std::vector<TimeRecord>);
template std::unique_ptr<OpaquePoints> makeOpaquePoints(std::vector<ReflectionTimeRecord>);

std::shared_ptr<Hx::PointSet> makePointSet(PointRecordLayout layout, int rows, int cols) {
    auto set = std::make_shared<CorvinMobilePointSet>(L"bench");
    // Without valid data this only says which records the next sizing makes.
    if (set->enableTimeStamps(RecordLayouts::has<TimeField>(layout)) != 0 ||
        !set->resizePointStorage(rows, cols, true, RecordLayouts::has<ReflectionField>(layout))) {
        return nullptr;
    }
    set->setValidData(true);
    return set;
}

}  // namespace Vardex::Bench
