// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/text_cursor.h"

#include "base/run_time_error.h"

#include <gtest/gtest.h>

#include <vector>

namespace kavo {

namespace {

using Texts = std::vector<std::string>;

Texts linesOf(std::string_view text)
{
    Texts lines;
    for (TextCursor cursor(text); !cursor.atEnd();) lines.emplace_back(cursor.line());
    return lines;
}

Texts fieldsOf(std::string_view text)
{
    Texts fields;
    for (TextCursor cursor(text); !cursor.atEnd();) fields.emplace_back(cursor.field());
    return fields;
}

TEST(Lines, EndWithEitherLineEnd)
{
    EXPECT_EQ(linesOf("a\r\nb\nc"), (Texts{"a", "b", "c"}));
    EXPECT_EQ(linesOf("a\r\n"), (Texts{"a"}));
    EXPECT_EQ(linesOf("\r\n\n"), (Texts{"", ""}));
    EXPECT_EQ(linesOf(""), (Texts{}));
    EXPECT_EQ(linesOf(" a, \"b\" \r\n"), (Texts{" a, \"b\" "}));
    EXPECT_EQ(linesOf("a\rb\r\n"), (Texts{"a\rb"}));
}

TEST(Fields, EndAtCommasAndLineEnds)
{
    EXPECT_EQ(fieldsOf("a,b\r\nc\nd"), (Texts{"a", "b", "c", "d"}));
    EXPECT_EQ(fieldsOf(" a b , c \r\n"), (Texts{"a b", "c"}));
    EXPECT_EQ(fieldsOf("a,,b\r\n\r\n"), (Texts{"a", "", "b", ""}));
    EXPECT_EQ(fieldsOf("a   "), (Texts{"a"}));
    EXPECT_EQ(fieldsOf("   "), (Texts{""}));
}

TEST(Fields, MayStandInQuotes)
{
    EXPECT_EQ(fieldsOf("\"a,b\",c"), (Texts{"a,b", "c"}));
    EXPECT_EQ(fieldsOf("  \" a \"  ,c"), (Texts{" a ", "c"}));
    EXPECT_EQ(fieldsOf("\"a\r\nb\"\r\nc"), (Texts{"a\r\nb", "c"}));
    EXPECT_EQ(fieldsOf("\"\",\"x"), (Texts{"", "x"}));
    EXPECT_EQ(fieldsOf("\""), (Texts{""}));
    EXPECT_EQ(fieldsOf("a\"b\",c"), (Texts{"a\"b\"", "c"}));
}

TEST(Reading, FailsAtTheEnd)
{
    TextCursor cursor("a\r\n");
    EXPECT_EQ(cursor.line(), "a");
    EXPECT_THROW(cursor.line(), RunTimeError);
    EXPECT_THROW(cursor.field(), RunTimeError);
    EXPECT_TRUE(cursor.atEnd());
}

TEST(Reading, GoesOnByLinesBehindAField)
{
    TextCursor cursor("path\r\n 2 \r\nother\r\n");
    EXPECT_EQ(cursor.line(), "path");
    EXPECT_EQ(cursor.field(), "2");
    EXPECT_EQ(cursor.line(), "other");
}

}  // namespace

}  // namespace kavo
