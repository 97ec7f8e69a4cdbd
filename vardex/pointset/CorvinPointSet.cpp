// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "pointset/CorvinPointSet.h"

#include <mutex>
#include <new>
#include <utility>

#include "Hx/PointSetIntegration.h"
#include "Ovr/Vardex/CorvinScanData.h"

#include "module/frame/ModuleRecord.h"
#include "module/frame/VardexErrorConverter.h"

namespace Vardex {

namespace {

// The host lists a module's classes as soon as the library is loaded.
[[maybe_unused]] const Tq_1_1::HxClass* const kRecord = CorvinPointSet::Class();

}  // namespace

Hx::PointContainerBase::ClassPointer CorvinPointSet::ClassCreator::create() const {
    return nullptr;
}

const Tq_1_1::HxClass* CorvinPointSet::Class() {
    static const ClassCreator record(L"CorvinPointSet", OvrPointSet::Class(), theModule(), {});
    return &record;
}

const Tq_1_1::HxClass* CorvinPointSet::getClassType() const {
    return Class();
}

CorvinPointSet::CorvinPointSet(const Tq_1_1::String& name,
                               std::shared_ptr<Hx::PointSetIntegration> integration)
    : OvrPointSet(name, std::move(integration)) {}

CorvinPointSet::~CorvinPointSet() = default;

bool CorvinPointSet::resizePointStorage(int rows, int cols, bool allocate, bool withReflection) {
    return sizeRecords(
        rows, cols, allocate,
        withReflection ? PointRecordLayout::WithReflection : PointRecordLayout::Plain);
}

bool CorvinPointSet::sizeRecords(int rows, int cols, bool allocate, PointRecordLayout layout) {
    try {
        records_.resetRecords(allocate ? static_cast<std::uint32_t>(rows) : 0,
                              allocate ? static_cast<std::uint32_t>(cols) : 0, layout);
    } catch (const std::bad_alloc&) {
        records_.resetRecords(0, 0, PointRecordLayout::Plain);
        return false;
    }
    rows_ = rows;
    cols_ = cols;
    return true;
}

std::shared_ptr<const Hx::ReflHistogram> CorvinPointSet::getReflHistogram() const {
    const std::lock_guard lock(section_);
    return reflHistogram_;
}

std::unique_ptr<Hx::SpecificErrorConverterBase> CorvinPointSet::createErrorConverter() const {
    return std::make_unique<VardexErrorConverter>();
}

Hx::IOMessages::IOResult CorvinPointSet::resultOf(const Ovr::ErrorPtr& error) const {
    return Hx::convertError(error, createErrorConverter().get());
}

std::shared_ptr<Ovr::VardexLib::CorvinMetaData> CorvinPointSet::metaData() const {
    const auto* scanData = dynamic_cast<const Ovr::VardexLib::CorvinScanData*>(&getIScanData());
    return scanData == nullptr ? nullptr : scanData->getMetaData();
}

}  // namespace Vardex
