// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include "HostExport.h"
#include "Hx/Transform.h"
#include "Tq/String.h"

namespace Hx {

/// Says that a class stands for data elsewhere.
class HOST_EXPORT AccessibleInterface {
  public:
    virtual ~AccessibleInterface();

    /// Whether the data can be reached now.
    virtual bool isAccessible() const = 0;
};

/// An object that stands for a file.
class HOST_EXPORT FileDataObject : public Transform, public AccessibleInterface {
  public:
    static constexpr unsigned int ATTR_FILE_PATH = 2;  ///< token of the attribute "FilePath"

    static const Tq_1_1::HxClass* Class();
    const Tq_1_1::HxClass* getClassType() const override;

    FileDataObject();

    /// @param number  tells files of one name apart: from 2 on it follows the name, "site (2)"
    void setName(const Tq_1_1::String& name, int number);

    /// @return a null string until the object was filled from a file
    const Tq_1_1::String& getFilePath() const;
    /// Whether the file can be seen now.
    bool isAccessible() const override;

  protected:
    ~FileDataObject() override = default;

    /// Requires: init was called.
    void setFilePath(const Tq_1_1::String& path);
};

/// An object that stands for a file whose content is no point set itself.
class HOST_EXPORT MiscFileDataObject : public FileDataObject {
  public:
    static const Tq_1_1::HxClass* Class();
    const Tq_1_1::HxClass* getClassType() const override;

  protected:
    ~MiscFileDataObject() override = default;
};

}  // namespace Hx
