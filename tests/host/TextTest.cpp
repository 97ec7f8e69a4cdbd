// SPDX-FileCopyrightText: 2026 The VardexScandata developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <string>

#include "Tq/File.h"
#include "Tq/String.h"

namespace {

using Tq_1_1::File;
using Tq_1_1::String;

TEST(WideString, HoldsEveryCharacterAndOneReplacementForEachBadByte) {
    struct Case {
        const char* name;
        std::string utf8;
        std::wstring wide;
    };
    for (const Case& c : {
             Case{"last of each length", "\x7F\xDF\xBF\xEF\xBF\xBF\xF4\x8F\xBF\xBF",
                  L"\x7F\u07FF\uFFFF\U0010FFFF"},
             Case{"zero inside", std::string("a\0b", 3), std::wstring(L"a\0b", 3)},
             Case{"cut off", "\xF0\x9F\x98", L"\uFFFD\uFFFD\uFFFD"},
             Case{"wrong second byte", "\xE2x\x82", L"\uFFFDx\uFFFD"},
             Case{"too long a form", "\xC0\xAF\xE0\x9F\xBF", L"\uFFFD\uFFFD\uFFFD\uFFFD\uFFFD"},
             Case{"surrogate", "\xED\xA0\x80z", L"\uFFFD\uFFFD\uFFFDz"},
             Case{"beyond the last", "\xF4\x90\x80\x80", L"\uFFFD\uFFFD\uFFFD\uFFFD"},
         }) {
        const String text = String::fromUtf8(c.utf8);
        EXPECT_EQ(text, String(c.wide)) << c.name;
        if (c.wide.find(L'\uFFFD') == std::wstring::npos) {
            EXPECT_EQ(text.toUtf8(), c.utf8) << c.name;
        }
    }
    EXPECT_EQ(String(std::wstring{L'a', static_cast<wchar_t>(0xD800)}).toUtf8(), "a\xEF\xBF\xBD");
}

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
