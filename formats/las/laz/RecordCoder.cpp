// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "las/laz/RecordCoder.h"

#include <utility>

#include "las/laz/Colors.h"
#include "las/laz/Decoder.h"
#include "las/laz/Encoder.h"
#include "las/laz/ExtraBytes.h"
#include "las/laz/GpsTime11.h"
#include "las/laz/GpsTime11Version1.h"
#include "las/laz/LayeredItems.h"
#include "las/laz/Point10.h"
#include "las/laz/Point10Version1.h"
#include "las/laz/WavePackets.h"

namespace Ovr::Formats::Laz {

namespace {

template <class Coder, class State>
class StreamItemOf final : public StreamItem<Coder> {
  public:
    template <class... Arguments>
    explicit StreamItemOf(Arguments... arguments) : state_(arguments...) {}

    void begin(const char* first) override { state_.begin(first); }
    void code(Coder& coder, typename Coder::Bytes item) override { state_.code(coder, item); }

  private:
    State state_;
};

template <class Coder, class State>
class LayeredItemOf final : public LayeredItem<Coder> {
  public:
    template <class... Arguments>
    explicit LayeredItemOf(Arguments... arguments) : state_(arguments...) {}

    void begin(const ChannelStep& step, const char* first) override { state_.begin(step, first); }
    void code(std::span<Coder> layers, const ChannelStep& step,
              typename Coder::Bytes item) override {
        state_.code(layers, step, item);
    }

  private:
    State state_;
};

template <class Coder>
std::unique_ptr<StreamItem<Coder>> makeStreamItem(const Item& item) {
    const bool isOld = item.version == 1;
    const auto make = [&]<class State, class Old>() -> std::unique_ptr<StreamItem<Coder>> {
        if (isOld) {
            return std::make_unique<StreamItemOf<Coder, Old>>();
        }
        return std::make_unique<StreamItemOf<Coder, State>>();
    };
    switch (item.type) {
        case ItemType::Point10:
            return make.template operator()<Point10, Point10Version1>();
        case ItemType::GpsTime11:
            return make.template operator()<GpsTime11, GpsTime11Version1>();
        case ItemType::Rgb12:
            return make.template operator()<Rgb12, Rgb12Version1>();
        case ItemType::WavePacket13:
            return make.template operator()<WavePacket13, WavePacket13>();
        default:
            break;
    }
    if (isOld) {
        return std::make_unique<StreamItemOf<Coder, ExtraBytesVersion1>>(std::size_t{item.size});
    }
    return std::make_unique<StreamItemOf<Coder, ExtraBytes>>(std::size_t{item.size});
}

template <class Coder>
std::unique_ptr<LayeredItem<Coder>> makeLayeredItem(const Item& item) {
    constexpr std::uint16_t kFirstMended = 4;
    const bool isVersion3 = item.version < kFirstMended;
    switch (item.type) {
        case ItemType::Rgb14:
            return std::make_unique<LayeredItemOf<Coder, Rgb14>>(isVersion3);
        case ItemType::RgbNir14:
            return std::make_unique<LayeredItemOf<Coder, RgbNir14>>(isVersion3);
        case ItemType::WavePacket14:
            return std::make_unique<LayeredItemOf<Coder, WavePacket14>>(isVersion3);
        default:
            return std::make_unique<LayeredItemOf<Coder, ExtraBytes14>>(isVersion3,
                                                                        std::size_t{item.size});
    }
}

template <class Coder>
class StreamRecordCoder final : public RecordCoder<Coder> {
  public:
    explicit StreamRecordCoder(const Schema& schema) {
        std::size_t offset = 0;
        for (const Item& item : schema.items) {
            parts_.push_back({makeStreamItem<Coder>(item), offset});
            offset += item.size;
        }
    }
    void begin(const char* first) override {
        for (const Part& part : parts_) {
            part.item->begin(first + part.offset);
        }
    }
    void code(std::span<Coder> streams, typename Coder::Bytes record) override {
        for (const Part& part : parts_) {
            part.item->code(streams[0], record + part.offset);
        }
    }

  private:
    struct Part {
        std::unique_ptr<StreamItem<Coder>> item;
        std::size_t offset;  ///< in the record
    };
    std::vector<Part> parts_;
};

template <class Coder>
class LayeredRecordCoder final : public RecordCoder<Coder> {
  public:
    explicit LayeredRecordCoder(const Schema& schema) {
        Part part{nullptr, Point14::SIZE, Point14::LAYERS, 0};
        for (const Item& item : std::span(schema.items).subspan(1)) {
            part.item = makeLayeredItem<Coder>(item);
            part.layers = Schema{.items = {item}}.layers();
            const std::size_t offset = part.offset + item.size;
            const std::size_t firstLayer = part.firstLayer + part.layers;
            parts_.push_back(std::move(part));
            part = {nullptr, offset, firstLayer, 0};
        }
    }
    void begin(const char* first) override {
        const ChannelStep step = point_.begin(first);
        for (const Part& part : parts_) {
            part.item->begin(step, first + part.offset);
        }
    }
    void code(std::span<Coder> streams, typename Coder::Bytes record) override {
        const ChannelStep step = point_.code(streams.first(Point14::LAYERS), record);
        for (const Part& part : parts_) {
            part.item->code(streams.subspan(part.firstLayer, part.layers), step,
                            record + part.offset);
        }
    }

  private:
    struct Part {
        std::unique_ptr<LayeredItem<Coder>> item;
        std::size_t offset;  ///< in the record
        std::size_t firstLayer;
        std::size_t layers;
    };
    Point14 point_;
    std::vector<Part> parts_;
};

}  // namespace

template <class Coder>
std::unique_ptr<RecordCoder<Coder>> makeRecordCoder(const Schema& schema) {
    if (schema.isLayered()) {
        return std::make_unique<LayeredRecordCoder<Coder>>(schema);
    }
    return std::make_unique<StreamRecordCoder<Coder>>(schema);
}

template std::unique_ptr<RecordCoder<Decoder>> makeRecordCoder<Decoder>(const Schema& schema);
template std::unique_ptr<RecordCoder<Encoder>> makeRecordCoder<Encoder>(const Schema& schema);

}  // namespace Ovr::Formats::Laz
