// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>

#include "kit/LittleEndian.h"
#include "las/laz/TimeSequences.h"

namespace Ovr::Formats::Laz {

/// The time of a record of formats 1 and 3 to 5, in version 2.
class GpsTime11 {
  public:
    static constexpr std::size_t SIZE = 8;

    void begin(const char* first) { times_.begin(loadLittle<std::int64_t>(first)); }

    template <class Coder>
    void code(Coder& coder, typename Coder::Bytes bytes) {
        if constexpr (Coder::DECODES) {
            storeLittle(bytes, times_.code(coder, 0));
        } else {
            times_.code(coder, loadLittle<std::int64_t>(bytes));
        }
    }

  private:
    TimeSequences<true> times_;
};

}  // namespace Ovr::Formats::Laz
