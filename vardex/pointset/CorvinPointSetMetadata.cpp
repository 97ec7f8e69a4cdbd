// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <cstdint>

#include "Hx/TypeConversion.h"

#include "pointset/CorvinPointSet.h"
#include "pointset/core/RecordingTime.h"

namespace Vardex {

using Ovr::VardexLib::CorvinMetaData;

void CorvinPointSet::setMetaDataText(TextSetter set, const Tq_1_1::String& text) {
    setModifiedInfo(true);
    if (const auto record = metaData()) {
        std::string narrow;
        Hx::TypeConversion::convert(text, narrow);
        ((*record).*set)(narrow);
    }
}

void CorvinPointSet::setScannerModel(const Tq_1_1::String& model) {
    setMetaDataText(&CorvinMetaData::ScannerModel, model);
}

void CorvinPointSet::setScannerSerialNo(const Tq_1_1::String& serialNumber) {
    setMetaDataText(&CorvinMetaData::ScannerSerialNumber, serialNumber);
}

void CorvinPointSet::setScannerFirmware(const Tq_1_1::String& version) {
    setMetaDataText(&CorvinMetaData::ScannerFirmwareVersion, version);
}

void CorvinPointSet::setScannerSoftware(const Tq_1_1::String& version) {
    setMetaDataText(&CorvinMetaData::ProcessingSoftwareVersion, version);
}

void CorvinPointSet::setScannerVendor(const Tq_1_1::String& vendor) {
    setMetaDataText(&CorvinMetaData::ScannerVendor, vendor);
}

void CorvinPointSet::setRecordingTime(double seconds) {
    setModifiedInfo(true);
    const auto record = metaData();
    const auto microseconds = RecordingTime::microsecondsOf(seconds);
    if (record != nullptr && microseconds.has_value()) {
        record->RecordingTime(*microseconds);
    }
}

std::unique_ptr<Hx::Time> CorvinPointSet::getScanRecordingTime() const {
    const auto record = metaData();
    const std::int64_t microseconds = record != nullptr ? record->RecordingTime() : 0;
    if (microseconds == 0) {
        return nullptr;
    }
    auto time = std::make_unique<Hx::Time>();
    time->setTime(RecordingTime::secondsOf(microseconds));
    return time;
}

void CorvinPointSet::setRecordingSessionId(const Hx::Uuid& id) {
    setModifiedInfo(true);
    if (const auto record = metaData()) {
        Ovr::uuids::uuid serviceId;
        Hx::TypeConversion::convert(id, serviceId);
        record->RecordingSessionID(serviceId.string());
    }
}

Hx::Uuid CorvinPointSet::getRecordingSessionId() const {
    Hx::Uuid id;
    if (const auto record = metaData()) {
        Tq_1_1::String text;
        Hx::TypeConversion::convert(record->RecordingSessionID(), text);
        static_cast<void>(id.fromStr(text));  // a text that is no identifier leaves the default one
    }
    return id;
}

}  // namespace Vardex
