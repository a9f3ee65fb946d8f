// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/escape.h"

#include <gtest/gtest.h>

namespace kavo {

namespace {

TEST(Escape, IsEmptyWhereNothingIsAskedFor)
{
    EXPECT_EQ(escapeFor(rgb(255, 0, 0), true, Colours::None), "");
    for (const Colours colours : {Colours::Sixteen, Colours::Palette, Colours::True})
        EXPECT_EQ(escapeFor({}, false, colours), "");
}

TEST(Escape, MakesBoldBeforeTheColour)
{
    EXPECT_EQ(escapeFor({}, true, Colours::Sixteen), "\x1b[1m");
    EXPECT_EQ(escapeFor(rgb(255, 95, 5), true, Colours::True), "\x1b[1m\x1b[38;2;255;95;5m");
}

// The steps of the palette's cube are 0, 95, 135, 175, 215, 255; its greys 8, 18, 28 ... 238.
TEST(Escape, TakesTheNearestColourOfThePalette)
{
    const auto palette = [](int red, int green, int blue) {
        return escapeFor(rgb(red, green, blue), false, Colours::Palette);
    };
    EXPECT_EQ(palette(255, 0, 0), "\x1b[38;5;196m");      // 16 + 36 * 5
    EXPECT_EQ(palette(255, 95, 5), "\x1b[38;5;202m");     // 16 + 36 * 5 + 6 * 1
    EXPECT_EQ(palette(150, 100, 255), "\x1b[38;5;99m");   // 16 + 36 * 2 + 6 * 1 + 5
    EXPECT_EQ(palette(25, 190, 30), "\x1b[38;5;34m");     // 16 + 6 * 3
    EXPECT_EQ(palette(100, 100, 100), "\x1b[38;5;241m");  // grey 98
    EXPECT_EQ(palette(0, 0, 0), "\x1b[38;5;16m");
    EXPECT_EQ(palette(255, 255, 255), "\x1b[38;5;231m");
}

TEST(Escape, TakesTheNearestOfSixteenColours)
{
    const auto sixteen = [](int red, int green, int blue) {
        return escapeFor(rgb(red, green, blue), false, Colours::Sixteen);
    };
    EXPECT_EQ(sixteen(0, 0, 0), "\x1b[30m");
    EXPECT_EQ(sixteen(255, 0, 0), "\x1b[31m");
    EXPECT_EQ(sixteen(25, 190, 30), "\x1b[32m");
    EXPECT_EQ(sixteen(100, 100, 100), "\x1b[90m");
    EXPECT_EQ(sixteen(255, 255, 255), "\x1b[97m");
}

TEST(Escape, ShowsTheGradesOfADesignedSchemeInDifferentColours)
{
    const ColourSet designed;
    for (const Colours colours : {Colours::Sixteen, Colours::Palette, Colours::True}) {
        const std::array grades = {designed.ColWR, designed.ColWC, designed.ColPro, designed.ColGood, designed.ColOK};
        for (const Colour a : grades)
            for (const Colour b : grades)
                EXPECT_EQ(escapeFor(a, false, colours) == escapeFor(b, false, colours), a == b) << a << " " << b;
    }
}

}  // namespace

}  // namespace kavo
