// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/FileDataObject.h"

#include <string>

#include "Tq/File.h"
#include "Tq/HxClass.h"
#include "Tq/Module.h"

namespace Hx {

namespace {

const AttrDefinition* attributeTable() {
    static const AttrDefinition table[] = {
        {FileDataObject::ATTR_FILE_PATH, L"FilePath", ATTR_STORED, ATTR_STRING},
        {},
    };
    return table;
}

}  // namespace

FileDataObject::~FileDataObject() = default;

const Tq_1_1::HxClass* FileDataObject::Class() {
    static const Tq_1_1::HxClass record(L"FileDataObject", Transform::Class(), Tq_1_1::hostModule(),
                                        {});
    return &record;
}

const Tq_1_1::HxClass* FileDataObject::getClassType() const {
    return Class();
}

void FileDataObject::init(CreateType type, const AttrContainer* source) {
    Transform::init(type, source);
    createAttributes(attributeTable(), type, source);
}

unsigned int FileDataObject::getAttrToken(const Tq_1_1::String& name) const {
    const AttrDefinition* const line = findAttrDefinition(attributeTable(), name);
    return line != nullptr ? line->token : Transform::getAttrToken(name);
}

const Tq_1_1::String& FileDataObject::getAttrName(unsigned int token) const {
    const AttrDefinition* const line = findAttrDefinition(attributeTable(), token);
    return line != nullptr ? line->name : Transform::getAttrName(token);
}

const AttrDefinition* FileDataObject::getAttrDefinition(unsigned int token) const {
    const AttrDefinition* const line = findAttrDefinition(attributeTable(), token);
    return line != nullptr ? line : Transform::getAttrDefinition(token);
}

void FileDataObject::setName(const Tq_1_1::String& name, int number) {
    if (number < 2) {
        Transform::setName(name);
        return;
    }
    Transform::setName(
        Tq_1_1::String(std::wstring(name.c_str()) + L" (" + std::to_wstring(number) + L")"));
}

const Tq_1_1::String& FileDataObject::getFilePath() const {
    return getTextAttribute(ATTR_FILE_PATH);
}

bool FileDataObject::isAccessible() const {
    const auto file = Tq_1_1::File::fromString(getFilePath());
    return file != nullptr && file->exists();
}

void FileDataObject::setFilePath(const Tq_1_1::String& path) {
    if (const auto attribute = getAttribute(ATTR_FILE_PATH)) {
        attribute->setValue(path, this);
    }
}

}  // namespace Hx
