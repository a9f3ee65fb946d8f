// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/command_line.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>

namespace kavo {
namespace {

using test::Outcome;
using test::statisticsText;
using test::TemporaryFolder;
using Json = nlohmann::json;

std::string firstLines(const std::string& text, int count)
{
    std::size_t end = 0;
    for (int i = 0; i < count; ++i) end = text.find('\n', end) + 1;
    return text.substr(0, end);
}

/// Targets of 10, 20, 30, 40 and 50 s. Ann and Bob tie on every level but the first two.
class ClubCommand : public testing::Test
{
protected:
    ClubCommand()
    {
        folder.write("targets.txt", test::targetsText());
        folder.write("league/ann.txt", statisticsText({"00:10:00 Ann", "00:40:00 Ann", "00:30:00 Ann"}));
        folder.write("league/bob.txt", statisticsText({"00:20:00 Bob", "00:25:00 Bob", "00:30:00 Bob"}));
    }

    [[nodiscard]] Outcome run(std::vector<std::string> arguments, const OutputFacts& output = {}) const
    {
        arguments.insert(arguments.begin(), "club");
        return test::runCommand(folder, std::move(arguments), "", output);
    }

    [[nodiscard]] std::string path(std::string_view name) const { return (folder / name).string(); }

    TemporaryFolder folder;
};

TEST_F(ClubCommand, PrintsPlayersByTotalThenTheBestOfEveryLevel)
{
    const Outcome outcome = run({path("league")});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.error, "");
    // Bob 20 + 25 + 52 x 30 s, Ann 10 + 40 + 52 x 30 s, the team 10 + 25 + 52 x 30 s.
    EXPECT_EQ(firstLines(outcome.out, 9),
              "Player  Total     World Record  World Class  Professional  Good  OK  Beginner  Levels won\n"
              "Bob     26:45:00  0             1            53            0     0   0         53\n"
              "Ann     26:50:00  1             0            52            1     0   0         53\n"
              "Team    26:35:00  1             0            53            0     0   0\n"
              "\n"
              "1, Track    00:10:00  World Record  Ann\n"
              "2, Track    00:25:00  Professional  Bob\n"
              "3, Track    00:30:00  Professional  Bob, Ann\n"
              "4, Track    00:30:00  Professional  Bob, Ann\n");
    EXPECT_EQ(std::count(outcome.out.begin(), outcome.out.end(), '\n'), 4 + 1 + 54);
    EXPECT_EQ(run({path("league/ann.txt"), path("league/bob.txt")}).out, outcome.out);
}

TEST_F(ClubCommand, ShortensALongTie)
{
    for (const char* name : {"C", "D", "E", "F", "G"})
        folder.write(std::string("league/") + name, statisticsText({std::string("00:30:00 ") + name}));
    EXPECT_NE(run({path("league")}).out.find("3, Track    00:30:00  Professional  Bob, Ann, C, D, E and 2 more\n"),
              std::string::npos);
}

TEST_F(ClubCommand, UsesTheUsersColoursOnATerminal)
{
    folder.write("curUser.dat", "bob\r\n");
    folder.write("bob/colors/colors.ini", " 1 \r\n 2 \r\n 3 \r\n 4 \r\n 5 \r\n 6 \r\n 7 \r\n 8 \r\n 9 \r\n");
    EXPECT_NE(run({path("league")}, {.isTerminal = true, .term = "xterm", .colorTerm = "truecolor"})
                  .out.find("\x1b[38;2;5;0;0mWorld Record\x1b[0m"),
              std::string::npos);
}

TEST_F(ClubCommand, PrintsExactNumbersAsJson)
{
    const Outcome outcome = run({path("league"), "--json"});
    EXPECT_EQ(outcome.status, 0);
    const Json club = Json::parse(outcome.out);
    ASSERT_EQ(club["players"].size(), 2U);
    EXPECT_EQ(club["players"][1], (Json{{"name", "Ann"},
                                        {"file", path("league/ann.txt")},
                                        {"total", "26:50:00"},
                                        {"hundredths", 161000},
                                        {"grades", Json::parse(R"({"World Record": 1, "World Class": 0,
                                            "Professional": 52, "Good": 1, "OK": 0, "Beginner": 0})")},
                                        {"levels_won", 53}}));
    EXPECT_EQ(club["levels"][2], Json::parse(R"({"level": 3, "name": "3, Track", "time": "00:30:00",
                                                 "grade": "Professional", "drivers": ["Bob", "Ann"]})"));
    EXPECT_EQ(club["team"]["total"], "26:35:00");
    EXPECT_EQ(club["team"]["hundredths"], 159500);
    EXPECT_EQ(club["unreadable"], Json::array());
}

TEST_F(ClubCommand, NamesWhatItLeavesOut)
{
    folder.write("league/notes.txt", "nothing of the kind");
    const std::string all = run({path("league/ann.txt"), path("league/bob.txt")}).out;
    const Outcome outcome = run({path("league"), path("nowhere.txt")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, all);
    EXPECT_EQ(outcome.error, "kavo-timing-cli: Wrong file!: " + path("league/notes.txt") +
                                 " is left out\nkavo-timing-cli: File not found: " + path("nowhere.txt") +
                                 " (No such file or directory) is left out\n");
    EXPECT_EQ(Json::parse(run({path("league"), "--json"}).out)["unreadable"],
              Json::array({{{"file", path("league/notes.txt")}, {"reason", "Wrong file!"}}}));
}

TEST_F(ClubCommand, NamesTheWholePathOfWhatItLeavesOut)
{
    const std::string missing = "a file that is not in the working folder.txt";
    const std::string error = run({path("league/ann.txt"), missing}).error;
    EXPECT_EQ(error, "kavo-timing-cli: File not found: " + std::filesystem::absolute(missing).string() +
                         " (No such file or directory) is left out\n");
}

TEST_F(ClubCommand, PrintsNothingWhereNobodyIs)
{
    folder.write("notes/notes.txt", "nothing of the kind");
    std::filesystem::create_directory(folder / "empty");
    const std::string nobody = "kavo-timing-cli: No players: there is no statistics file of the game\n";
    const Outcome ofNotes = run({path("notes")});
    EXPECT_EQ(ofNotes.status, 1);
    EXPECT_EQ(ofNotes.out, "");
    EXPECT_EQ(ofNotes.error, "kavo-timing-cli: Wrong file!: " + path("notes/notes.txt") + " is left out\n" + nobody);
    const Outcome ofNothing = run({path("empty")});
    EXPECT_EQ(ofNothing.status, 0);
    EXPECT_EQ(ofNothing.out, "");
    EXPECT_EQ(ofNothing.error, nobody);
}

TEST_F(ClubCommand, SaysWhyEverybodyIsABeginner)
{
    std::filesystem::remove(folder / "targets.txt");
    const Outcome outcome = run({path("league/ann.txt")});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.error, "kavo-timing-cli: File not found: " + path("targets.txt") +
                                 " (No such file or directory): every level is graded Beginner\n");
}

TEST_F(ClubCommand, JoinsPartsInAnyOrderAndGroupingToTheSameBytes)
{
    folder.write("league/cat.txt", statisticsText({"00:10:00 Cat"}));
    for (const char* name : {"ann", "bob", "cat"})
        ASSERT_EQ(run({path(std::string("league/") + name + ".txt"), "--partial", path(name)}).status, 0);
    ASSERT_EQ(run({path("league"), "--partial", path("whole")}).status, 0);
    const std::string whole = folder.read("whole");
    EXPECT_EQ(run({"--merge", path("ann"), path("bob"), path("cat"), "--partial", "-"}).out, whole);
    EXPECT_EQ(run({"--merge", path("cat"), path("ann"), path("bob"), path("ann"), "--partial", "-"}).out, whole);
    ASSERT_EQ(run({"--merge", path("cat"), path("bob"), "--partial", path("two")}).status, 0);
    EXPECT_EQ(run({"--merge", path("ann"), path("two"), "--partial", "-"}).out, whole);
    EXPECT_EQ(run({"--merge", path("ann"), path("two")}).out, run({path("league")}).out);
    EXPECT_EQ(run({"--json", "--merge", path("ann"), path("two")}).out, run({path("league"), "--json"}).out);
}

TEST_F(ClubCommand, RefusesPartsThatDoNotGoTogether)
{
    ASSERT_EQ(run({path("league/ann.txt"), "--partial", path("ann")}).status, 0);
    folder.write("targets.txt", test::targetsText("00:11:00,00:20:00,00:30:00,00:40:00,00:50:00"));
    ASSERT_EQ(run({path("league/bob.txt"), "--partial", path("bob")}).status, 0);
    const Outcome outcome = run({"--merge", path("ann"), path("bob")});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.error, "kavo-timing-cli: " + path("bob") + ": the parts were graded by different targets\n");
    EXPECT_EQ(run({"--merge", path("league/ann.txt")}).error,
              "kavo-timing-cli: " + path("league/ann.txt") + ": not a part of a club's table\n");
    const Outcome missing = run({"--merge", path("nowhere")});
    EXPECT_EQ(missing.status, 1);
    EXPECT_EQ(missing.error.find("kavo-timing-cli: File not found: "), 0U) << missing.error;
}

