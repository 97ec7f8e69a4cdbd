// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/RawScanFileObject.h"

#include <string>
#include <utility>

#include "Hx/ErrorConversion.h"
#include "Hx/PtSetObject.h"
#include "Ovr/FormatRegistry.h"
#include "Tq/Path.h"

namespace Hx {

RawScanFileObject::RawScanFileObject() = default;

void RawScanFileObject::init(CreateType type, const AttrContainer* source) {
    MiscFileDataObject::init(type, source);
    const auto* const original = dynamic_cast<const RawScanFileObject*>(source);
    if (original != nullptr && type != CREATE_TEMPLATE) {
        project_ = original->project_;
    }
}

IOMessages::IOResult RawScanFileObject::fillFrom(const Tq_1_1::File& file, PtSetObject* scan) {
    if (scan != nullptr && getParent() != nullptr && getParent() != scan) {
        setLastErrorMessage(file.getPath().toUtf8() + ": its object belongs to another scan");
        return IOMessages::IO_ERROR;
    }
    auto project = std::make_shared<Ovr::ProjectFile>();
    const std::string path = file.getPath().toUtf8();
    const auto error = Ovr::FormatRegistry::the().readProject(Tq_1_1::pathFromUtf8(path), *project);
    if (error) {
        return convertError(error, nullptr);
    }
    if (scan != nullptr && getParent() == nullptr &&
        !scan->addChild(Tq_1_1::SmartPtr<Object>(this))) {
        setLastErrorMessage(path + ": its object cannot be put below the scan");
        return IOMessages::IO_ERROR;
    }
    project_ = std::move(project);
    setFilePath(file.getPath());
    return project_->warnings.empty() ? IOMessages::IO_OK : IOMessages::IO_UNKNOWN_FIELDS;
}

}  // namespace Hx
