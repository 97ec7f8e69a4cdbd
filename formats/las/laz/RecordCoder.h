// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <memory>
#include <span>
#include <vector>

#include "las/laz/ChannelStates.h"
#include "las/laz/Point14.h"
#include "las/laz/Schema.h"

namespace Ovr::Formats::Laz {

/// One item of the records of a chunk that is coded in one stream.
template <class Coder>
class StreamItem {
  public:
    virtual ~StreamItem() = default;
    /// @param first  the item's bytes in the first record
    virtual void begin(const char* first) = 0;
    virtual void code(Coder& coder, typename Coder::Bytes item) = 0;
};

/// One item beyond the first 30 bytes of the records of a chunk that is coded in layers.
template <class Coder>
class LayeredItem {
  public:
    virtual ~LayeredItem() = default;
    virtual void begin(const ChannelStep& step, const char* first) = 0;
    /// @param layers  the item's own
    virtual void code(std::span<Coder> layers, const ChannelStep& step,
                      typename Coder::Bytes item) = 0;
};

/// Codes the records of a chunk one after another, the first one excepted, which is kept as it is.
/// @tparam Coder  Decoder or Encoder
template <class Coder>
class RecordCoder {
  public:
    virtual ~RecordCoder() = default;
    virtual void begin(const char* first) = 0;
    virtual void code(std::span<Coder> streams, typename Coder::Bytes record) = 0;
};

/// @return a coder of one stream or of the schema's layers
template <class Coder>
std::unique_ptr<RecordCoder<Coder>> makeRecordCoder(const Schema& schema);

}  // namespace Ovr::Formats::Laz
