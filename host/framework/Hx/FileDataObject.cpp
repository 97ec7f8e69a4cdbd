// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Hx/FileDataObject.h"

#include <string>

#include "Tq/File.h"

namespace Hx {

FileDataObject::FileDataObject() {
    static const AttrDefinition table[] = {{ATTR_FILE_PATH, L"FilePath", ATTR_STORED, ATTR_STRING},
                                           {}};
    addOwnTable(table);
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
