// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "FuzzScan.h"
#include "las/LasReader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Ovr::Formats::Format format = Ovr::Formats::lasFormat();
    Fuzz::readScans(format, data, size);
    return 0;
}
