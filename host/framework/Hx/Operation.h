// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <utility>
#include <vector>

#include "Tq/HxClass.h"

namespace Hx {

namespace PointSetOps {

/// Key of an operation list: the record of the class that an entry serves, null for every class.
template <typename Kind>
using KeyType = const Tq_1_1::HxClass*;

}  // namespace PointSetOps

namespace Operation {

/// A list of (class record, function) pairs for one pluggable operation. Derived classes stand
/// after their bases. Modules edit the list in place while they load and unload: the host must not
/// read it then.
template <typename Key, typename F>
struct Context {
    using Entry = std::pair<Key, F*>;

    std::vector<Entry> entries;

    /// The function of the last pair whose class is null, @p type itself or a base of it.
    /// @return null when no pair fits
    F* find(Key type) const {
        for (auto it = entries.rbegin(); it != entries.rend(); ++it) {
            if (it->first == nullptr || (type != nullptr && type->isDerivedFrom(it->first))) {
                return it->second;
            }
        }
        return nullptr;
    }
};

}  // namespace Operation
}  // namespace Hx
