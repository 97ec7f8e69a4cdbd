// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "las/LasReader.h"

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Ovr/Vardex/CorvinMobileScanData.h"
#include "kit/InputFile.h"
#include "las/LasHeader.h"
#include "las/LasPoints.h"
#include "las/LasTimes.h"

namespace Ovr::Formats {

namespace {

class LasReader final : public IScanReader {
  public:
    explicit LasReader(const ScanSource& source) : IScanReader(source) {}

    ErrorPtr loadPoints(const LoadTarget& target, StatisticsReport& statistics) override {
        InputFile file;
        LasHeader header;
        if (ErrorPtr error = open(file, header, target.remarks)) {
            return error;
        }
        return LasPointLoader(file, header, source()).load(target, statistics);
    }

    ErrorPtr loadTimes(const TimeTarget& target) override {
        InputFile file;
        LasHeader header;
        if (ErrorPtr error = open(file, header, target.remarks)) {
            return error;
        }
        return loadLasTimes(file, header, source(), target);
    }

  private:
    ErrorPtr open(InputFile& file, LasHeader& header, Remarks& remarks) const {
        ErrorPtr error = file.open(source().file);
        return error ? std::move(error) : readLasHeader(file, header, remarks);
    }
};

class LasFormat final : public IScanFormat {
  public:
    std::string name() const override { return "LAS"; }
    std::vector<std::string> extensions() const override { return {"las"}; }
    std::string classIdentifier() const override {
        return VardexLib::CorvinMobileScanData::getStaticPointSetClassIdentifier();
    }
    bool recognises(std::string_view beginning) const override {
        return beginning.starts_with("LASF");
    }

    ErrorPtr list(const std::filesystem::path& path,
                  std::vector<ScanListing>& scans) const override {
        InputFile file;
        LasHeader header;
        Remarks unheard;
        if (ErrorPtr error = file.open(path)) {
            return error;
        }
        if (ErrorPtr error = readLasHeader(file, header, unheard)) {
            return error;
        }
        ScanSource source;
        source.file = path;
        scans.push_back({classIdentifier(), path.filename().string(), source});
        return nullptr;
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
