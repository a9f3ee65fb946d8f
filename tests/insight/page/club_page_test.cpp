// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/page/club_page.h"

#include "tests/support/program_folder_fixture.h"
#include "tests/support/state_with_targets.h"

#include <gtest/gtest.h>

namespace kavo {
namespace {

using test::statisticsText;

ClubPart clubOf(const std::vector<std::pair<std::string, std::string>>& players)
{
    const ResultsState state = test::stateWithTargets();
    ClubCollector collector(state);
    for (const auto& [file, text] : players) collector.add(text, file);
    return collector.finish();
}

std::string pageOf(const ClubPart& club)
{
    return formatClubPage(club, {}, 0);
}

TEST(ClubPage, HasARowForEachPlayerAndLevel)
{
    const std::string page = pageOf(clubOf({{"ann.txt", statisticsText({"00:10:00 Ann", "00:40:00 Ann"})},
                                            {"bob.txt", statisticsText({"00:20:00 Bob", "00:25:00 Bob"})}}));
    // Bob 20 + 25 + 52 x 30 s: before Ann with 10 + 40 + 52 x 30 s.
    const std::size_t bob = page.find(
        "data-value=\"1\"><bdi>Bob</bdi></th><td data-label=\"Total\" "
        "data-value=\"160500\">26:45:00</td>");
    const std::size_t ann =
        page.find("<bdi>Ann</bdi></th><td data-label=\"Total\" data-value=\"161000\">26:50:00</td>");
    EXPECT_LT(bob, ann);
    EXPECT_LT(ann, page.size());
    EXPECT_NE(page.find("<bdi>1, Track</bdi></th><td data-label=\"Best time\" data-value=\"1000\">00:10:00</td>"
                        "<td data-label=\"Grade\" data-value=\"0\" class=\"g0\">World Record</td>"
                        "<td data-label=\"Won by\" class=\"name\"><bdi>Ann</bdi></td>"),
              std::string::npos);
    EXPECT_NE(page.find("<td data-label=\"Won by\" class=\"name\"><bdi>Bob</bdi>, <bdi>Ann</bdi></td>"),
              std::string::npos);
    EXPECT_NE(page.find("Total: 26:35:00, <b class=\"g0\">World Record</b> 1"), std::string::npos);
}

TEST(ClubPage, MatrixMarksTheLevelsThatAPlayerHasWon)
{
    const std::string all = statisticsText();
    std::vector<std::string> slow(54, "00:31:00 Bob");
    slow[2] = slow[53] = "00:29:00 Bob";
    const std::string page = pageOf(clubOf({{"alice.txt", all}, {"bob.txt", statisticsText(slow)}}));
    EXPECT_NE(page.find("<title>Bob has won the levels: 3, 54</title><rect width=\"54\" height=\"1\"/>"
                        "<path d=\"M2 0h.9v1h-.9zM53 0h.9v1h-.9z\"/></svg>"),
              std::string::npos);
}

TEST(ClubPage, EscapesNames)
{
    const std::string page = pageOf(clubOf({{"x.txt", statisticsText({"00:10:00 <script>alert(1)</script>"})}}));
    EXPECT_EQ(page.find("<script>alert"), std::string::npos);
    EXPECT_NE(page.find("&lt;script&gt;alert(1)&lt;/script&gt;"), std::string::npos);
}

TEST(ClubPage, OfThousandsIsNoLargerThanItMayBe)
{
    ClubPart club = clubOf({{"alice.txt", statisticsText()}});
    club.players.front().name = std::string(100, '"');
    club.players.resize(3000, club.players.front());  // all tie on all levels
    const std::string page = pageOf(club);
    EXPECT_LE(page.size(), 250'000U);
    EXPECT_NE(page.find("The first 80 of 3000 players"), std::string::npos);
    EXPECT_NE(page.find(" and 2995 more"), std::string::npos);
}

TEST(ClubPage, OfNobodyIsAPage)
{
    EXPECT_NE(pageOf(clubOf({})).find("The best of every level"), std::string::npos);
}

}  // namespace
}  // namespace kavo
