// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/page/charts.h"

#include <gtest/gtest.h>

namespace kavo {
namespace {

TEST(Coordinate, HasTwoDecimalsAtMost)
{
    EXPECT_EQ(coordinate(0), "0");
    EXPECT_EQ(coordinate(12.5), "12.5");
    EXPECT_EQ(coordinate(100), "100");
    EXPECT_EQ(coordinate(1.0 / 3), "0.33");
    EXPECT_EQ(coordinate(0.004), "0");
    EXPECT_EQ(coordinate(-0.25), "-0.25");
}

TEST(Shares, LieSideBySide)
{
    Markup page;
    writeShares(page, "Ann: <3>", {{"g0", 1}, {"g1", 0}, {"g2", 3}});
    EXPECT_EQ(page.written(),
              "<svg class=\"shares\" role=\"img\"><title>Ann: &lt;3&gt;</title>"
              "<rect class=\"g0\" x=\"0%\" width=\"25%\"/><rect class=\"g2\" x=\"25%\" width=\"75%\"/></svg>");
}

TEST(Shares, OfNothingAreEmpty)
{
    Markup page;
    writeShares(page, "none", {{"g0", 0}});
    EXPECT_EQ(page.written(), "<svg class=\"shares\" role=\"img\"><title>none</title></svg>");
}

/// The places of the marks on a scale from 50 s to 10 s: OK is at 7 %, the record at 93 %.
std::string marksOf(std::optional<Hundredths> time1, std::optional<Hundredths> time2)
{
    Markup page;
    writeTimeBar(page, "", {5000, 4000, 3000, 2000, 1000}, time1, time2);
    const std::string& text = page.written();
    const std::size_t from = text.find("<circle");
    return from == std::string::npos ? std::string() : text.substr(from, text.size() - from - 6);
}

TEST(TimeBar, HasASegmentForEachGrade)
{
    Markup page;
    writeTimeBar(page, "t", {5000, 4000, 3000, 2000, 1000}, std::nullopt, std::nullopt);
    EXPECT_EQ(page.written(),
              "<svg class=\"bar\" role=\"img\"><title>t</title>"
              "<rect class=\"g4\" x=\"7%\" width=\"21.5%\"/><rect class=\"g3\" x=\"28.5%\" width=\"21.5%\"/>"
              "<rect class=\"g2\" x=\"50%\" width=\"21.5%\"/><rect class=\"g1\" x=\"71.5%\" width=\"21.5%\"/></svg>");
}

TEST(TimeBar, PlacesTimesBetweenOkAndTheRecord)
{
    EXPECT_EQ(marksOf(3000, std::nullopt), "<circle class=\"p1\" cx=\"50%\"/>");
    EXPECT_EQ(marksOf(5000, 1000), "<circle class=\"p2\" cx=\"93%\"/><circle class=\"p1\" cx=\"7%\"/>");
}

TEST(TimeBar, ShowsTimesBeyondTheEndsBehindThem)
{
    EXPECT_EQ(marksOf(5001, 999), "<circle class=\"p2\" cx=\"98%\"/><circle class=\"p1\" cx=\"2%\"/>");
    EXPECT_EQ(marksOf(600000, std::nullopt), "<circle class=\"p1\" cx=\"2%\"/>");
    EXPECT_EQ(marksOf(std::nullopt, std::nullopt), "");
}

std::string lineOf(const std::vector<Step>& steps)
{
    Markup page;
    writeLine(page, "t", "", steps);
    const std::string& text = page.written();
    const std::size_t from = text.find(" d=\"") + 4;
    return text.substr(from, text.find('"', from) - from);
}

TEST(Line, StepsDownWhenTimesBecomeSmaller)
{
    // 1000 wide and 100 high; the largest is at 5, the smallest at 95.
    EXPECT_EQ(lineOf({{0, 300}, {0.25, 300}, {0.5, 200}, {0.75, 100}}), "M0 5H500V50H750V95H1000");
}

TEST(Line, HasGapsWhereThereIsNoTime)
{
    EXPECT_EQ(lineOf({{0, std::nullopt}, {0.5, 200}}), "M500 50H1000");
    EXPECT_EQ(lineOf({{0, 300}, {0.25, std::nullopt}, {0.5, 100}}), "M0 5H250M500 95H1000");
    EXPECT_EQ(lineOf({{0, std::nullopt}}), "");
}

TEST(Line, TellsWhatItIs)
{
    Markup page;
    writeLine(page, "Total", "From 1 to 2", {{0, 1}});
    EXPECT_EQ(page.written(),
              "<svg class=\"line\" role=\"img\" viewBox=\"0 0 1000 100\" preserveAspectRatio=\"none\">"
              "<title>Total</title><desc>From 1 to 2</desc><path d=\"M0 50H1000\"/></svg>");
}

TEST(Stack, PutsTheFirstShareAtTheBottom)
{
    Markup page;
    writeStack(page, "t", "d", {{0, {{"g0", 0}, {"g1", 4}}}, {0.5, {{"g0", 3}, {"g1", 1}}}});
    // All four levels fill the height of 4; the lower one is drawn over the upper one.
    EXPECT_EQ(page.written(),
              "<svg class=\"stack\" role=\"img\" viewBox=\"0 0 1000 4\" preserveAspectRatio=\"none\">"
              "<title>t</title><desc>d</desc><path class=\"g1\" d=\"M0 4H0V0H1000V4z\"/>"
              "<path class=\"g0\" d=\"M0 4H0V4H500V1H1000V4z\"/></svg>");
}

}  // namespace
}  // namespace kavo
