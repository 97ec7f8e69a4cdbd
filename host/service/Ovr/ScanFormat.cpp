// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "Ovr/ScanFormat.h"

#include <utility>

namespace Ovr {

IScanReader::IScanReader(ScanSource source) : source_(std::move(source)) {}

IRecordObserver::~IRecordObserver() = default;

IScanReader::~IScanReader() = default;

std::optional<Tq_1_1::Vec3d<double>> IScanReader::place(Remarks& /*remarks*/) {
    return std::nullopt;
}

ErrorPtr IScanReader::loadTimes(const TimeTarget& /*target*/) {
    return makeError(Interfaces::ErrorCode::NoTimes,
                     {source_.file.string(), "", "a file whose points have no time", ""});
}

IScanFormat::~IScanFormat() = default;

ErrorPtr IScanFormat::list(const std::filesystem::path& file, bool /*lenient*/,
                           std::vector<ScanListing>& scans) const {
    ScanSource source;
    source.file = file;
    scans.push_back({classIdentifier(), file.filename().string(), std::move(source)});
    return nullptr;
}

}  // namespace Ovr
