// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "las/LasReader.h"

#include <cmath>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Ovr/Vardex/CorvinMobileScanData.h"
#include "kit/InputFile.h"
#include "las/LasBlocks.h"
#include "las/LasDamage.h"
#include "las/LasHeader.h"
#include "las/LasPoints.h"
#include "las/LasTimes.h"

namespace Ovr::Formats {

namespace {

using Position = Tq_1_1::Vec3d<double>;

/// A place in the middle of the points, where single precision serves them best: that of the
/// header's bounds if they hold the first point, for some writers leave them empty.
Position middleOf(const LasHeader& header, const Position& first) {
    Position middle;
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const double minimum = header.minimum[axis];
        const double maximum = header.maximum[axis];
        const double slack = std::abs(header.scale[axis]);
        middle[axis] = minimum + (maximum - minimum) / 2;
        const bool holds = minimum - slack <= first[axis] && first[axis] <= maximum + slack;
        if (!holds || !std::isfinite(middle[axis])) {
            return first;
        }
    }
    return middle;
}

/// Keeps the header and the range of the times between its operations, as long as the file is the
/// same.
class LasReader final : public IScanReader {
  public:
    explicit LasReader(const ScanSource& source) : IScanReader(source) {}

    std::optional<Position> place(Remarks& remarks) override {
        InputFile file;
        if (open(file, remarks, {}) != nullptr || header_.count == 0) {
            return std::nullopt;
        }
        const auto one = openLasBlocks(file, header_, 1);
        if (one->next() != nullptr) {
            return std::nullopt;
        }
        return middleOf(header_, lasPosition(header_, one->record(0)));
    }

    ErrorPtr loadPoints(const LoadTarget& target, StatisticsReport& statistics) override {
        InputFile file;
        if (ErrorPtr error = open(file, target.remarks, target.work)) {
            return error;
        }
        times_.reset();
        LasPointLoader loader(file, header_, source());
        ErrorPtr error = loader.load(target, statistics);
        if (!error) {
            times_ = loader.times();
            timesOf_ = target.maximumCount;
        }
        return error;
    }

    ErrorPtr loadTimes(const TimeTarget& target) override {
        InputFile file;
        ErrorPtr error = open(file, target.remarks, target.work);
        if (timesOf_ != target.maximumCount) {
            times_.reset();
        }
        return error ? std::move(error) : loadLasTimes(file, header_, source(), target, times_);
    }

  private:
    /// Opens the file and, unless the header that is kept is that file's, reads the header.
    [[nodiscard]] ErrorPtr open(InputFile& file, Remarks& remarks,
                                const DataStructures::Work& work) {
        if (ErrorPtr error = file.open(source().file)) {
            return error;
        }
        const Stamp stamp{file.size(), file.changed()};
        if (stamp_ != stamp) {
            stamp_.reset();
            times_.reset();
            header_ = {};
            if (ErrorPtr error = readLasHeader(file, header_, remarks, source().lenient)) {
                return error;
            }
            if (source().lenient) {
                if (ErrorPtr error = shortenToReadable(file, header_, remarks, work)) {
                    return error;
                }
            }
            stamp_ = stamp;
        }
        return nullptr;
    }

    using Stamp = std::pair<std::uint64_t, std::filesystem::file_time_type>;
    std::optional<Stamp> stamp_;  ///< of the file that the header was read from
    LasHeader header_;
    std::optional<TimeRange> times_;  ///< of the points that were loaded from it, if all are finite
    std::uint64_t timesOf_ = 0;       ///< the most points that were loaded
};

class LasFormat final : public IScanFormat {
  public:
    std::string name() const override { return "LAS"; }
    std::vector<std::string> extensions() const override { return {"las", "laz"}; }
    std::string classIdentifier() const override {
        return VardexLib::CorvinMobileScanData::getStaticPointSetClassIdentifier();
    }
    bool recognises(std::string_view beginning) const override {
        return beginning.starts_with("LASF");
    }
    std::unique_ptr<IScanReader> makeReader(const ScanSource& source) const override {
        return std::make_unique<LasReader>(source);
    }
};

}  // namespace

std::shared_ptr<const IScanFormat> lasFormat() {
    return std::make_shared<LasFormat>();
}

}  // namespace Ovr::Formats
