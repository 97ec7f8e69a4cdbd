// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <memory>
#include <optional>
#include <string>

#include "Hx/IOMessages.h"
#include "Hx/OvrPointSet.h"
#include "Hx/Uuid.h"
#include "Ovr/Vardex/CorvinMetaData.h"
#include "Tq/HxClass.h"

#include "module/frame/VardexExport.h"
#include "pointset/PointRecordLayout.h"
#include "pointset/core/PointRecordStore.h"

namespace Vardex {

/// The common base of the scanner's point sets: keeps the points of a loaded scan in records of its
/// own, knows the scanner's metadata, and imports scans.
///
/// Addresses. How a form of an accessor treats a point outside the grid:
/// - guarded: no point while the data are not valid or the cell lies outside the grid;
/// - by index: no point while the data are not valid or the index is not below rows x cols;
/// - unguarded: the flat index is computed without a test, so a cell outside the grid may be
///   another point. Requires: the caller keeps 0 <= row < rows and 0 <= col < cols.
/// An item is used as it is. No form touches anything outside the records: where no record is,
/// reads give the host's null point or 0, and writes do nothing.
///
/// Threads: the accessors take no lock. Several threads may read at once; whoever writes holds the
/// scan's point-data write lock.
class VARDEX_EXPORT CorvinPointSet : public Hx::OvrPointSet {
  public:
    /// The class record's kind. Instances come from the host's point-set factory.
    class ClassCreator : public Tq_1_1::CreateableHxClass<Hx::PointContainerBase> {
      public:
        using CreateableHxClass::CreateableHxClass;
        /// @return empty
        Hx::PointContainerBase::ClassPointer create() const override;
    };

    static const Tq_1_1::HxClass* Class();
    const Tq_1_1::HxClass* getClassType() const override;
    ~CorvinPointSet() override;

    /// The layout of the records that the points are kept in; None until the set was sized.
    PointRecordLayout getRecordLayout() const { return records_.layout(); }
    /// Bytes that one record takes in this layout; 0 for None.
    std::size_t getRecordSize() const;

    // --- Sizes and addresses -------------------------------------------------------------------
    /// rows x cols while the data are valid, else 0: the indices below it address points.
    std::uint64_t getNumPoints() const final;
    int getNumRows() const final { return rows_; }
    int getNumCols() const final { return cols_; }
    ColRow getSize() const final { return {cols_, rows_}; }
    int sizeCols() const final { return cols_; }
    int sizeRows() const final { return rows_; }

    Hx::SelectItem getSelectItem(const ColRow& colRow) const final;         ///< guarded
    Hx::SelectItem getSelectItem(std::uint64_t index) const final;          ///< by index
    Hx::SelectItem getSelectItem(int row, int col) const final;             ///< guarded
    void getSelectItem(int row, int col, Hx::SelectItem& out) const final;  ///< unguarded
    Hx::SelectItem makeSelectItem(int row, int col) const final;            ///< unguarded
    using OvrPointSet::getColRow;
    /// The cell of an item; (0, 0) without columns.
    ColRow getColRow(const Hx::SelectItem& item) const final;
    ColRow getColRow(std::uint64_t index) const final;
    /// (row, col)
    Tq_1_1::SVec2d<int> getRowCol(const Hx::SelectItem& item) const final;

    // --- Points --------------------------------------------------------------------------------
    // References are valid until the records are sized anew or get their times.
    const ScanPt& getScanPt(const ColRow& colRow) const final;  ///< unguarded
    const ScanPt& getScanPt(int row, int col) const final;      ///< unguarded
    const ScanPt& getScanPt(std::uint64_t index) const final;   ///< as an item
    void getScanPt(const Hx::SelectItem& item, ScanPt& out) const final;
    const ScanPt& getScanPt(const Hx::SelectItem& item) const final;
    // Writing a point sets the record's separate reflection and its time to 0.
    void setScanPt(const ColRow& colRow, const ScanPt& point) final;  ///< unguarded
    void setScanPt(const Tq_1_1::SVec2d<unsigned int>& colRow,
                   const ScanPt& point) final;                       ///< unguarded
    void setScanPt(int row, int col, const ScanPt& point) final;     ///< unguarded
    void setScanPt(std::uint64_t index, const ScanPt& point) final;  ///< as an item
    void setScanPt(const Hx::SelectItem& item, const ScanPt& point) final;

