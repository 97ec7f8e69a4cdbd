// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "las/laz/SchemaRecord.h"

#include <fmt/format.h>

#include <utility>
#include <vector>

#include "kit/LittleEndian.h"

namespace Ovr::Formats::Laz {

using Interfaces::ErrorCode;

namespace {

constexpr std::size_t kItemsAt = 34;
constexpr std::size_t kItemSize = 6;

class Parser {
  public:
    Parser(InputFile& file, std::uint64_t begin, std::vector<char> bytes)
        : file_(file), begin_(begin), bytes_(std::move(bytes)) {}

    [[nodiscard]] ErrorPtr parse(unsigned format, std::size_t recordLength, Schema& schema) const;

  private:
    std::uint16_t word(std::size_t at) const {
        return loadLittle<std::uint16_t>(bytes_.data() + at);
    }
    [[nodiscard]] ErrorPtr fault(ErrorCode code, std::size_t at, std::string found,
                                 std::string expected) const {
        return file_.fault(code, begin_ + at, std::move(found), std::move(expected));
    }
    [[nodiscard]] ErrorPtr checkCompressor(unsigned format) const;
    [[nodiscard]] ErrorPtr readItem(const Item& expected, std::size_t at, Item& item) const;

    InputFile& file_;
    std::uint64_t begin_;
    std::vector<char> bytes_;
};

ErrorPtr Parser::parse(unsigned format, std::size_t recordLength, Schema& schema) const {
    constexpr std::size_t kCountAt = 32;
    constexpr std::size_t kChunkSizeAt = 12;
    const Schema usual = schemaFor(format, recordLength);
    if (bytes_.size() < kItemsAt + kItemSize) {
        return fault(ErrorCode::InvalidValue, 0,
                     fmt::format("a record on the compression of {} bytes", bytes_.size()),
                     fmt::format("at least {}", kItemsAt + kItemSize));
    }
    if (ErrorPtr error = checkCompressor(format)) {
        return error;
    }
    const std::size_t count = word(kCountAt);
    if (count != usual.items.size() || bytes_.size() != kItemsAt + count * kItemSize) {
        return fault(
            ErrorCode::InvalidValue, kCountAt,
            fmt::format("{} compressed items in a record of {} bytes", count, bytes_.size()),
            fmt::format("{} for point format {} with records of {} bytes", usual.items.size(),
                        format, recordLength));
    }
    schema = usual;
    schema.compressor = static_cast<Compressor>(word(0));
    schema.chunkSize = loadLittle<std::uint32_t>(bytes_.data() + kChunkSizeAt);
    if (schema.chunkSize == 0) {
        schema.chunkSize = Schema::VARYING;
    }
    for (std::size_t i = 0; i < count; ++i) {
        if (ErrorPtr error = readItem(usual.items[i], kItemsAt + i * kItemSize, schema.items[i])) {
            return error;
        }
    }
    return nullptr;
}

ErrorPtr Parser::checkCompressor(unsigned format) const {
    constexpr std::size_t kCoderAt = 2;
    const bool isLayered = isLayeredFormat(format);
    const unsigned compressor = word(0);
    if (isLayered ? compressor != 3 : compressor != 1 && compressor != 2) {
        return fault(ErrorCode::Unsupported, 0, fmt::format("compressor {}", compressor),
                     fmt::format("{} for point format {}", isLayered ? "3" : "1 or 2", format));
    }
    if (word(kCoderAt) != 0) {
        return fault(ErrorCode::Unsupported, kCoderAt,
                     fmt::format("entropy coder {}", word(kCoderAt)), "0");
    }
    return nullptr;
}

ErrorPtr Parser::readItem(const Item& expected, std::size_t at, Item& item) const {
    const Versions known = versionsOf(expected.type);
    const auto type = static_cast<unsigned>(expected.type);
    item = {static_cast<ItemType>(word(at)), word(at + 2), word(at + 4)};
    if (item.type != expected.type || item.size != expected.size) {
        return fault(ErrorCode::InvalidValue, at,
                     fmt::format("a compressed item of type {} and {} bytes", word(at), item.size),
                     fmt::format("type {} and {} bytes", type, expected.size));
    }
    if (item.version < known.first || item.version > known.last) {
        return fault(ErrorCode::Unsupported, at + 4,
                     fmt::format("version {} of the compressed item type {}", item.version, type),
                     known.first == known.last ? fmt::format("{}", known.first)
                                               : fmt::format("{} to {}", known.first, known.last));
    }
    return nullptr;
}

}  // namespace

std::string SchemaRecord::payload(const Schema& schema) {
    constexpr std::uint32_t kVersion = 3U | 4U << 8U | 3U << 16U;  // 3.4 revision 3
    std::string bytes(kItemsAt + schema.items.size() * kItemSize, '\0');
    storeLittle(bytes.data(), static_cast<std::uint16_t>(schema.compressor));
    storeLittle(bytes.data() + 4, kVersion);
    storeLittle(bytes.data() + 12, schema.chunkSize);
    storeLittle(bytes.data() + 16, std::int64_t{-1});
    storeLittle(bytes.data() + 24, std::int64_t{-1});
    storeLittle(bytes.data() + 32, static_cast<std::uint16_t>(schema.items.size()));
    char* at = bytes.data() + kItemsAt;
    for (const Item& item : schema.items) {
        storeLittle(at, static_cast<std::uint16_t>(item.type));
        storeLittle(at + 2, item.size);
        storeLittle(at + 4, item.version);
        at += kItemSize;
    }
    return bytes;
}

ErrorPtr SchemaRecord::read(InputFile& file, std::uint64_t begin, std::size_t size, unsigned format,
                            std::size_t recordLength, Schema& schema) {
    std::vector<char> bytes(size);
    bytes.resize(file.readAt(begin, bytes));
    return Parser(file, begin, std::move(bytes)).parse(format, recordLength, schema);
}

}  // namespace Ovr::Formats::Laz
