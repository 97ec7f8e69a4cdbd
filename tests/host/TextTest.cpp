// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <iomanip>
#include <sstream>

#include "Hx/ModelOutput.h"
#include "Tq/File.h"
#include "Tq/String.h"

namespace {

using Tq_1_1::File;
using Tq_1_1::String;

TEST(FileName, IsSplitAtTheLastDot) {
    struct Case {
        const wchar_t* path;
        const wchar_t* name;
        const wchar_t* extension;
    };
    for (const Case& c : {
             Case{L"/data/site.ovr", L"site.ovr", L"ovr"},
             Case{L"site.tar.ovr", L"site.tar.ovr", L"ovr"},
             Case{L"../a.b/plain", L"plain", L""},
             Case{L"dir/.ovr", L".ovr", L"ovr"},
             Case{L"ends.", L"ends.", L""},
             Case{L"r\xE9sum\xE9.ovr", L"r\xE9sum\xE9.ovr", L"ovr"},
         }) {
        const auto file = File::fromString(c.path);
        ASSERT_NE(file, nullptr) << String(c.path).toUtf8();
        EXPECT_EQ(file->getName(), String(c.name)) << String(c.path).toUtf8();
        EXPECT_EQ(file->getExtension(), String(c.extension)) << String(c.path).toUtf8();
    }
    for (const String& path :
         {String::NIL, String::EMPTY, String(L"a/b/"), String(L"/"), String(L"a/..")}) {
        EXPECT_EQ(File::fromString(path), nullptr) << path.toUtf8();
    }
}

}  // namespace
