// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "FuzzScan.h"
#include "ptx/PtxReader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    static const Ovr::Formats::Format format = Ovr::Formats::ptxFormat();
    Fuzz::readScans(format, data, size);
    return 0;
}
