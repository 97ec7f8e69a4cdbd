// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "las/laz/Arithmetic.h"
#include "las/laz/DifferenceCoder.h"
#include "las/laz/SymbolModel.h"

namespace Ovr::Formats::Laz {

/// The bytes that a record of formats 0 to 5 has beyond its fields.
///
/// | version | each byte, predicted from the last one |
/// |---|---|
/// | 2 | 256 symbols of its own |
/// | 1, of old files | difference, 8 bits, in a context of its own |
class ExtraBytes {
  public:
    explicit ExtraBytes(std::size_t size) : last_(size), models_(size) {}

    void begin(const char* first) { last_.assign(first, first + last_.size()); }

    template <class Coder>
    void code(Coder& coder, typename Coder::Bytes bytes) {
        for (std::size_t i = 0; i < last_.size(); ++i) {
            const int now = Coder::DECODES ? 0 : bytes[i];
            last_[i] = static_cast<char>(codeByte(coder, models_[i], last_[i], now));
            if constexpr (Coder::DECODES) {
                bytes[i] = last_[i];
            }
        }
    }

  private:
    std::vector<char> last_;
    std::vector<SymbolsOf<256>> models_;
};

class ExtraBytesVersion1 {
  public:
    explicit ExtraBytesVersion1(std::size_t size)
        : last_(size), differences_(static_cast<unsigned>(size)) {}

    void begin(const char* first) { last_.assign(first, first + last_.size()); }

    template <class Coder>
    void code(Coder& coder, typename Coder::Bytes bytes) {
        for (std::size_t i = 0; i < last_.size(); ++i) {
            const int now = Coder::DECODES ? 0 : bytes[i];
            last_[i] = static_cast<char>(
                differences_.code(coder, last_[i], now, static_cast<unsigned>(i)));
            if constexpr (Coder::DECODES) {
                bytes[i] = last_[i];
            }
        }
    }

  private:
    std::vector<char> last_;
    DifferenceCoder<8> differences_;
};

}  // namespace Ovr::Formats::Laz
