// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstddef>
#include <cstdint>
#include <tuple>
#include <type_traits>

#include "pointset/PointRecordLayout.h"

namespace Vardex {

/// One line of a list of layouts: a layout and the records that are kept in it.
template <PointRecordLayout layout, typename RecordType>
struct LayoutEntry {
    static constexpr PointRecordLayout kLayout = layout;
    using Record = RecordType;
};

/// Everything that follows from a list of layouts. PointRecord.h has the one list that is used.
/// The list has one line for each layout but None, in the order of their numbers.
template <typename... Entries>
class LayoutList {
  public:
    /// Calls visit(std::type_identity<Record>) with the record of a layout; for None nothing is
    /// called.
    template <typename Visit>
    static constexpr void visit(PointRecordLayout layout, const Visit& visit) {
        static_cast<void>(((layout == Entries::kLayout &&
                            (visit(std::type_identity<typename Entries::Record>()), true)) ||
                           ...));
    }

    /// What visit(std::type_identity<Record>) gives for the record of a layout. Every layout is two
    /// comparisons away, for this is done for each point. Requires: the layout is not None.
    template <typename Visit>
    static constexpr decltype(auto) visitKnown(PointRecordLayout layout, const Visit& visit) {
        return visitBetween<0, sizeof...(Entries)>(static_cast<std::uint32_t>(layout), visit);
    }

    /// Bytes that one record takes; 0 for None.
    static constexpr std::size_t recordSize(PointRecordLayout layout) {
        return ((layout == Entries::kLayout ? sizeof(typename Entries::Record) : 0) + ...);
    }

    /// Whether the records of a layout have a field; false for None.
    template <typename Field>
    static constexpr bool has(PointRecordLayout layout) {
        return ((layout == Entries::kLayout && Entries::Record::template has<Field>) || ...);
    }

    /// The layout of the same fields and a time. A layout that has a time, and None, are their own.
    static constexpr PointRecordLayout timed(PointRecordLayout layout) {
        visit(layout, [&layout]<typename Record>(std::type_identity<Record>) {
            layout = of<typename Record::Timed>();
        });
        return layout;
    }

    /// The layout of a record; None for one that is not in the list.
    template <typename Record>
    static constexpr PointRecordLayout of() {
        return static_cast<PointRecordLayout>(((std::is_same_v<Record, typename Entries::Record>
                                                    ? static_cast<std::int32_t>(Entries::kLayout)
                                                    : 0) +
                                               ...));
    }

  private:
    /// Among the lines [first, last), whose layouts are numbered first + 1 to last.
    template <std::size_t first, std::size_t last, typename Visit>
    static constexpr decltype(auto) visitBetween(std::uint32_t layout, const Visit& visit) {
        if constexpr (last - first == 1) {
            using Entry = std::tuple_element_t<first, std::tuple<Entries...>>;
            return visit(std::type_identity<typename Entry::Record>());
        } else {
            constexpr std::size_t middle = (first + last) / 2;
            return layout <= middle ? visitBetween<first, middle>(layout, visit)
                                    : visitBetween<middle, last>(layout, visit);
        }
    }

    static constexpr bool followsTheEnumeration() {
        std::int32_t number = 0;
        return (... && (static_cast<std::int32_t>(Entries::kLayout) == ++number)) &&
               layoutName(static_cast<PointRecordLayout>(number + 1)).empty();
    }
    static_assert(followsTheEnumeration(),
                  "the list needs one line for each layout of PointRecordLayout but None");
    static_assert((... && (of<typename Entries::Record::Timed>() != PointRecordLayout::None)),
                  "each layout without times needs one with the same fields and then the time");
    static_assert((... && (sizeof(typename Entries::Record) == Entries::Record::kBytesOfFields)),
                  "records have no gaps");
    static_assert((... && std::is_trivially_copyable_v<typename Entries::Record>));
};

}  // namespace Vardex
