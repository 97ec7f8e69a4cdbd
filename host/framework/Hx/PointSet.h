// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <memory>
#include <optional>
#include <vector>

#include "HostExport.h"
#include "Hx/CriticalSection.h"
#include "Hx/FileInfo.h"
#include "Hx/ModelContext.h"
#include "Hx/ModelOutput.h"
#include "Hx/PointContainer.h"
#include "Hx/Polar3d.h"
#include "Hx/SelectItem.h"
#include "Hx/Statistics.h"
#include "Hx/Time.h"
#include "Tq/Color4d.h"
#include "Tq/SVec2d.h"
#include "Tq/ScanPtColor.h"
#include "Tq/String.h"
#include "Tq/UnitVec3d.h"
#include "Tq/Vec3d.h"

namespace Hx {

class PtSetObject;
class SpecificErrorConverterBase;

/// A grid cell on screen: x is the column, y the row.
struct CPoint {
    int x = 0;
    int y = 0;

    friend constexpr bool operator==(const CPoint&, const CPoint&) = default;
};

/// How many points fall on each reflection, 256 classes.
struct ReflHistogram {
    std::vector<std::uint64_t> counts;
};

/// A rectangle of the grid, as (col, row) of its corners.
struct ScanRegion {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    friend constexpr bool operator==(const ScanRegion&, const ScanRegion&) = default;
};

/// The host's interface to a set of scan points in rows and columns. The virtual operations keep
/// their order: point-set classes of modules rely on it.
///
/// Grid: records lie row by row, flat index = row x cols + col. Pairs of coordinates are (col, row)
/// unless an operation says otherwise.
class HOST_EXPORT PointSet : public PointContainer, public PointDataInterf {
  public:
    using ScanPt = Tq_1_1::ScanPtColor<Tq_1_1::Vec3d<float>>;
    using Color = Tq_1_1::Color4d<unsigned char>;
    using Normal = Tq_1_1::UnitVec3d<double>;
    using ColRow = Tq_1_1::SVec2d<int>;

    static const Tq_1_1::HxClass* Class();
    const Tq_1_1::HxClass* getClassType() const override;
    ~PointSet() override = default;

    /// Whether the counts are 0 or more and their product fits 31 bits.
    static bool isPossibleSize(int rows, int cols);

    // --- Sizes and addresses -------------------------------------------------------------------
    // An item is invalid when its index has all bits set. Forms that are asked for an item or an
    // index outside the points read as the null point or 0 and write nothing; by row and column a
    // class may leave the test to the caller.
    /// Points that are loaded: rows x cols while the data are valid, else 0.
    virtual std::uint64_t getNumLoadedPoints() const;
    /// Points that can be addressed by flat index.
    virtual std::uint64_t getNumPoints() const = 0;
    virtual int getNumRows() const = 0;
    virtual int getNumCols() const = 0;
    /// (cols, rows)
    virtual ColRow getSize() const = 0;
    virtual SelectItem getSelectItem(const ColRow& colRow) const = 0;
    virtual SelectItem getSelectItem(std::uint64_t index) const = 0;
    virtual SelectItem getSelectItem(int row, int col) const = 0;
    virtual ColRow getColRow(const SelectItem& item) const = 0;
    virtual void getSelectItem(int row, int col, SelectItem& out) const = 0;
    virtual SelectItem makeSelectItem(int row, int col) const = 0;

