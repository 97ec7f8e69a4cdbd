// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include "HostExport.h"
#include "Hx/FileDataObject.h"
#include "Hx/IOMessages.h"
#include "Ovr/ProjectFile.h"
#include "Tq/File.h"

namespace Hx {

class PtSetObject;

/// Says that a class can tell whether its objects are complete.
class HOST_EXPORT ValidationInterface {
  public:
    virtual ~ValidationInterface();

    virtual bool isValid() const = 0;
};

/// An object that stands for a scanner's project file.
class HOST_EXPORT RawScanFileObject : public MiscFileDataObject, public ValidationInterface {
  public:
    static const Tq_1_1::HxClass* Class();
    const Tq_1_1::HxClass* getClassType() const override;

    RawScanFileObject();

    /// Shares the project of a source that has one.
    void init(CreateType type, const AttrContainer* source) override;

    /// Reads a project file. Points are not read: the application imports the project's scans. The
    /// text of a failure is in lastErrorMessage.
    /// @param scan  the scan that the file belongs to: this object becomes its child. Null leaves
    ///              the object where it is.
    /// @return IO_OK; IO_UNKNOWN_FIELDS when the file was read and has fields that are not
    ///         understood, see ProjectFile::warnings. Any other value is a failure: the object and
    ///         the tree are as before. IO_ERROR when the object has another parent than @p scan,
    ///         or is above it.
    /// Requires: init was called, and this object is held by a SmartPtr.
    [[nodiscard]] IOMessages::IOResult fillFrom(const Tq_1_1::File& file, PtSetObject* scan);

    /// @return null until the object was filled
    const std::shared_ptr<const Ovr::ProjectFile>& getProject() const { return project_; }
    /// Whether a project was read.
    bool isValid() const override { return project_ != nullptr; }

  protected:
    ~RawScanFileObject() override;

  private:
    std::shared_ptr<const Ovr::ProjectFile> project_;
};

}  // namespace Hx
