// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>
#include <string>

#include "HostExport.h"
#include "Hx/Action.h"
#include "Hx/ErrorConversion.h"
#include "Hx/ModificationScope.h"
#include "Hx/PointSet.h"
#include "Hx/PointWriteLock.h"
#include "Ovr/IScanData.h"
#include "Ovr/IScanIntegration.h"
#include "Ovr/Vardex/CorvinMetaData.h"

namespace Hx {

class Observer;
class PointSetIntegration;

/// A point set whose points are loaded by a scan-data object.
class HOST_EXPORT OvrPointSet : public PointSet {
  public:
    static const Tq_1_1::HxClass* Class();
    const Tq_1_1::HxClass* getClassType() const override;
    ~OvrPointSet() override;

    // Virtual operations. They follow those of PointSet, in this order.
    /// A new converter for one conversion, owned by the caller.
    virtual std::unique_ptr<SpecificErrorConverterBase> createErrorConverter() const = 0;
    virtual bool supportsResize() const = 0;
    /// Sizes the record storage and writes the counts. Requires: isPossibleSize.
    /// @param allocate  false only writes the counts and drops the records
    /// @return false when memory runs out; the storage is empty then
    [[nodiscard]] virtual bool resizePointStorage(int rows, int cols, bool allocate,
                                                  bool withReflection) = 0;
    /// Refreshes the host's copy of the scan's metadata. Threads: any; no lock is needed.
    virtual void updateCachedMetaData();

    Ovr::Interfaces::IScanIntegration& getIScanIntegration() const;
    Ovr::Interfaces::IScanData& getIScanData() const;
    /// Null only for a point set made without an integration.
    const std::shared_ptr<PointSetIntegration>& getIntegration() const { return integration_; }

    /// Sizes the storage to @p rows x @p cols records without separate reflection. The data are
    /// not valid until validateData, unless they were valid in this size and form before.
    /// Requires: the caller holds the point write lock.
    /// @return false when the class supports no sizing, for counts that are not possible, and when
    ///         memory runs out
    [[nodiscard]] bool resize(int rows, int cols);

    /// A scope in which all data of the scan may change.
    [[nodiscard]] ModificationScope createModificationScope();
    /// @param timeout  longest wait [ms]
    [[nodiscard]] PointWriteLock lockPoints(int timeout);

    /// The file that was imported last.
    const FileInfo& getFileInfo() const { return fileInfo_; }
    void setFileInfo(const FileInfo& info) { fileInfo_ = info; }

    /// The host's copy of the metadata, as of the last updateCachedMetaData. Threads: any.
    const Ovr::VardexLib::CorvinMetaData& getCachedMetaData() const { return cachedMetaData_; }

    /// Tells a container's point set of a change: marks its info as modified.
    /// @return EXEC_IGNORED, and nothing has changed, for a null point set or a null source
    static Action::ExecReturn changedNotify(PtSetObject* container, PointSet* pointSet,
                                            Observer* observer, Observer* source);

  protected:
    OvrPointSet(const Tq_1_1::String& name, std::shared_ptr<PointSetIntegration> integration);

  private:
    std::shared_ptr<PointSetIntegration> integration_;
    FileInfo fileInfo_;
    Ovr::VardexLib::CorvinMetaData cachedMetaData_;
};

}  // namespace Hx
