// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include "module/frame/OperationList.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "Tq/HxClass.h"

namespace Vardex {
namespace {

using Key = const Tq_1_1::HxClass*;
using Entries = std::vector<std::pair<Key, int>>;

/// Classes by letter: B derives from A, C from B; X stands alone; 0 is no class.
struct OperationList : testing::Test {
    const Tq_1_1::Module module;
    const Tq_1_1::HxClass a{L"A", nullptr, module, {}};
    const Tq_1_1::HxClass b{L"B", &a, module, {}};
    const Tq_1_1::HxClass c{L"C", &b, module, {}};
    const Tq_1_1::HxClass x{L"X", nullptr, module, {}};
    std::map<char, Key> classes{{'A', &a}, {'B', &b}, {'C', &c}, {'X', &x}, {'0', nullptr}};

    /// Entries with function numbers 1, 2, 3 ...
    Entries entriesOf(const std::string& letters) {
        Entries entries;
        for (const char letter : letters) {
            entries.emplace_back(classes.at(letter), static_cast<int>(entries.size()) + 1);
        }
        return entries;
    }

    /// Letters and function numbers, "A1B2".
    std::string textOf(const Entries& entries) const {
        std::string text;
        for (const auto& [key, function] : entries) {
            for (const auto& [letter, type] : classes) {
                text += type == key ? letter + std::to_string(function) : "";
            }
        }
        return text;
    }
};

TEST_F(OperationList, TakesAnEntryBehindTheLastOfItsBases) {
    struct Case {
        const char* before;
        char inserted;
        const char* after;
    };
    for (const Case& test : {
             Case{"", 'B', "B9"},
             Case{"A", 'B', "A1B9"},
             Case{"CX", 'B', "B9C1X2"},
             Case{"X", 'B', "B9X1"},
             Case{"0X", 'B', "01B9X2"},
             Case{"0AXC", 'B', "01A2B9X3C4"},
             Case{"XA0X", 'B', "X1A203B9X4"},
             Case{"ABC", 'A', "A1A9B2C3"},
             Case{"ABC", '0', "09A1B2C3"},
         }) {
        Entries entries = entriesOf(test.before);
        insertOperation(entries, classes.at(test.inserted), 9);
        EXPECT_EQ(textOf(entries), test.after) << test.inserted << " into " << test.before;
    }
}

TEST_F(OperationList, LosesTheFirstEntryOfExactlyTheClass) {
    struct Case {
        const char* before;
        char removed;
        const char* after;
    };
    for (const Case& test : {
             Case{"", 'B', ""},
             Case{"AC", 'B', "A1C2"},
             Case{"XBAB", 'B', "X1A3B4"},
             Case{"A0C0", '0', "A1C304"},
         }) {
        Entries entries = entriesOf(test.before);
        removeOperation(entries, classes.at(test.removed));
        EXPECT_EQ(textOf(entries), test.after) << test.removed << " from " << test.before;
    }
}

}  // namespace
}  // namespace Vardex
