// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/window_layout.h"

#include <gtest/gtest.h>

namespace kavo {

namespace {

using Values = std::vector<double>;

TEST(WindowLayout, IsTenNumbers)
{
    const Values ten = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10};
    EXPECT_EQ(parseLayoutValues("1\r\n 2 \r\n3\n4\r\n5\r\n6\r\n7\r\n8\r\n9\r\n10\r\n11\r\n"), ten);
}

TEST(WindowLayout, EndsAtTheFirstLineThatIsNoNumber)
{
    EXPECT_EQ(parseLayoutValues("-15\r\n20.5\r\nwide\r\n4\r\n"), (Values{-15, 20.5}));
    EXPECT_EQ(parseLayoutValues("1\r\n\r\n3\r\n"), (Values{1}));
    EXPECT_EQ(parseLayoutValues(""), Values{});
}

TEST(WindowLayout, TakesTheHeightBeforeTheWidth)
{
    const WindowLayout layout = withValues({}, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10});
    EXPECT_EQ(layout.left, 1);
    EXPECT_EQ(layout.top, 2);
    EXPECT_EQ(layout.height, 3);
    EXPECT_EQ(layout.width, 4);
    EXPECT_EQ(layout.columnWidths, (std::array<double, 6>{5, 6, 7, 8, 9, 10}));
}

TEST(WindowLayout, HasNoPlaceForMoreThanTenNumbers)
{
    const WindowLayout layout = withValues({}, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11});
    EXPECT_EQ(layout.columnWidths, (std::array<double, 6>{5, 6, 7, 8, 9, 10}));
}

TEST(WindowLayout, KeepsWhatAShortFileLacks)
{
    WindowLayout designed;
    designed.width = 9000;
    designed.columnWidths.fill(1200);
    const WindowLayout layout = withValues(designed, {10, 20, 30});
    EXPECT_EQ(layout.height, 30);
    EXPECT_EQ(layout.width, 9000);
    EXPECT_EQ(layout.columnWidths[0], 1200);
}

TEST(WindowLayout, WritesColumnWidthsRoundedDown)
{
    WindowLayout layout{1.5, -15, 3, 4, {5.9, 6.1, 7, 8, 9, 10.99}};
    EXPECT_EQ(formatLayout(layout), " 1.5 \r\n-15 \r\n 3 \r\n 4 \r\n 5 \r\n 6 \r\n 7 \r\n 8 \r\n 9 \r\n 10 \r\n");
}

TEST(WindowLayout, IsAllZeroesAsLongAsNothingIsKnown)
{
    EXPECT_EQ(formatLayout({}), " 0 \r\n 0 \r\n 0 \r\n 0 \r\n 0 \r\n 0 \r\n 0 \r\n 0 \r\n 0 \r\n 0 \r\n");
}

TEST(WindowLayout, IsUnchangedWhenReadAndWrittenAgain)
{
    const std::string text = formatLayout({15, 10, 9000, 12000, {1, 2, 3, 4, 5, 6}});
    EXPECT_EQ(formatLayout(withValues({}, parseLayoutValues(text))), text);
}

}  // namespace

}  // namespace kavo
