// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/colour_set.h"

#include "tests/support/program_folder_fixture.h"

#include <gtest/gtest.h>

namespace kavo {

namespace {

using test::asCompared;
using test::TemporaryFolder;

constexpr const char* kDefaults =
    " 16777215 \r\n 8388608 \r\n 0 \r\n 0 \r\n 255 \r\n 352255 \r\n 16737430 \r\n 2014745 \r\n 6579300 \r\n";

TEST(Colours, AreWhiteAndDarkByDefault)
{
    EXPECT_EQ(formatColours({}), kDefaults);
}

TEST(Colours, ArePackedRedFirst)
{
    EXPECT_EQ(rgb(255, 0, 0), 255);
    EXPECT_EQ(rgb(255, 95, 5), 352255);
    EXPECT_EQ(rgb(200, 100, 200), 200 + 25600 + 13107200);
}

TEST(Colours, AreReadInTheOrderOfTheLines)
{
    const ColourFile file = parseColours(" 1 \r\n2\n 3,4\r\n5\r\n6\r\n7\r\n8\r\n9\r\n10\r\n");
    EXPECT_EQ(file.count, 9);
    const ColourSet& c = file.colours;
    EXPECT_EQ(c.ColBack, 1);
    EXPECT_EQ(c.ColFrames, 2);
    EXPECT_EQ(c.ColLabels, 3);
    EXPECT_EQ(c.ColText, 4);
    EXPECT_EQ(c.ColWR, 5);
    EXPECT_EQ(c.ColWC, 6);
    EXPECT_EQ(c.ColPro, 7);
    EXPECT_EQ(c.ColGood, 8);
    EXPECT_EQ(c.ColOK, 9);
}

TEST(Colours, OfAShortFileKeepTheOtherDefaults)
{
    const ColourFile file = parseColours("1\r\n2\r\n3\r\n4\r\n");
    EXPECT_EQ(file.count, 4);
    EXPECT_EQ(file.colours.ColText, 4);
    EXPECT_EQ(file.colours.ColWR, 255);
    EXPECT_EQ(parseColours("1\r\nred\r\n3\r\n").count, 1);
    EXPECT_EQ(parseColours("").colours, ColourSet{});
}

TEST(TableColours, NeedAFileOfTenBytes)
{
    const TemporaryFolder folder;
    EXPECT_EQ(readTableColours(folder.path()), ColourSet{});
    folder.write("colors/colors.ini", "1\r\n2\r\n3\r\n");
    EXPECT_EQ(readTableColours(folder.path()), ColourSet{});
    EXPECT_EQ(readWindowColours(folder.path()).ColFrames, 2);
    folder.write("colors/colors.ini", "1\r\n2\r\n3\r\n4");
    EXPECT_EQ(readTableColours(folder.path()).ColText, 4);
}

TEST(WindowColours, AreTheDefaultsWithoutAFile)
{
    const TemporaryFolder folder;
    EXPECT_EQ(readWindowColours(folder.path()), ColourSet{});
}

TEST(Colours, AreFoundInAnyCase)
{
    const TemporaryFolder folder;
    folder.write("Colors/Colors.INI", "11111111\r\n");
    EXPECT_EQ(readTableColours(folder.path()).ColBack, 11111111);
    EXPECT_EQ(asCompared(coloursFolder(folder.path())), asCompared(folder / "Colors"));
}

}  // namespace

}  // namespace kavo
