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

TEST_F(OperationList, TakesAnEntryAfterItsBasesAndLosesTheFirstOfExactlyTheClass) {
    struct Case {
        const char* before;
        char type;
        const char *inserted, *removed;
    };
    for (const Case& test : {
             Case{"", 'B', "B9", ""},
             Case{"A", 'B', "A1B9", "A1"},
             Case{"CX", 'B', "B9C1X2", "C1X2"},
             Case{"X", 'B', "B9X1", "X1"},
             Case{"0X", 'B', "01B9X2", "01X2"},
             Case{"0AXC", 'B', "01A2B9X3C4", "01A2X3C4"},
             Case{"XA0X", 'B', "X1A203B9X4", "X1A203X4"},
             Case{"ABC", 'A', "A1A9B2C3", "B2C3"},
             Case{"XBAB", 'B', "X1B2A3B4B9", "X1A3B4"},
             Case{"A0C0", '0', "09A102C304", "A1C304"},
         }) {
        Entries entries = entriesOf(test.before);
        insertOperation(entries, classes.at(test.type), 9);
        EXPECT_EQ(textOf(entries), test.inserted) << test.type << " into " << test.before;
        entries = entriesOf(test.before);
        removeOperation(entries, classes.at(test.type));
        EXPECT_EQ(textOf(entries), test.removed) << test.type << " from " << test.before;
    }
}

}  // namespace
}  // namespace Vardex