TEST_F(ClubCommand, NeedsPlacesOrParts)
{
    EXPECT_EQ(run({}).status, 2);
    EXPECT_EQ(run({"--json"}).error,
              "kavo-timing-cli: PLACE or --merge is required; for help: kavo-timing-cli club --help\n");
    EXPECT_EQ(run({path("league"), "--merge", path("ann")}).status, 2);
    EXPECT_EQ(run({path("league"), "--json", "--partial", "-"}).status, 2);
}

TEST_F(ClubCommand, WritesAPageInTheUsersColours)
{
    folder.write("curUser.dat", "bob\r\n");
    folder.write("bob/colors/colors.ini", " 16777215 \r\n 4210688 \r\n");  // headings in 0, 64, 64
    const Outcome outcome = run({path("league"), "--html", path("league.html")});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "");
    const std::string page = folder.read("league.html");
    EXPECT_NE(page.find("--accent:#004040"), std::string::npos);
    EXPECT_NE(page.find("<bdi>Ann</bdi>"), std::string::npos);
    EXPECT_EQ(run({path("league"), "--html", "-"}).out, page);
    EXPECT_EQ(run({path("league"), "--html", "-", "--json"}).status, 2);
    EXPECT_EQ(run({path("league"), "--html", "-", "--partial", "-"}).status, 2);
}

TEST_F(ClubCommand, MakesTheSamePageOfJoinedParts)
{
    ASSERT_EQ(run({path("league/ann.txt"), "--partial", path("ann")}).status, 0);
    ASSERT_EQ(run({path("league/bob.txt"), "--partial", path("bob")}).status, 0);
    EXPECT_EQ(run({"--merge", path("bob"), path("ann"), "--html", "-"}).out, run({path("league"), "--html", "-"}).out);
}

TEST_F(ClubCommand, OfNobodyIsEmpty)
{
    std::filesystem::create_directory(folder / "empty");
    const Outcome outcome = run({path("empty"), "--json"});
    EXPECT_EQ(outcome.status, 0);
    const Json club = Json::parse(outcome.out);
    EXPECT_EQ(club["players"], Json::array());
    EXPECT_EQ(club["levels"][53]["time"], "SKIPPED");
    EXPECT_EQ(club["levels"][53]["drivers"], Json::array());
}

}  // namespace
}  // namespace kavo
