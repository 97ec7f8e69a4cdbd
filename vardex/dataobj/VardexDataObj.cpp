// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "dataobj/VardexDataObj.h"

#include <json/value.h>

#include <cstdint>

#include "Hx/Attribute.h"
#include "Hx/IOMessages.h"
#include "Hx/JSONWriter.h"
#include "Hx/ModelContext.h"
#include "Hx/Models.h"
#include "Hx/PtSetObject.h"

#include "module/frame/ClassRecord.h"
#include "module/frame/IoResult.h"

namespace Vardex {

namespace {

constexpr std::int32_t kNotProcessed = -1;

}  // namespace

const std::string VardexDataObj::JSON_ATTR_IS_POINT_CLOUD = "IsPointCloud";
const std::string VardexDataObj::JSON_ATTR_POINT_CLOUD = "PointCloud";
const std::string VardexDataObj::JSON_ATTR_IS_PROCESSING_DONE = "IsProcessed";

VardexDataObj::ClassCreator::~ClassCreator() {
    clearStatics();
}

Tq_1_1::StrictSmartPtr<Tq_1_1::BaseNode> VardexDataObj::ClassCreator::create() const {
    return Tq_1_1::StrictSmartPtr<Tq_1_1::BaseNode>(new VardexDataObj);
}

void VardexDataObj::ClassCreator::initClassStatics() const {
    initStatics();
}

void VardexDataObj::ClassCreator::clearClassStatics() const {
    clearStatics();
}

VardexDataObj::~VardexDataObj() = default;

const Tq_1_1::HxClass* VardexDataObj::Class() {
    return classRecord<VardexDataObj, RawScanFileObject>(L"VardexDataObj");
}

const Tq_1_1::HxClass* VardexDataObj::getClassType() const {
    return Class();
}

bool VardexDataObj::isPointCloud() const {
    return static_cast<bool>(getParentScan());
}

bool VardexDataObj::isProcessed() const {
    return static_cast<bool>(getParentScan());
}

int VardexDataObj::createFromImportedKpx(const std::shared_ptr<Tq_1_1::File>& file,
                                         Tq_1_1::SmartPtr<VardexDataObj>& result) {
    if (file == nullptr || !file->exists()) {
        return Hx::IOMessages::IO_FILE_NOT_FOUND;
    }
    const Tq_1_1::SmartPtr<VardexDataObj> object(new VardexDataObj);
    object->init(CREATE_NEW, nullptr);
    const int outcome = object->fillFrom(*file, nullptr);
    if (!isFailure(outcome)) {
        result = object;
    }
    return outcome;
}

Hx::Action::ExecReturn VardexDataObj::changedNotify(const Tq_1_1::SmartPtr<Hx::Observer>& observer,
                                                    const Tq_1_1::SmartPtr<Hx::Observer>& source) {
    Hx::AllocMain models(true, Hx::Models::the().context(Hx::ModelContext::ALL_MODELS));
    // Held no longer than it takes to get: whoever is told of the change may wait for the models.
    models.release();
    return Object::changedNotify(observer, source);
}

Tq_1_1::StrictSmartPtr<Hx::AttrContainer> VardexDataObj::doDuplicate(CreateType type) const {
    const Tq_1_1::StrictSmartPtr<VardexDataObj> copy(new VardexDataObj);
    copy->init(type, type == CREATE_TEMPLATE ? nullptr : this);
    return copy;
}

void VardexDataObj::init(CreateType type, const Hx::AttrContainer* source) {
    RawScanFileObject::init(type, source);
    // The table is the class's own: nothing in it can be refused.
    static_cast<void>(createAttributes(attrDefs, type, source));
    if (source != nullptr) {
        return;
    }
    setName(getClassType()->getName(), 0);
    if (const auto progress = getAttribute(ATTR_PROCESSING_PROGRESS)) {
        progress->setValue(kNotProcessed, this);
    }
}

Json::Value VardexDataObj::toJson() const {
    using Tq_1_1::String;
    Json::Value form = Transform::toJson();
    Hx::JSONWriter::write(form, String::fromUtf8(JSON_ATTR_IS_POINT_CLOUD), false);
    Hx::JSONWriter::write(form, String::fromUtf8(JSON_ATTR_POINT_CLOUD), isPointCloud());
    Hx::JSONWriter::write(form, String::fromUtf8(JSON_ATTR_IS_PROCESSING_DONE), isProcessed());
    return form;
}

}  // namespace Vardex
