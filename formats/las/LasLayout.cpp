// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <fmt/format.h>

#include "las/LasHeader.h"

namespace Ovr::Formats {

namespace {

constexpr std::array<LasRecordLayout, kLasHighestFormat + 1> kLayouts{{
    {20, {}, {}},
    {28, 20, {}},
    {26, {}, 20},
    {34, 20, 28},
    {57, 20, {}},
    {63, 20, 28},
    {30, 22, {}},
    {36, 22, 30},
    {38, 22, 30},
    {59, 22, {}},
    {67, 22, 30},
}};

}  // namespace

const LasRecordLayout& lasRecordLayout(unsigned format) {
    return kLayouts[format];
}

ErrorPtr noLasTimes(const std::string& file, const LasHeader& header) {
    return makeError(Interfaces::ErrorCode::NoTimes,
                     {file, "", fmt::format("point format {}, which has no time", header.format),
                      "point format 1 or 3 to 10"});
}

}  // namespace Ovr::Formats
