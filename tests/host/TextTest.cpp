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

TEST(ProjectOutput, IsIndentedTextWhateverTheStreamIsSetTo) {
    std::ostringstream out;
    out << std::hex << std::setfill('#') << std::setw(30);
    const auto context = std::make_shared<Hx::WriteContextBase>(Hx::OutputFormat{3});
    const auto write = [&](Hx::WriteToScope& scope, const String& name, const String& value) {
        scope.getMof().startValue(name);
        Hx::DataOutFormat<String>(out, scope.getWriteContext()->getFormat()).put(value);
        scope.getMof().endValue();
    };
    {
        Hx::WriteToScope outer(out, context);
        write(outer, L"Plain", L"site");
        {
            Hx::WriteToScope inner(out, context);
            write(inner, L"Escaped", L"a\"b\\c\n\x7F\x85\xE9");
            inner.close();
            inner.close();
            write(outer, L"None", String::NIL);
        }
        write(outer, L"Empty", String::EMPTY);
    }
    EXPECT_EQ(context->depth, 0);
    EXPECT_EQ(out.str(),
              "   Plain = \"site\"\n"
              "      Escaped = \"a\\\"b\\\\c\\u000a\\u007f\\u0085\xC3\xA9\"\n"
              "   None = null\n"
              "   Empty = \"\"\n");
}

}  // namespace
