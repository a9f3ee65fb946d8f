// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/display_width.h"

#include <gtest/gtest.h>

namespace kavo {

namespace {

TEST(DisplayWidth, CountsTheColumnsOfATerminal)
{
    EXPECT_EQ(displayWidth(""), 0U);
    EXPECT_EQ(displayWidth("00:30:50"), 8U);
    EXPECT_EQ(displayWidth("Жанна"), 5U);
    EXPECT_EQ(displayWidth("日本"), 4U);
    EXPECT_EQ(displayWidth("🏁"), 2U);
    EXPECT_EQ(displayWidth("e\u0301te\u0301"), 3U);  // accents of their own
    EXPECT_EQ(displayWidth("\uFF21"), 2U);           // a wide A
    EXPECT_EQ(displayWidth("\uFF71"), 1U);           // narrow katakana
    EXPECT_EQ(displayWidth("a\u200Bb"), 2U);         // a blank without width
}

TEST(CutEnd, KeepsTheBeginningAndAnEllipsis)
{
    EXPECT_EQ(cutEnd("Windy Steppes", 13), "Windy Steppes");
    EXPECT_EQ(cutEnd("Windy Steppes", 8), "Windy S…");
    EXPECT_EQ(cutEnd("Windy", 1), "…");
    EXPECT_EQ(cutEnd("Windy", 0), "");
    EXPECT_EQ(cutEnd("", 0), "");
    EXPECT_EQ(cutEnd("日本語", 5), "日本…");
    EXPECT_EQ(cutEnd("日本語", 4), "日…");  // half a character cannot be shown
    EXPECT_EQ(cutEnd("e\u0301te\u0301", 2), "e\u0301…");
}

TEST(CutMiddle, KeepsBothEnds)
{
    EXPECT_EQ(cutMiddle("World Record", 12), "World Record");
    EXPECT_EQ(cutMiddle("World Record", 7), "Wor…ord");
    EXPECT_EQ(cutMiddle("World Class", 4), "Wo…s");
    EXPECT_EQ(cutMiddle("World Class", 1), "…");
    EXPECT_EQ(cutMiddle("World Class", 0), "");
    EXPECT_EQ(cutMiddle("日本語日本", 5), "日…本");
    EXPECT_EQ(cutMiddle("abcde\u0301", 3), "a…e\u0301");
    EXPECT_EQ(cutMiddle("abcde\u0301f", 3), "a…f");  // no accent without its letter
}

}  // namespace

}  // namespace kavo
