// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <algorithm>
#include <iterator>
#include <type_traits>
#include <utility>
#include <vector>

namespace Vardex {

/// Inserts a function into one of the host's operation lists, which a host searches from the end:
/// directly after the last pair whose class is null or @p type or a base of it, else first. So a
/// class stands after its bases, and entries of unrelated classes keep their order. A null type
/// always goes first.
/// @param Key  pointer to a class record, with isDerivedFrom
/// Threads: the caller's, which is the loading thread; the list is edited in place.
template <typename Key, typename Function>
void insertOperation(std::vector<std::pair<Key, Function>>& entries, std::type_identity_t<Key> type,
                     std::type_identity_t<Function> function) {
    auto position = entries.end();
    while (position != entries.begin()) {
        const Key listed = std::prev(position)->first;
        if (type != nullptr && (listed == nullptr || type->isDerivedFrom(listed))) {
            break;
        }
        --position;
    }
    entries.emplace(position, type, function);
}

/// Removes the first pair of exactly this class from an operation list. Changes nothing when there
/// is none, so it may follow an insertion that never happened.
template <typename Key, typename Function>
void removeOperation(std::vector<std::pair<Key, Function>>& entries,
                     std::type_identity_t<Key> type) {
    const auto found = std::find_if(entries.begin(), entries.end(),
                                    [type](const auto& entry) { return entry.first == type; });
    if (found != entries.end()) {
        entries.erase(found);
    }
}

}  // namespace Vardex
