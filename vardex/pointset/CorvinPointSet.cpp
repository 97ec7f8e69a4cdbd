// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "pointset/CorvinPointSet.h"

#include <cstddef>
#include <mutex>
#include <new>
#include <utility>

#include "Hx/PointSetIntegration.h"

#include "module/frame/ClassRecord.h"
#include "module/frame/VardexErrorConverter.h"

namespace Vardex {

Hx::PointContainerBase::ClassPointer CorvinPointSet::ClassCreator::create() const {
    return nullptr;
}

const Tq_1_1::HxClass* CorvinPointSet::Class() {
    return classRecord<CorvinPointSet, OvrPointSet>(L"CorvinPointSet");
}

const Tq_1_1::HxClass* CorvinPointSet::getClassType() const {
    return Class();
}

CorvinPointSet::CorvinPointSet(const Tq_1_1::String& name,
                               std::shared_ptr<Hx::PointSetIntegration> integration)
    : OvrPointSet(name, std::move(integration)) {}

CorvinPointSet::~CorvinPointSet() = default;

std::size_t CorvinPointSet::getRecordSize() const {
    return RecordLayouts::recordSize(records_.layout());
}

bool CorvinPointSet::resizePointStorage(int rows, int cols, bool allocate, bool withReflection) {
    return sizeRecords(rows, cols, allocate, layoutFor(withReflection));
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
    return nullptr;
}

}  // namespace Vardex