    /// Length of the position [m], computed in single precision.
    /// @return -1.0 for the invalid item; 0.0 where no record is
    double getDistance(const Hx::SelectItem& item) const final;
    /// Moves the point along its ray, and one at the origin along +x. Writes it like setScanPt.
    /// @param distance  [m], narrowed to single precision
    void setDistance(const Hx::SelectItem& item, double distance) final;

    Color getColor(int row, int col) const final;     ///< guarded
    Color getColor(std::uint64_t index) const final;  ///< by index
    Color getColor(const Hx::SelectItem& item) const final;
    void setColor(int row, int col, const Color& color) final;     ///< unguarded
    void setColor(std::uint64_t index, const Color& color) final;  ///< by index
    void setColor(const Hx::SelectItem& item, const Color& color) final;

    unsigned short getReflection(int row, int col) const final;     ///< guarded
    unsigned short getReflection(std::uint64_t index) const final;  ///< by index
    /// Without a separate reflection: the one in the colour bytes, or the lightness of the colour.
    unsigned short getReflection(const Hx::SelectItem& item) const final;
    void setReflection(int row, int col, unsigned short reflection) final;  ///< unguarded
    /// Without a separate reflection it replaces the colour.
    void setReflection(const Hx::SelectItem& item, unsigned short reflection) final;
    bool hasSeparateReflection() const final;

    Normal getNormal(int row, int col) const final;     ///< guarded
    Normal getNormal(std::uint64_t index) const final;  ///< by index
    Normal getNormal(const Hx::SelectItem& item) const final;
    void setNormal(int row, int col, const Normal& normal) final;     ///< guarded
    void setNormal(std::uint64_t index, const Normal& normal) final;  ///< by index
    void setNormal(const Hx::SelectItem& item, const Normal& normal) final;

    bool hasThreadSafeScanPoints() const override { return true; }

    // --- Record storage ------------------------------------------------------------------------
    /// Sizes the records and the host's counts; without @p allocate the records are dropped.
    /// @return false when memory runs out: the storage is then plain and empty, the counts are as
    ///         they were
    /// @throw std::length_error  rows x cols is negative in 32 bits; nothing has changed
    bool resizePointStorage(int rows, int cols, bool allocate, bool withReflection) override;
    bool supportsResize() const override { return true; }

    // --- Scanner metadata ----------------------------------------------------------------------
    // The setters mark the point set's info as modified, also when the scan has no metadata to
    // write to. Texts are stored as they are.
    void setScannerModel(const Tq_1_1::String& model);
    void setScannerSerialNo(const Tq_1_1::String& serialNumber);
    void setScannerFirmware(const Tq_1_1::String& version);
    void setScannerSoftware(const Tq_1_1::String& version);
    void setScannerVendor(const Tq_1_1::String& vendor);
    /// Stores whole microseconds. A time that they cannot hold is not stored.
    /// @param seconds  [s] since 1970-01-01 UTC
    void setRecordingTime(double seconds);
    void setRecordingSessionId(const Hx::Uuid& id);
    /// @return the default identifier when there is none or its text is not an identifier
    Hx::Uuid getRecordingSessionId() const;
    /// @return [s] since 1970-01-01 UTC; empty when the recording time is unknown (0)
    std::unique_ptr<Hx::Time> getScanRecordingTime() const override;

