// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/page/page_colours.h"

#include <gtest/gtest.h>

namespace kavo {
namespace {

constexpr Colour kWhite = rgb(255, 255, 255);
constexpr Colour kBlack = rgb(0, 0, 0);

TEST(Contrast, IsThatOfTheirLuminances)
{
    EXPECT_NEAR(contrast(kWhite, kBlack), 21, 0.001);
    EXPECT_NEAR(contrast(kBlack, kWhite), 21, 0.001);
    EXPECT_NEAR(contrast(kWhite, kWhite), 1, 0.001);
    // The luminance of pure red is 0.2126: 1.05 / 0.2626.
    EXPECT_NEAR(contrast(rgb(255, 0, 0), kWhite), 3.998, 0.001);
}

TEST(ReadableOn, KeepsAColourThatCanBeRead)
{
    EXPECT_EQ(readableOn(kWhite, rgb(0, 0, 128)), rgb(0, 0, 128));
    EXPECT_EQ(readableOn(kBlack, rgb(255, 255, 0)), rgb(255, 255, 0));
}

TEST(ReadableOn, ChangesOthersNoMoreThanNeeded)
{
    const Colour red = readableOn(kWhite, rgb(255, 0, 0));
    EXPECT_GE(contrast(red, kWhite), 4.5);
    EXPECT_LT(contrast(red, kWhite), 5);
    EXPECT_EQ(red >> 8, 0);  // still nothing but red
    EXPECT_EQ(readableOn(kBlack, kBlack) & 0xFF, readableOn(kBlack, kBlack) >> 16);
    EXPECT_GE(contrast(readableOn(kBlack, kBlack), kBlack), 4.5);
}

/// Schemes with colours of every kind, also such as no window could show.
const std::array kSchemes = {
    ColourSet{},
    ColourSet{.ColBack = kBlack, .ColFrames = kBlack, .ColText = kBlack, .ColWR = kBlack},
    ColourSet{.ColBack = rgb(128, 128, 128), .ColText = rgb(130, 130, 130), .ColOK = kWhite},
    ColourSet{.ColBack = -1, .ColFrames = 0x7FFFFFFF, .ColText = -2147483647, .ColGood = 0x01000000},
};

TEST(PageColours, CanBeReadWhateverTheScheme)
{
    for (const ColourSet& scheme : kSchemes) {
        for (const PageShade shade : {PageShade::Light, PageShade::Dark}) {
            const PageColours colours = pageColours(scheme, shade);
            for (const Colour colour : {colours.text, colours.quiet, colours.accent})
                EXPECT_GE(contrast(colour, colours.background), 4.5);
            for (const Colour colour : colours.grades.values) EXPECT_GE(contrast(colour, colours.background), 4.5);
            EXPECT_EQ(contrast(colours.background, kWhite) < contrast(colours.background, kBlack),
                      shade == PageShade::Light);
        }
    }
}

TEST(PageColours, AreTheUsersWhereTheyFit)
{
    const ColourSet light;
    EXPECT_EQ(pageColours(light, PageShade::Light).background, light.ColBack);
    EXPECT_EQ(pageColours(light, PageShade::Light).accent, light.ColFrames);
    const ColourSet dark = {.ColBack = rgb(10, 10, 10), .ColText = rgb(240, 240, 240), .ColGood = rgb(25, 190, 30)};
    EXPECT_EQ(pageColours(dark, PageShade::Dark).background, dark.ColBack);
    EXPECT_EQ(pageColours(dark, PageShade::Dark).grades[TargetCategory::Good], dark.ColGood);
}

TEST(ColourRules, AreDarkOnADarkScreenOnly)
{
    const std::string rules = colourRules({});
    EXPECT_TRUE(rules.starts_with(":root{--back:#ffffff;--text:#000000;")) << rules;
    EXPECT_NE(rules.find("\n@media screen and (prefers-color-scheme:dark){:root{--back:#14171c;"), std::string::npos);
}

}  // namespace
}  // namespace kavo
