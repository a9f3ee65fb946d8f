// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/bobs_folder.h"
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

/// Targets of 10, 20, 30, 40 and 50 s. Ann is 0.21 s behind Professional on level 1, has the record on level 2,
/// not driven level 3, and has exactly the Professional target everywhere else: 10 s to World Class.
class NextCommand : public testing::Test
{
protected:
    NextCommand()
    {
        test::compareBobWithFile(folder, statisticsText({"00:30:21 Ann", "00:10:00 Ann", ""}),
                                 statisticsText({"00:50:50 J\xFCrgen"}));
    }

    [[nodiscard]] Outcome run(std::vector<std::string> arguments, const OutputFacts& output = {}) const
    {
        arguments.insert(arguments.begin(), "next");
        return test::runCommand(folder, std::move(arguments), "", output);
    }

    TemporaryFolder folder;
};

TEST_F(NextCommand, ListsTenCheapestImprovements)
{
    const Outcome outcome = run({});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.error, "");
    EXPECT_EQ(outcome.out,
              "Level 1, Track: 0.21 s to Professional\n"
              "Level 4, Track: 10.00 s to World Class\n"
              "Level 5, Track: 10.00 s to World Class\n"
              "Level 6, Track: 10.00 s to World Class\n"
              "Level 7, Track: 10.00 s to World Class\n"
              "Level 8, Steppes: 10.00 s to World Class\n"
              "Level 9, Track: 10.00 s to World Class\n"
              "Level 10, Track: 10.00 s to World Class\n"
              "Level 11, Track: 10.00 s to World Class\n"
              "Level 12, Track: 10.00 s to World Class\n");
}

TEST_F(NextCommand, ListsAllOrFewer)
{
    const auto lines = [](const Outcome& outcome) { return std::count(outcome.out.begin(), outcome.out.end(), '\n'); };
    EXPECT_EQ(lines(run({"--limit", "0"})), 52);
    EXPECT_EQ(run({"--limit", "1"}).out, "Level 1, Track: 0.21 s to Professional\n");
    EXPECT_EQ(run({"--limit", "-1"}).status, 2);
    EXPECT_EQ(run({"--limit", "many"}).status, 2);
}

TEST_F(NextCommand, TakesAWantedGradeAndTheOtherPlayer)
{
    EXPECT_EQ(run({"--grade", "world record", "--limit", "2"}).out,
              "Level 4, Track: 20.00 s to World Record\nLevel 5, Track: 20.00 s to World Record\n");
    EXPECT_EQ(run({"--player", "2", "--grade", "OK"}).out, "Level 1, Track: 0.50 s to OK\n");
    EXPECT_EQ(run({"--grade", "Beginner"}).status, 2);
    EXPECT_EQ(run({"--player", "3"}).status, 2);
}

TEST_F(NextCommand, IsAlignedAndColouredOnATerminal)
{
    EXPECT_EQ(run({"--limit", "2"}, {.isTerminal = true, .term = "dumb"}).out,
              "Level 1, Track  00:30:21  Good          0.21 s to   Professional  20.21 s to the record\n"
              "Level 4, Track  00:30:00  Professional  10.00 s to  World Class   20.00 s to the record\n");
    // The record itself is no second goal; World Record is red, Good 25, 190, 30.
    EXPECT_EQ(run({"--grade", "World Record", "--limit", "1"},
                  {.isTerminal = true, .term = "xterm", .colorTerm = "truecolor"})
                  .out,
              "Level 4, Track  00:30:00  \x1b[38;2;150;100;255mProfessional\x1b[0m  20.00 s to  "
              "\x1b[38;2;255;0;0mWorld Record\x1b[0m  \n");
}

TEST_F(NextCommand, PrintsExactNumbersAsJson)
{
    const Outcome outcome = run({"--json", "--limit", "1"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(Json::parse(outcome.out), Json::parse(R"({
        "player": "Ann",
        "rows": [{"level": 1, "name": "1, Track", "time": "00:30:21", "hundredths": 3021, "grade": "Good",
                  "next": {"grade": "Professional", "target": "00:30:00", "gap": 21}, "record_gap": 2021}],
        "within": {"0.50": 1, "1.00": 1, "2.00": 1}})"));
    EXPECT_EQ(Json::parse(run({"--json", "--player", "2"}).out)["player"], "Jürgen");
}

TEST_F(NextCommand, SaysThatThereIsNothingToImprove)
{
    folder.write("bob/data.ini", "stats.txt\r\n 3 \r\n\r\nGood\r\n 8 \r\n");
    const Outcome outcome = run({"--player", "2"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.error, "kavo-timing-cli: Nothing to improve for Good\n");
    EXPECT_EQ(Json::parse(run({"--player", "2", "--json"}).out)["rows"], Json::array());
}

TEST_F(NextCommand, SaysNothingWhereTheLoadingEndedEarly)
{
    folder.write("stats.txt", "nothing of the kind");
    const Outcome outcome = run({"--json"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_TRUE(outcome.error.starts_with("kavo-timing-cli: Wrong file! (" + (folder / "stats.txt").string()));
}

}  // namespace
}  // namespace kavo
