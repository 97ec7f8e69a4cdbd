// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <system_error>
#include <thread>
#include <vector>

namespace ScanHost {

/// Walks over items on the cores that there are: each part takes a stretch of them by
/// `walk(begin, end)`, the first part the first stretch. Where no thread can be had, this one does
/// the work. What a part throws is thrown again, that of the first stretch first.
/// @param part  copied for each stretch
template <class Part>
std::vector<Part> spread(std::uint64_t items, const Part& part) {
    constexpr std::uint64_t kWorthAThread = 1U << 16U;  // items
    const std::uint64_t most = std::max<std::uint64_t>(1, items / kWorthAThread);
    const std::uint64_t count =
        std::min<std::uint64_t>(most, std::max(1U, std::thread::hardware_concurrency()));
    std::vector<Part> parts(count, part);
    std::vector<std::exception_ptr> failures(count);
    const auto walk = [&](std::size_t i) {
        try {
            parts[i].walk(items / count * i, i + 1 == count ? items : items / count * (i + 1));
        } catch (...) {
            failures[i] = std::current_exception();
        }
    };
    std::vector<std::thread> threads;
    threads.reserve(count);
    std::size_t started = 1;
    try {
        for (; started < count; ++started) {
            threads.emplace_back(walk, started);
        }
    } catch (const std::system_error&) {
        // The rest is walked here.
    }
    walk(0);
    for (std::size_t i = started; i < count; ++i) {
        walk(i);
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    for (const std::exception_ptr& failure : failures) {
        if (failure) {
            std::rethrow_exception(failure);
        }
    }
    return parts;
}

}  // namespace ScanHost
