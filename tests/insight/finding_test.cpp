// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/finding.h"

#include <gtest/gtest.h>

namespace kavo {
namespace {

TEST(LinesOf, HaveNumberPlaceAndEnd)
{
    const std::string_view text = "ab\r\n\ncd";
    const auto lines = linesOf(text);
    ASSERT_EQ(lines.size(), 3U);
    EXPECT_EQ(lines[0].text, "ab");
    EXPECT_TRUE(lines[0].endsInCrLf);
    EXPECT_EQ(lines[1].number, 2U);
    EXPECT_EQ(lines[1].byte, 4U);
    EXPECT_TRUE(lines[1].endsInLf);
    EXPECT_EQ(lines[2].text, "cd");
    EXPECT_EQ(lines[2].byte, 5U);
    EXPECT_FALSE(lines[2].endsInCrLf || lines[2].endsInLf);
    EXPECT_TRUE(linesOf("").empty());
    EXPECT_EQ(linesOf("\r\n").size(), 1U);
}

TEST(LineAt, IsTheLineAroundAByte)
{
    const std::string_view text = "ab\r\ncd\r\nef";
    EXPECT_EQ(lineAt(text, 0).text, "ab");
    EXPECT_EQ(lineAt(text, 3).text, "ab");
    EXPECT_EQ(lineAt(text, 4).text, "cd");
    EXPECT_EQ(lineAt(text, 5).number, 2U);
    EXPECT_EQ(lineAt(text, 5).byte, 4U);
    EXPECT_EQ(lineAt(text, 10).text, "ef");
    EXPECT_EQ(lineAt(text, 99).number, 3U);
    EXPECT_EQ(lineAt("", 0).number, 1U);
    EXPECT_EQ(lineAt("ab\n", 3).number, 2U);
}

TEST(Describe, TellsAllInOneLine)
{
    const Finding finding{.severity = Severity::Error,
                          .file = "/kavo/targets.txt",
                          .line = 7,
                          .byte = 312,
                          .text = "record 7 has 4 fields",
                          .expected = "five times",
                          .advice = "run \"Update targets\""};
    EXPECT_EQ(describe(finding),
              "error: /kavo/targets.txt, line 7, byte 312: record 7 has 4 fields. Expected: five times. "
              "What to do: run \"Update targets\".");
    EXPECT_EQ(describe({.severity = Severity::Note, .file = "/kavo/x", .text = "odd", .advice = "nothing"}),
              "note: /kavo/x: odd. What to do: nothing.");
}

TEST(InQuotes, CutsLongTexts)
{
    EXPECT_EQ(inQuotes("Жанна"), "\"Жанна\"");
    EXPECT_EQ(inQuotes(std::string(61, 'x')), "\"" + std::string(60, 'x') + "...\"");
}

TEST(CodePage, IsNotedAtItsFirstByte)
{
    const auto findings = checkCodePage("Player1\r\nJ\xFCrgen\r\n\xFF");
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_EQ(findings[0].severity, Severity::Note);
    EXPECT_EQ(findings[0].line, 2U);
    EXPECT_EQ(findings[0].byte, 10U);
    EXPECT_EQ(findings[0].text, "\"J\xFCrgen\" is written in a code page of 8 bits");
    EXPECT_TRUE(checkCodePage("Jürgen, Жанна 🏁").empty());
}

}  // namespace
}  // namespace kavo
