// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include "Hx/Operation.h"
#include "Hx/PointSet.h"

namespace {

using Tq_1_1::HxClass;

TEST(OperationList, GivesTheLastEntryThatFitsTheClass) {
    const Tq_1_1::Module module;
    const HxClass root(L"Root", nullptr, module, {});
    const HxClass leaf(L"Leaf", &root, module, {});
    const HxClass other(L"Other", nullptr, module, {});
    Hx::Operation::Context<Hx::PointSetOps::KeyType<Hx::PointSet>, int()> list;
    EXPECT_EQ(list.find(&leaf), nullptr);

    list.entries = {{&root, +[] { return 1; }}, {&leaf, +[] { return 2; }}};
    EXPECT_EQ(list.find(&leaf)(), 2);
    EXPECT_EQ(list.find(&root)(), 1);
    EXPECT_EQ(list.find(&other), nullptr);
    EXPECT_EQ(list.find(nullptr), nullptr);

    list.entries.insert(list.entries.begin() + 1, {nullptr, +[] { return 3; }});
    EXPECT_EQ(list.find(&root)(), 3);
    EXPECT_EQ(list.find(&other)(), 3);
    EXPECT_EQ(list.find(nullptr)(), 3);
    EXPECT_EQ(list.find(&leaf)(), 2);
}

}  // namespace
