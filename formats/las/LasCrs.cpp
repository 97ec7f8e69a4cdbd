// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "las/LasCrs.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "kit/LittleEndian.h"
#include "las/LasRecords.h"

namespace Ovr::Formats {

namespace {

// Numbers of the records of LASF_Projection.
constexpr std::uint16_t kWkt = 2112;
constexpr std::uint16_t kKeyDirectory = 34735;
constexpr std::uint16_t kKeyDoubles = 34736;
constexpr std::uint16_t kKeyTexts = 34737;

/// The numbers of a record, as many as it holds whole.
template <typename Stored, typename Number>
std::vector<Number> numbersOf(const std::string& data) {
    std::vector<Number> numbers;
    for (std::size_t at = 0; at + sizeof(Stored) <= data.size(); at += sizeof(Stored)) {
        numbers.push_back(loadLittle<Stored>(data.data() + at));
    }
    return numbers;
}

class CrsReader {
  public:
    CrsReader(InputFile& file, const LasHeader& header, Remarks& remarks)
        : file_(file), header_(header), remarks_(remarks) {}

    std::optional<CrsDescription> wkt() {
        const LasRecord* const record = find(kWkt);
        std::string text = readLasRecord(file_, record);
        text.resize(std::min(text.find('\0'), text.size()));
        return found(text.empty() ? std::nullopt : describeWkt(text), record, text.empty(),
                     "well-known text of a coordinate system");
    }

    std::optional<CrsDescription> geoKeys() {
        const LasRecord* const record = find(kKeyDirectory);
        const auto directory = numbersOf<std::uint16_t, unsigned>(readLasRecord(file_, record));
        return found(
            describeGeoKeys(directory,
                            numbersOf<double, double>(readLasRecord(file_, find(kKeyDoubles))),
                            readLasRecord(file_, find(kKeyTexts))),
            record, false, "directory of GeoTIFF keys");
    }

  private:
    const LasRecord* find(std::uint16_t id) const {
        return findLasRecord(header_.records, kProjectionUser, id);
    }

    /// Remarks on a record that holds nothing to name.
    std::optional<CrsDescription> found(std::optional<CrsDescription> crs, const LasRecord* record,
                                        bool isEmpty, std::string_view what) {
        if (!crs && record != nullptr) {
            remarks_.warn(fmt::format("{}: byte {}: record {} of {} holds {} {}", file_.name(),
                                      record->begin, record->id, record->user,
                                      isEmpty ? "an empty" : "no readable", what));
        }
        return crs;
    }

    InputFile& file_;
    const LasHeader& header_;
    Remarks& remarks_;
};

}  // namespace

LasCrs readLasCrs(InputFile& file, const LasHeader& header, Remarks& remarks) {
    CrsReader reader(file, header, remarks);
    const std::optional<CrsDescription> keys = reader.geoKeys();
    const std::optional<CrsDescription> wkt = reader.wkt();
    LasCrs result;
    if (wkt && (header.saysWkt || !keys)) {
        result = {CrsSource::Wkt, *wkt};
    } else if (keys) {
        result = {CrsSource::GeoKeys, *keys};
    }
    for (const std::string& oddity : result.crs.oddities) {
        remarks.warn(fmt::format("{}: coordinate system: {}", file.name(), oddity));
    }
    return result;
}

}  // namespace Ovr::Formats
