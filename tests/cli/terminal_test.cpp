// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/terminal.h"

#include <gtest/gtest.h>

namespace kavo {

namespace {

Colours coloursOn(const char* term, const char* colorTerm = "")
{
    return terminalOf({.isTerminal = true, .term = term, .colorTerm = colorTerm}, kColourAuto).colours;
}

TEST(Terminal, ShowsAsManyColoursAsItsNameSays)
{
    EXPECT_EQ(coloursOn("xterm-256color", "truecolor"), Colours::True);
    EXPECT_EQ(coloursOn("xterm", "24bit"), Colours::True);
    EXPECT_EQ(coloursOn("xterm-direct"), Colours::True);
    EXPECT_EQ(coloursOn("xterm-256color"), Colours::Palette);
    EXPECT_EQ(coloursOn("tmux-256color", "yes"), Colours::Palette);
    EXPECT_EQ(coloursOn("xterm"), Colours::Sixteen);
    EXPECT_EQ(coloursOn("linux"), Colours::Sixteen);
    for (const char* term : {"dumb", "", "vt100", "vt220", "linux-m", "xterm-mono"}) {
        EXPECT_EQ(coloursOn(term), Colours::None) << term;
        EXPECT_EQ(coloursOn(term, "truecolor"), Colours::None) << term;
    }
}

TEST(Terminal, HasNoColoursByItselfWhereNobodyWantsThem)
{
    const auto colours = [](OutputFacts facts) {
        facts.term = "xterm-256color";
        return terminalOf(facts, kColourAuto).colours;
    };
    EXPECT_EQ(colours({.isTerminal = true}), Colours::Palette);
    EXPECT_EQ(colours({.isTerminal = false}), Colours::None);
    EXPECT_EQ(colours({.isTerminal = true, .noColor = "1"}), Colours::None);
}

TEST(Terminal, ObeysTheWishForColours)
{
    const OutputFacts pipe = {.term = "xterm-256color", .noColor = "1"};
    EXPECT_EQ(terminalOf(pipe, kColourAlways).colours, Colours::Palette);
    EXPECT_EQ(terminalOf({.term = "xterm", .colorTerm = "truecolor"}, kColourAlways).colours, Colours::True);
    EXPECT_EQ(terminalOf({}, kColourAlways).colours, Colours::Sixteen);
    EXPECT_EQ(terminalOf({.isTerminal = true, .term = "dumb"}, kColourAlways).colours, Colours::Sixteen);
    EXPECT_EQ(terminalOf({.isTerminal = true, .term = "xterm"}, kColourNever).colours, Colours::None);
}

TEST(Terminal, IsAsWideAsItSaysElseAsTheUserSays)
{
    const auto columns = [](const OutputFacts& facts) { return terminalOf(facts, kColourAuto).columns; };
    EXPECT_EQ(columns({.columns = 132, .columnsWished = "40"}), 132U);
    EXPECT_EQ(columns({.columns = 0, .columnsWished = "40"}), 40U);
    EXPECT_EQ(columns({.columnsWished = "40"}), 40U);
    for (const char* nonsense : {"", "0", "-5", "wide", "40x", "99999999999999999999999"})
        EXPECT_EQ(columns({.columnsWished = nonsense}), 80U) << nonsense;
}

}  // namespace

}  // namespace kavo
