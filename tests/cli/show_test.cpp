// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/bobs_folder.h"
#include "tests/support/command_line.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <sstream>

namespace kavo {

namespace {

using test::Outcome;
using test::statisticsText;
using test::TemporaryFolder;
using Json = nlohmann::json;

/// A program folder in which bob compares stats.txt with other.txt.
class Show : public testing::Test
{
protected:
    Show()
    {
        test::compareBobWithFile(folder, statisticsText({"00:10:00 Ann", "", "00:40:00 Ann"}),
                                 statisticsText({"00:11:00 J\xFCrgen"}));
    }

    Outcome run(const std::vector<std::string>& arguments) const { return test::runCommand(folder, arguments); }

    [[nodiscard]] Json json(std::vector<std::string> arguments = {}, int status = 0) const
    {
        arguments.insert(arguments.begin(), {"show", "--json"});
        const Outcome outcome = run(arguments);
        EXPECT_EQ(outcome.status, status) << outcome.error;
        return Json::parse(outcome.out);
    }

    [[nodiscard]] std::string path(std::string_view name) const { return (folder / name).string(); }

    static constexpr const char* kIsNoStatisticsFile =
        " is no statistics file of the game; the window's Options (F2) choose the file)\n";

    TemporaryFolder folder;
};

std::string lineOf(const std::string& text, int number)
{
    std::istringstream lines(text);
    std::string line;
    for (int i = 0; i < number; ++i) std::getline(lines, line);
    return line;
}

TEST_F(Show, PrintsTheTableInAlignedColumns)
{
    const Outcome outcome = run({"show"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.error, "");
    EXPECT_EQ(std::count(outcome.out.begin(), outcome.out.end(), '\n'), 56);
    EXPECT_EQ(
        lineOf(outcome.out, 1),
        "Level        Ann       Target 1      Jürgen    Target 2      Difference  Team      Target        Author");
    EXPECT_EQ(lineOf(outcome.out, 2),
              "1, Track     00:10:00  World Record  00:11:00  World Class   00:01:00    00:10:00  World Record  Ann");
    EXPECT_EQ(
        lineOf(outcome.out, 3),
        "2, Track     SKIPPED   Beginner      00:30:00  Professional  00:30:00    00:30:00  Professional  Jürgen");
    // 10 + 600 + 40 + 51 x 30 s; 11 + 53 x 30 s; the team drives 10 + 53 x 30 s.
    EXPECT_EQ(lineOf(outcome.out, 56),
              "TOTAL TIME:  36:20:00  Beginner      26:41:00  Beginner      09:39:00    26:40:00  Beginner      Team");
}

TEST_F(Show, PrintsEverythingAsJson)
{
    const Json shown = json();
    EXPECT_EQ(shown["user"], "bob");
    EXPECT_EQ(shown["caption"], "Kavo Timing 2.1  User: bob");
    EXPECT_EQ(shown["messages"], Json::array());
    EXPECT_TRUE(shown["error"].is_null());
    EXPECT_EQ(shown["headers"],
              Json({"Level", "Ann", "Target 1", "Jürgen", "Target 2", "Difference", "Team", "Target", "Author"}));
    ASSERT_EQ(shown["rows"].size(), 55U);
    const Json& first = shown["rows"][0];
    EXPECT_EQ(first["cells"], Json({"1, Track", "00:10:00", "World Record", "00:11:00", "World Class", "00:01:00",
                                    "00:10:00", "World Record", "Ann"}));
    EXPECT_EQ(first["bold"], Json({false, true, false, false, false, false, true, false, false}));
    EXPECT_EQ(first["colours"], Json({0, 0, 255, 0, 352255, 0, 0, 255, 0}));
    const Json& totals = shown["rows"][54];
    EXPECT_EQ(totals["bold"], Json(std::vector<bool>(9, true)));
    EXPECT_EQ(totals["colours"], Json({0, 0, 0, 200 + 256 * 100 + 65536 * 200, 0, 0, 0, 0, 0}));
    EXPECT_EQ(shown["names"], Json({{"player1", "Ann"}, {"player2", "Jürgen"}, {"team", "Team"}}));
    EXPECT_EQ(
        shown["grades"]["player1"],
        Json({{"World Record", 1}, {"World Class", 0}, {"Professional", 51}, {"Good", 1}, {"OK", 0}, {"Beginner", 1}}));
    EXPECT_EQ(shown["grades"]["player2"]["World Class"], 1);
    EXPECT_EQ(shown["grades"]["team"]["Professional"], 53);
    EXPECT_EQ(shown["victories"], Json({{"player1", 2}, {"player2", 1}}));
}

TEST_F(Show, KeepsTheOrderOfTheFieldsInJson)
{
    const std::string text = run({"show", "--json"}).out;
    std::size_t at = 0;
    for (const char* field : {"\"user\"", "\"caption\"", "\"messages\"", "\"error\"", "\"headers\"", "\"rows\"",
                              "\"names\"", "\"grades\"", "\"victories\""}) {
        const std::size_t next = text.find(field, at);
        ASSERT_NE(next, std::string::npos) << field;
        at = next;
    }
    EXPECT_EQ(text.back(), '\n');
}

TEST_F(Show, GivesUncolouredCellsTheTextColourOfTheScheme)
{
    folder.write("bob/colors/colors.ini", "1\r\n2\r\n3\r\n4711\r\n5\r\n6\r\n7\r\n8\r\n9\r\n");
    EXPECT_EQ(json()["rows"][0]["colours"], Json({4711, 4711, 5, 4711, 6, 4711, 4711, 5, 4711}));
    folder.write("bob/colors/colors.ini", "1\r\n2\r\n3333333\r\n");
    EXPECT_EQ(json()["rows"][0]["colours"][0], 0);
}

TEST_F(Show, BlanksRowsByAFilter)
{
    const Json blank = std::vector<std::string>(9);
    const Json beginners = json({"--filter1", "Beginner"})["rows"];
    EXPECT_EQ(beginners.size(), 55U);
    EXPECT_EQ(beginners[0]["cells"], blank);
    EXPECT_EQ(beginners[0]["colours"][2], 255);
    EXPECT_EQ(beginners[1]["cells"][1], "SKIPPED");
    EXPECT_EQ(beginners[54]["cells"][0], "TOTAL TIME:");
    const Json victories = json({"--filter2", "Victories"})["rows"];
    EXPECT_EQ(victories[0]["cells"], blank);
    EXPECT_EQ(victories[1]["cells"][1], "SKIPPED");
    EXPECT_EQ(victories[3]["cells"][1], "00:30:00");  // a tie
    EXPECT_EQ(json({"--filter1", "World Class"})["grades"]["player1"]["Professional"], 51);
}

TEST_F(Show, KnowsEveryFilterOfTheMenu)
{
    for (const char* name : {"Beginner", "OK", "Good", "Professional", "World Class", "World Record", "Victories"})
        for (const char* option : {"--filter1", "--filter2"})
            EXPECT_EQ(run({"show", option, name}).status, 0) << option << name;
}

TEST_F(Show, TakesFilterNamesInAnyCase)
{
    EXPECT_EQ(run({"show", "--filter1", "world CLASS"}).out, run({"show", "--filter1", "World Class"}).out);
    EXPECT_EQ(run({"show", "--filter2", "victories"}).out, run({"show", "--filter2", "Victories"}).out);
    EXPECT_NE(run({"show", "--filter2", "victories"}).out, run({"show"}).out);
}

TEST_F(Show, TakesAWrongCallForAUsageError)
{
    for (const std::vector<std::string>& call :
         std::vector<std::vector<std::string>>{{"show", "--filter1", "Nobody"},
                                               {"show", "--filter1", "No filter"},
                                               {"show", "--filter1", "OK", "--filter2", "OK"},
                                               {"show", "--filter1"},
                                               {"show", "--xml"},
                                               {"show", "extra"}}) {
        const Outcome outcome = run(call);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.out, "");
        EXPECT_NE(outcome.error, "");
    }
}

TEST_F(Show, EndsWithOneAfterAnError)
{
    folder.write("stats.txt", "Player\r\nLevel 1\r\n00:10:00 Ann\r\n");
    const Json shown = json({}, 1);
    EXPECT_EQ(shown["error"], "Invalid procedure call or argument: stats.txt");
    EXPECT_EQ(shown["rows"].size(), 1U);
    EXPECT_EQ(shown["headers"][1], "Time 1");
    EXPECT_EQ(shown["names"]["player1"], "Ann");
    const Outcome outcome = run({"show"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.error, "kavo-timing-cli: Invalid procedure call or argument: " + path("stats.txt") + "\n");
}

TEST_F(Show, EndsWithOneAfterAWrongFile)
{
    folder.write("other.txt", "nothing");
    EXPECT_EQ(json({}, 1)["messages"], Json({"Wrong file!"}));
    EXPECT_EQ(run({"show"}).error, "kavo-timing-cli: Wrong file! (" + path("other.txt") + kIsNoStatisticsFile);
    folder.write("stats.txt", "nothing");
    EXPECT_EQ(run({"show"}).error, "kavo-timing-cli: Wrong file! (" + path("stats.txt") + kIsNoStatisticsFile);
}

TEST_F(Show, GoesOnWithoutTargetsAndSaysSo)
{
    std::filesystem::remove(folder / "targets.txt");
    const Json shown = json();
    ASSERT_EQ(shown["messages"].size(), 1U);
    EXPECT_EQ(shown["messages"][0],
              "Unable to find: targets.txt. If you want to download it now, select \"Update "
              "targets\" in right-button menu or press Ctrl+R");
    EXPECT_EQ(shown["rows"][0]["cells"][2], "Beginner");
    EXPECT_EQ(run({"show"}).error,
              "kavo-timing-cli: Unable to find: targets.txt. If you want to download it now, select \"Update targets\" "
              "in right-button menu or press Ctrl+R (" +
                  path("targets.txt") + "; without a window: kavo-timing-cli update-targets --page FILE)\n");
}

TEST_F(Show, LoadsTheUserThatIsNamed)
{
    folder.write("Жанна/data.ini", "other.txt\r\n 3 \r\n\r\nGood\r\n");
    const Json shown = Json::parse(run({"--user", "Жанна", "show", "--json"}).out);
    EXPECT_EQ(shown["user"], "Жанна");
    EXPECT_EQ(shown["headers"][3], "Good");
}

TEST_F(Show, SaysWhichUsersThereAre)
{
    folder.write("users.dat", "Marek\r\nЖанна\r\n\r\nmarek\r\nGone\r\nMarek\r\n");
    folder.write("Marek/data.ini", "");
    folder.write("Жанна/data.ini", "");
    const auto error = [this](const char* nick) { return run({"--user", nick, "show"}).error; };
    const std::string start = "kavo-timing-cli: Path not found: ";
    const std::string missing = " (No such file or directory): ";
    EXPECT_EQ(error("Nobody"), start + path("Nobody") + missing + "no user Nobody; there are Marek, Жанна, marek\n");
    EXPECT_EQ(error("Maerk"), start + path("Maerk") + missing + "no user Maerk, did you mean Marek or marek?\n");
    EXPECT_EQ(run({"--user", "Nobody", "show"}).status, 1);
    EXPECT_EQ(run({"--user", "Nobody", "show"}).out, "");
    EXPECT_EQ(json({"--user", "Nobody"}, 1)["error"], "Path not found: Nobody");
    EXPECT_EQ(run({"--user", "../bob", "show"}).status, 1);
    EXPECT_NE(error("../bob").find("no user ../bob; there are "), std::string::npos);
}

TEST_F(Show, KeepsALongListOfUsersShort)
{
    std::string users;
    for (int i = 1; i <= 13; ++i) {
        users += "user" + std::to_string(i) + "\r\n";
        folder.write("user" + std::to_string(i) + "/data.ini", "");
    }
    folder.write("users.dat", users);
    const std::string error = run({"--user", "Nobody", "show"}).error;
    EXPECT_TRUE(error.ends_with(", user11, user12, ... (kavo-timing-cli users)\n")) << error;
}

TEST_F(Show, SaysHowTheFirstUserIsMade)
{
    std::filesystem::remove_all(folder / "bob");
    const std::string advice = "; there are no users yet, the window makes one at the first login\n";
    EXPECT_EQ(run({"show"}).error,
              "kavo-timing-cli: Path not found: " + path("bob") + " (No such file or directory): no user bob" + advice);
    std::filesystem::remove(folder / "curUser.dat");
    EXPECT_EQ(run({"show"}).error, "kavo-timing-cli: File not found: " + path("curUser.dat") +
                                       " (No such file or directory): nobody has logged in last; --user NICK names a "
                                       "user" +
                                       advice);
}

TEST_F(Show, PrintsNothingWhereThereIsNoTable)
{
    folder.write("bob/data.ini", "stats.txt");
    EXPECT_EQ(run({"show"}).status, 1);
    EXPECT_EQ(run({"show"}).out, "");
    EXPECT_EQ(run({"show"}).error, "kavo-timing-cli: Input past end of file: " + path("bob/data.ini") + "\n");
    EXPECT_EQ(json({}, 1)["rows"], Json::array());
}

TEST_F(Show, PrintsTheTableAsFarAsItWasFilled)
{
    folder.write("stats.txt", "Player\r\nLevel 1, Track\r\n00:10:00 Ann\r\n");
    EXPECT_EQ(lineOf(run({"show"}).out, 2).substr(0, 8), "1, Track");
}

TEST_F(Show, SaysWhenThereIsNoStatisticsFile)
{
    std::filesystem::remove(folder / "stats.txt");
    const Outcome outcome = run({"show"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(lineOf(outcome.out, 1).substr(0, 5), "Level");
    EXPECT_EQ(outcome.error, "kavo-timing-cli: File not found: " + path("stats.txt") +
                                 " (No such file or directory); the window's Options (F2) choose the file\n");
}

TEST_F(Show, FitsTheTableToTheTerminal)
{
    folder.write("bob/names.dat", "Anastasia Petrova\r\n日本の友達\r\nTeam\r\n");
    // Five columns of 8 and "No change" take 49, the gaps 16: of 83 that leaves 18 for three grades.
    const OutputFacts output = {.columns = 83};
    const Outcome outcome = test::runCommand(folder, {"show", "--fit"}, "", output);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(lineOf(outcome.out, 1),
              "Level     Anastas…  Tar… 1  日本の…   Tar… 2  Differen…  Team      Target  Author");
    EXPECT_EQ(lineOf(outcome.out, 2),
              "1, Track  00:10:00  Wor…rd  00:11:00  Wor…ss  00:01:00   00:10:00  Wor…rd  Anastas…");
    EXPECT_EQ(run({"show", "--fit", "--json"}).status, 2);
}

TEST_F(Show, WritesNothingIntoTheProgramFolder)
{
    run({"show"});
    EXPECT_FALSE(folder.has("bob/colors"));
    EXPECT_FALSE(folder.has("bob/names.dat"));
    EXPECT_FALSE(folder.has("bob/view.dat"));
    EXPECT_EQ(folder.read("curUser.dat"), "bob\r\n");
}

TEST_F(Show, ColoursATerminal)
{
    const Outcome outcome =
        test::runCommand(folder, {"show"}, "", {.isTerminal = true, .term = "xterm", .colorTerm = "truecolor"});
    EXPECT_EQ(outcome.status, 0);
    const std::string line = lineOf(outcome.out, 2);
    EXPECT_NE(line.find("\x1b[38;2;255;0;0mWorld Record\x1b[0m"), std::string::npos) << line;
    EXPECT_NE(line.find("\x1b[1m00:10:00\x1b[0m"), std::string::npos) << line;
    EXPECT_EQ(run({"show"}).out.find('\x1b'), std::string::npos);
    EXPECT_NE(run({"show", "--colour", "always"}).out.find("\x1b[31mWorld Record\x1b[0m"), std::string::npos);
    EXPECT_EQ(run({"show", "--color=always"}).out, run({"--colour", "ALWAYS", "show"}).out);
    EXPECT_EQ(run({"show", "--colour", "sometimes"}).status, 2);
}

TEST_F(Show, CutsNamesThatNoScreenHasRoomForAndPrintsThemWholeAsJson)
{
    const std::string longest(4096, 'A');
    folder.write("bob/names.dat", longest + "BC\r\n" + longest + "\r\n");
    const std::string headers = lineOf(run({"show"}).out, 1);
    EXPECT_NE(headers.find("  " + longest + "…  "), std::string::npos);
    EXPECT_NE(headers.find("  " + longest + "  "), std::string::npos);
    EXPECT_EQ(json()["names"]["player1"], longest + "BC");
    EXPECT_EQ(json()["headers"][1], longest + "BC");
}

TEST_F(Show, KeepsControlCharactersFromTheTerminal)
{
    folder.write("bob/names.dat",
                 "A\x1b[31mB\xC2\x9B"
                 "C\x9B\r\n");
    EXPECT_EQ(lineOf(run({"show"}).out, 1).find('\x1b'), std::string::npos);
    EXPECT_EQ(lineOf(run({"show"}).out, 1).find("\xC2\x9B"), std::string::npos);
}

TEST_F(Show, FailsWithoutACurrentUser)
{
    std::filesystem::remove(folder / "curUser.dat");
    EXPECT_EQ(json({}, 1)["error"], "File not found: curUser.dat");
}

TEST_F(Show, ListsTheUsersAsTheyStand)
{
    EXPECT_EQ(run({"users"}).out, "");
    folder.write("users.dat", "bob\r\nЖанна\r\n");
    EXPECT_EQ(run({"users"}).out, "bob\nЖанна\n");
    EXPECT_EQ(run({"users"}).status, 0);
}

}  // namespace

}  // namespace kavo
