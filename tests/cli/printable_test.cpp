// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/printable.h"

#include <gtest/gtest.h>

namespace kavo {

namespace {

using namespace std::string_view_literals;

TEST(Printable, HasABlankForEachCharacterThatActsOnATerminal)
{
    EXPECT_EQ(printable("a\x1b[31mb"), "a [31mb");
    EXPECT_EQ(printable("\0\x01\n\r\t\x1F\x7F"sv), "       ");
    EXPECT_EQ(printable("a\xC2\x80-\xC2\x9B-\xC2\x9F"), "a - - ");      // U+0080, U+009B, U+009F
    EXPECT_EQ(printable("a\x81"), "a ");                                // shown as U+0081
    EXPECT_EQ(printable("\u202A\u202B\u202C\u202D\u202E|"), "     |");  // embedded and overridden directions
    EXPECT_EQ(printable("\u2066\u2067\u2068\u2069|"), "    |");         // isolates
    EXPECT_EQ(printable("\u2028\u2029|"), "  |");                       // line and paragraph separators
}

TEST(Printable, KeepsEverythingElse)
{
    for (const char* text : {"", " plain ~", "Жанна", "日本", "🏁", "e\u0301", "\u00A0", "\u2027\u202F", "\u2065\u206A"})
        EXPECT_EQ(printable(text), text);
    EXPECT_EQ(printable("J\xFCrgen"), "Jürgen");
}

TEST(Printable, IsTheSameInPlace)
{
    for (const char* text : {"plain", "J\xFCrgen", "a\x1b[31mb", ""}) {
        std::string inPlace = text;
        makePrintable(inPlace);
        EXPECT_EQ(inPlace, printable(text));
    }
}

TEST(Printable, KeepsTheLinesOfAReport)
{
    EXPECT_EQ(printableLines("a\tb\r\nc\nd"), "a\tb\r\nc\nd");
    EXPECT_EQ(printableLines("over\rwritten\x1b[2J\r"), "over written [2J ");
}

TEST(Printable, EscapesInJson)
{
    EXPECT_EQ(printableJson("{\n  \"a\": \"\x7F\xC2\x9B\u202E\"\n}\n"), "{\n  \"a\": \"\\u007f\\u009b\\u202e\"\n}\n");
    EXPECT_EQ(printableJson("\"Жанна\""), "\"Жанна\"");
}

}  // namespace

}  // namespace kavo