    // --- Import and project output -------------------------------------------------------------
    /// Loads the points of a file, hands its statistics to the host, and names a nameless set after
    /// the file. Holds the scan's point-data write lock meanwhile. The host's copy of the metadata
    /// is refreshed at the end, also after a failure.
    /// @return an IO result: IO_LOCK_NOT_OBTAINED when the lock was not given in time or not valid;
    ///         IO_ERROR when it was not given a second time; the converted error of the load;
    ///         IO_INVALID_FILE_NAME when the set needs a name and the path gives none
    /// @throw std::runtime_error  an error of the load without a code of the service
    int import(Hx::FileInfo& fileInfo, Hx::AllocMain& alloc) override;
    /// Writes the set's id as a value named by the class of its scan data.
    /// Leaves the stream's precision at 8. @return 0
    int writeScanDataId(std::ostream& out, std::shared_ptr<Hx::WriteContextBase> context) override;

    std::unique_ptr<Hx::SpecificErrorConverterBase> createErrorConverter() const override;

    // --- What the host asks of every point set -------------------------------------------------
    bool isPanorama() const override { return false; }
    bool isCubeMap() const override { return false; }
    bool isRangeImage() const override { return false; }
    bool isMirrored() const override { return false; }
    int getMaxDisplayReflection() const override { return getMaxReflection(); }
    int getMinDisplayReflection() const override { return getMinReflection(); }
    double getReflectionGamma() const override { return 0.0; }
    void setReflectionGamma(double /*gamma*/) override {}
    std::shared_ptr<const Hx::ReflHistogram> getReflHistogram() const override;
    Tq_1_1::String getColorMapName() const override { return Tq_1_1::String::NIL; }
    int getColorMapIndex() const override { return 0; }
    void setColorMapIndex(int /*index*/) override {}
    std::optional<double> getPointAccuracy() const override { return std::nullopt; }
    Hx::ScanRegion getScanRegion() const override { return {}; }
    bool needsStreams() const override { return false; }
    bool hasImageStream() const override { return false; }
    bool hasDepthStream() const override { return false; }
    bool hasVideoStream() const override { return false; }

  protected:
    /// Longest wait for the point-data write lock [ms].
    static constexpr int kPointDataLockTimeout = 5000;

    /// @param integration  connects the set with its scan data, which exist already
    CorvinPointSet(const Tq_1_1::String& name,
                   std::shared_ptr<Hx::PointSetIntegration> integration);

    PointRecordStore& recordStore() { return records_; }
    const PointRecordStore& recordStore() const { return records_; }

    /// The layout without times that the host asks for.
    static constexpr PointRecordLayout layoutFor(bool withReflection) {
        return withReflection ? PointRecordLayout::WithReflection : PointRecordLayout::Plain;
    }
    /// What resizePointStorage does, for the layout that the set wants.
    bool sizeRecords(int rows, int cols, bool allocate, PointRecordLayout layout);

    /// The metadata of the scan, shared; empty when it has none. The base gives none: a derived
    /// class knows its kind of scan data.
    virtual std::shared_ptr<Ovr::VardexLib::CorvinMetaData> metaData() const;

    /// The outcome of a service call.
    /// @throw std::runtime_error  an error without a code of the service
    Hx::IOMessages::IOResult resultOf(const Ovr::ErrorPtr& error) const;

  private:
    VARDEX_INTERNAL std::uint64_t guardedIndex(int row, int col) const;
    VARDEX_INTERNAL std::uint64_t boundedIndex(std::uint64_t index) const;

    using TextSetter = void (Ovr::VardexLib::CorvinMetaData::*)(const std::string&);
    VARDEX_INTERNAL void setMetaDataText(TextSetter set, const Tq_1_1::String& text);

    VARDEX_INTERNAL int importPoints(const Hx::FileInfo& fileInfo);
    VARDEX_INTERNAL void takeStatistics(const Ovr::StatisticsReport& report);
    VARDEX_INTERNAL int nameAfterFile(const Tq_1_1::String& path);

    PointRecordStore records_;
};

}  // namespace Vardex
