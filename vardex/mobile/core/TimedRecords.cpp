// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "mobile/core/TimedRecords.h"

#include <cstddef>
#include <span>
#include <utility>

namespace Vardex {

namespace {

template <typename Untimed, typename Timed>
void copyRecords(std::span<const Untimed> from, std::span<Timed> to) {
    for (std::size_t i = 0; i < from.size(); ++i) {
        to[i].point = from[i].point;
        if constexpr (requires { from[i].reflection; }) {
            to[i].reflection = from[i].reflection;
        }
    }
}

template <typename Untimed, typename Timed>
void replaceRecords(PointRecordStore& store, std::uint32_t rows, std::uint32_t cols,
                    PointRecordLayout layout) {
    PointRecordStore timed;
    timed.resetRecords(rows, cols, layout);
    if (store.rows() == rows && store.cols() == cols) {
        copyRecords(std::as_const(store).records<Untimed>(), timed.records<Timed>());
    }
    store = std::move(timed);
}

}  // namespace

void addPointTimes(PointRecordStore& store, std::uint32_t rows, std::uint32_t cols) {
    switch (store.layout()) {
        case PointRecordLayout::Plain:
            return replaceRecords<PlainRecord, TimeRecord>(store, rows, cols,
                                                           PointRecordLayout::WithTime);
        case PointRecordLayout::WithReflection:
            return replaceRecords<ReflectionRecord, ReflectionTimeRecord>(
                store, rows, cols, PointRecordLayout::WithReflectionAndTime);
        case PointRecordLayout::None:
        case PointRecordLayout::WithTime:
        case PointRecordLayout::WithReflectionAndTime:
            return;
    }
}

std::uint32_t timeAt(const PointRecordStore& store, std::uint64_t index) {
    std::uint32_t time = 0;
    store.visitRecords([&](const auto& records) {
        if constexpr (requires { records[0].time; }) {
            time = index < records.size() ? records[index].time : 0;
        }
    });
    return time;
}

void setTimeAt(PointRecordStore& store, std::uint64_t index, std::uint32_t microseconds) {
    store.visitRecords([&](const auto& records) {
        if constexpr (requires { records[0].time; }) {
            if (index < records.size()) {
                records[index].time = microseconds;
            }
        }
    });
}

}  // namespace Vardex