    // --- Points --------------------------------------------------------------------------------
    virtual const ScanPt& getScanPt(const ColRow& colRow) const = 0;
    virtual const ScanPt& getScanPt(int row, int col) const = 0;
    virtual const ScanPt& getScanPt(std::uint64_t index) const = 0;
    virtual void getScanPt(const SelectItem& item, ScanPt& out) const = 0;
    virtual const ScanPt& getScanPt(const SelectItem& item) const = 0;
    virtual void setScanPt(const ColRow& colRow, const ScanPt& point) = 0;
    /// The same for callers that count with unsigned numbers.
    virtual void setScanPt(const Tq_1_1::SVec2d<unsigned int>& colRow, const ScanPt& point) = 0;
    virtual void setScanPt(int row, int col, const ScanPt& point) = 0;
    virtual void setScanPt(std::uint64_t index, const ScanPt& point) = 0;
    virtual void setScanPt(const SelectItem& item, const ScanPt& point) = 0;
    /// [m], from the origin of the points' frame; -1.0 for the invalid item
    virtual double getDistance(const SelectItem& item) const = 0;
    virtual void setDistance(const SelectItem& item, double distance) = 0;
    virtual Color getColor(int row, int col) const = 0;
    virtual Color getColor(std::uint64_t index) const = 0;
    virtual Color getColor(const SelectItem& item) const = 0;
    virtual void setColor(int row, int col, const Color& color) = 0;
    virtual void setColor(std::uint64_t index, const Color& color) = 0;
    virtual void setColor(const SelectItem& item, const Color& color) = 0;
    virtual void setReflection(int row, int col, unsigned short reflection) = 0;
    virtual void setReflection(const SelectItem& item, unsigned short reflection) = 0;
    virtual void setNormal(int row, int col, const Normal& normal) = 0;
    virtual void setNormal(std::uint64_t index, const Normal& normal) = 0;
    virtual void setNormal(const SelectItem& item, const Normal& normal) = 0;
    virtual bool hasSeparateReflection() const = 0;

    // --- Making, sizes in the other order ------------------------------------------------------
    /// A new point set of the same class; empty on failure.
    virtual std::shared_ptr<PointSet> createNewPointSet(int size1, int size2,
                                                        const Tq_1_1::String& name) const = 0;
    /// Sizes before any reduction; the same as sizeRows and sizeCols here.
    virtual int oSizeRows() const;
    virtual int oSizeCols() const;
    virtual int sizeCols() const = 0;
    virtual int sizeRows() const = 0;
    /// (row, col)
    virtual Tq_1_1::SVec2d<int> getRowCol(const SelectItem& item) const = 0;
    virtual ColRow getColRow(std::uint64_t index) const = 0;
    virtual unsigned short getReflection(const SelectItem& item) const = 0;
    virtual unsigned short getReflection(int row, int col) const = 0;
    virtual unsigned short getReflection(std::uint64_t index) const = 0;
    virtual Normal getNormal(const SelectItem& item) const = 0;
    virtual Normal getNormal(int row, int col) const = 0;
    virtual Normal getNormal(std::uint64_t index) const = 0;

    // --- Angles [rad] --------------------------------------------------------------------------
    virtual double getHorizontalRange() const = 0;
    /// Horizontal step between columns: range / cols, 0 without columns.
    virtual double getPhiPerCol() const;
    virtual double getMinHorizontalAngle() const = 0;
    virtual double getMaxHorizontalAngle() const = 0;
    virtual double getMaxVerticalAngle() const = 0;
    /// The grid cell in a direction; (-1, -1) when there is none.
    virtual CPoint getColRow(const Polar3d<float>& direction) const;

    /// Whether the points are no grid. The base answers false.
    virtual bool isPointCloud() const;

    // --- Pictures ------------------------------------------------------------------------------
    /// Grey value of a reflection: its upper byte.
    virtual unsigned char grey2Bitmap(unsigned short reflection) const;
    virtual bool isPanorama() const = 0;
    virtual bool isCubeMap() const = 0;
    virtual bool isRangeImage() const = 0;
    virtual bool isMirrored() const = 0;

    // --- Reading and writing -------------------------------------------------------------------
    /// @return an IO result
    [[nodiscard]] virtual int import(FileInfo& fileInfo, AllocMain& alloc) = 0;
    /// Writes the point set's name into the project output. @return 0
    [[nodiscard]] virtual int writeInfo(std::ostream& out,
                                        std::shared_ptr<WriteContextBase> context);
    [[nodiscard]] virtual int writeScanDataId(std::ostream& out,
                                              std::shared_ptr<WriteContextBase> context) = 0;

