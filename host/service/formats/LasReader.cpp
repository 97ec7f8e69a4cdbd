// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "formats/LasReader.h"

#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "Ovr/Vardex/CorvinMobileScanData.h"
#include "formats/InputFile.h"
#include "formats/LasHeader.h"
#include "formats/LasPoints.h"
#include "formats/LasTimes.h"

namespace Ovr::Formats {

namespace {

class LasReader final : public IScanReader {
  public:
    explicit LasReader(ScanSource source) : source_(std::move(source)) {}

    ErrorPtr loadPoints(const LoadTarget& target, StatisticsReport& statistics) override {
        InputFile file;
        LasHeader header;
        if (ErrorPtr error = open(file, header)) {
            return error;
        }
        return LasPointLoader(file, header, source_, warnings_).load(target, statistics);
    }

    ErrorPtr loadTimes(const TimeTarget& target) override {
        InputFile file;
        LasHeader header;
        if (ErrorPtr error = open(file, header)) {
            return error;
        }
        return loadLasTimes(file, header, source_, target, {warnings_, notes_});
    }

    std::vector<std::string> warnings() const override { return warnings_; }
    std::vector<std::string> notes() const override { return notes_; }

  private:
    ErrorPtr open(InputFile& file, LasHeader& header) {
        ErrorPtr error = file.open(source_.file);
        return error ? std::move(error) : readLasHeader(file, header, warnings_);
    }

    ScanSource source_;
    std::vector<std::string> warnings_;
    std::vector<std::string> notes_;
};

ErrorPtr listLas(const std::filesystem::path& path, std::vector<ScanListing>& scans) {
    InputFile file;
    LasHeader header;
    std::vector<std::string> unheard;
    if (ErrorPtr error = file.open(path)) {
        return error;
    }
    if (ErrorPtr error = readLasHeader(file, header, unheard)) {
        return error;
    }
    ScanSource source;
    source.file = path;
    scans.push_back({VardexLib::CorvinMobileScanData::getStaticPointSetClassIdentifier(),
                     path.filename().string(), source});
    return nullptr;
}

}  // namespace

Format lasFormat() {
    return {listLas, [](const ScanSource& source) { return std::make_unique<LasReader>(source); },
            VardexLib::CorvinMobileScanData::getStaticPointSetClassIdentifier()};
}

}  // namespace Ovr::Formats