    // --- Display -------------------------------------------------------------------------------
    /// The stand-in shows no picture: the path is not kept.
    virtual void setColorizedImage(const Tq_1_1::String& path);
    virtual int getMaxDisplayReflection() const = 0;
    virtual int getMinDisplayReflection() const = 0;
    virtual double getReflectionGamma() const = 0;
    virtual void setReflectionGamma(double gamma) = 0;
    /// @return null until a statistic was set
    virtual const StatisticValLimits<double>* getReflStat(ReflStatType type) const;
    virtual std::shared_ptr<const ReflHistogram> getReflHistogram() const = 0;
    virtual Tq_1_1::String getColorMapName() const = 0;
    virtual int getColorMapIndex() const = 0;
    virtual void setColorMapIndex(int index) = 0;
    /// Display colour of a reflection: grey.
    virtual Color getMapColor(unsigned short reflection) const;
    /// Whether several threads may read points at once.
    virtual bool hasThreadSafeScanPoints() const = 0;
    /// Accuracy of a point [m].
    virtual std::optional<double> getPointAccuracy() const = 0;
    /// Whether the counts fit the points that can be addressed.
    virtual bool checkSizeConsistentWithData() const;
    virtual ScanRegion getScanRegion() const = 0;

    // --- Recording, streams --------------------------------------------------------------------
    /// @return empty when the recording time is unknown; owned by the caller
    virtual std::unique_ptr<Time> getScanRecordingTime() const = 0;
    virtual bool needsStreams() const = 0;
    /// Whether the streams that the point set needs are there. The base needs none.
    virtual bool checkStreams() const;
    virtual bool hasImageStream() const = 0;
    virtual bool hasDepthStream() const = 0;
    virtual bool hasVideoStream() const = 0;

    // --- The host's own state, not virtual -----------------------------------------------------
    const Tq_1_1::String& getName() const { return name_; }
    void setName(const Tq_1_1::String& name) { name_ = name; }
    /// The id in the project output; null until set.
    const Tq_1_1::String& getId() const { return id_; }
    void setId(const Tq_1_1::String& id) { id_ = id; }

    /// Whether point data are loaded and usable. Set by the host around loading and sizing.
    bool hasValidData() const { return validData_; }
    void setValidData(bool valid) { validData_ = valid; }
    /// Checks that the counts are sound, runs PointSetOps::Validate for the point set's class and
    /// its bases, and marks the data as valid unless a check gives what IOMessages::isKnownFailure
    /// calls a failure. The data count as valid during the call: nobody may read them then.
    /// @return the failure; else the first result that is not 0; else 0
    [[nodiscard]] int validateData();

    bool isModifiedInfo() const { return modifiedInfo_; }
    void setModifiedInfo(bool modified) { modifiedInfo_ = modified; }

    ScanProperties& getScanProperties() { return properties_; }
    const ScanProperties& getScanProperties() const { return properties_; }
    // Reflections run from 0 to 65535, distances are [m].
    /// @param valid  marks the reflection statistics as up to date
    /// @param value  the host's own, kept by nobody here
    void setReflStat(const StatisticValLimits<double>& statistic, bool valid, ReflStatType type,
                     int value);
    void setDistStat(const StatisticValLimitsRounded<double>& statistic, bool valid);
    /// @return null until a statistic was set
    const StatisticValLimitsRounded<double>* getDistStat() const;
    /// Limits of the reflection statistic over all points, rounded; 0 and 65535 without one.
    int getMinReflection() const;
    int getMaxReflection() const;

    /// The object that holds this point set in the object tree; null when none does. Not owned.
    const PtSetObject* getContainer() const { return container_; }
    void setContainer(PtSetObject* container) { container_ = container; }

    /// How many points an import loads at most: all that a file may hold.
    static std::uint64_t getDefaultNumLoadPoints();

  protected:
    explicit PointSet(const Tq_1_1::String& name);

    // Row and column count of the grid, written by the class that sizes the storage.
    int rows_ = 0;
    int cols_ = 0;

    mutable CriticalSection section_;
    std::shared_ptr<const ReflHistogram> reflHistogram_;  // guarded by section_

  private:
    Tq_1_1::String name_;
    Tq_1_1::String id_;
    bool validData_ = false;
    bool modifiedInfo_ = false;
    ScanProperties properties_;
    std::optional<StatisticValLimits<double>> reflStats_[2];
    std::optional<StatisticValLimitsRounded<double>> distStat_;
    PtSetObject* container_ = nullptr;
};

}  // namespace Hx
