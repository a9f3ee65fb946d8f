// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/state_name.h"
#include "tests/support/bobs_folder.h"
#include "tests/support/command_line.h"
#include "tests/support/history_home.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <filesystem>

namespace fs = std::filesystem;

namespace kavo {
namespace {

using test::Outcome;
using test::statisticsText;
using test::TemporaryFolder;
using Json = nlohmann::json;

const std::string kFirst = statisticsText({"00:21:05 Zoe", "", "00:09:00 Zoe"});
const std::string kSecond = statisticsText({"00:19:88 Zoe", "00:40:00 Zoe", "00:09:50 Zoe"});

/// A user with two statistics files, of which the command line has been told to remember none yet.
class HistoryCommands : public testing::Test
{
protected:
    HistoryCommands() { test::compareBobWithTargets(folder, kFirst); }

    [[nodiscard]] Outcome run(std::vector<std::string> arguments) const
    {
        return test::runCommand(folder, std::move(arguments));
    }

    /// Remembers both files; the clock of the tests stands still, so the second one is a second later.
    void saveBoth() const
    {
        for (const std::string& text : {kFirst, kSecond}) {
            folder.write("stats.txt", text);
            ASSERT_EQ(run({"history", "save"}).status, 0);
        }
    }

    TemporaryFolder folder;
    test::HistoryHome home;
    const std::string first = stateName(test::reportMoment());
    const std::string second = stateName(test::reportMoment() + 1);
};

TEST_F(HistoryCommands, SavesAStateOnceAndTellsItsName)
{
    for (int i = 0; i < 2; ++i) {
        const Outcome outcome = run({"history", "save"});
        EXPECT_EQ(outcome.status, 0);
        EXPECT_EQ(outcome.out, first + "\n");
        EXPECT_EQ(outcome.error, "");
    }
}

TEST_F(HistoryCommands, ListsStatesWithTheUsersClock)
{
    saveBoth();
    const Outcome outcome = run({"history"});
    EXPECT_EQ(outcome.status, 0);
    const std::string bytes1 = std::to_string(kFirst.size());
    const std::string bytes2 = std::to_string(kSecond.size());
    EXPECT_EQ(outcome.out, first + "  2026-03-07 14:05:09  " + bytes1 + " bytes\n" + second +
                               "  2026-03-07 14:05:10  " + bytes2 + " bytes\n");
}

TEST_F(HistoryCommands, ListsStatesAsJson)
{
    const test::TimeZone zone("UTC");
    ASSERT_EQ(run({"history", "save"}).status, 0);
    const Json list = Json::parse(run({"history", "--json"}).out);
    EXPECT_EQ(
        list["states"],
        Json::array({{{"name", "20260307T140509Z.txt"}, {"time", "2026-03-07T14:05:09Z"}, {"bytes", kFirst.size()}}}));
    EXPECT_TRUE(fs::exists(list["folder"].get<std::string>() + "/20260307T140509Z.txt"));
}

TEST_F(HistoryCommands, KeepsOutOfTheProgramFolder)
{
    const auto files = [this] {
        std::vector<std::string> names;
        for (const auto& entry : fs::recursive_directory_iterator(folder.path()))
            names.push_back(entry.path().string());
        std::sort(names.begin(), names.end());
        return names;
    };
    const auto before = files();
    saveBoth();
    EXPECT_EQ(run({"history"}).status, 0);
    EXPECT_EQ(files(), before);
    EXPECT_TRUE(home.folder().has("kavo-timing/history"));
}

TEST_F(HistoryCommands, OfNobodyElseIsMixedIn)
{
    folder.write("ann/data.ini", "stats.txt\r\n 3 \r\n\r\nGood\r\n 8 \r\n");
    saveBoth();
    EXPECT_EQ(run({"history", "--user", "ann"}).out, "");
    EXPECT_EQ(run({"history", "save", "--user", "ann"}).out, first + "\n");
}

TEST_F(HistoryCommands, SaysHowToBeginWhereNothingIsRemembered)
{
    const std::string hint =
        "kavo-timing-cli: Nothing is remembered yet: kavo-timing-cli history save remembers the results of today\n";
    EXPECT_EQ(run({"history"}).status, 0);
    EXPECT_EQ(run({"history"}).error, hint);
    EXPECT_EQ(Json::parse(run({"history", "--json"}).out)["states"], Json::array());
    for (const std::vector<std::string>& call :
         std::vector<std::vector<std::string>>{{"diff"}, {"best-ever"}, {"history", "export", "latest", "-"}}) {
        const Outcome outcome = run(call);
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.error, hint);
        EXPECT_EQ(outcome.out, "");
    }
}

TEST_F(HistoryCommands, IsTurnedOff)
{
    const test::EnvironmentValue off("KAVO_HISTORY", "off");
    const Outcome outcome = run({"history", "save"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.error, "kavo-timing-cli: Nothing is remembered: KAVO_HISTORY is off\n");
    EXPECT_FALSE(home.folder().has("kavo-timing"));
}

TEST_F(HistoryCommands, SaysWhyItCannotRemember)
{
    home.folder().write("kavo-timing", "no folder");
    const Outcome outcome = run({"history", "save"});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.error.find("kavo-timing-cli: Path"), 0U) << outcome.error;
    folder.write("stats.txt", "rubbish");
    EXPECT_TRUE(run({"history", "save"}).error.starts_with("kavo-timing-cli: Wrong file! ("));
}

TEST_F(HistoryCommands, ExportsTheBytesOfAState)
{
    saveBoth();
    for (const auto& [when, content] : {std::pair<std::string, std::string>{first, kFirst},
                                        {first.substr(0, first.size() - 4), kFirst},
                                        {"latest~1", kFirst},
                                        {"2026-03-07 14:05:09", kFirst},
                                        {"latest", kSecond},
                                        {"2026-03-07", kSecond},
                                        {"2027-01-01", kSecond}}) {
        EXPECT_EQ(run({"history", "export", when, "-"}).out, content) << when;
        EXPECT_EQ(run({"history", "export", when, (folder / "copy.txt").string()}).status, 0);
        EXPECT_EQ(folder.read("copy.txt"), content);
    }
}

TEST_F(HistoryCommands, SaysWhichStatesThereAre)
{
    saveBoth();
    for (const char* when : {"latest~2", "2026-03-06", "yesterday", "../stats.txt"}) {
        const Outcome outcome = run({"history", "export", when, "-"});
        EXPECT_EQ(outcome.status, 1);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.error, std::string("kavo-timing-cli: No remembered state is ") + when +
                                     "; there are 2, from " + first + " to " + second + ": kavo-timing-cli history\n");
    }
}

TEST_F(HistoryCommands, NeedsAUser)
{
    EXPECT_EQ(run({"history", "--user", "nobody"}).status, 1);
    const std::string error = run({"diff", "--user", "nobody"}).error;
    EXPECT_EQ(error.find("kavo-timing-cli: Path not found: "), 0U) << error;
    EXPECT_NE(error.find("nobody"), std::string::npos) << error;
    fs::remove(folder / "curUser.dat");
    EXPECT_EQ(run({"history"}).status, 1);
}

// 21.05 s to 19.88 s gains 1.17 s; a first time of 40 s in place of ten minutes 560 s; 9 s to 9.50 s loses 0.50 s.
TEST_F(HistoryCommands, DiffTellsWhatHasChangedLevelByLevel)
{
    saveBoth();
    const Outcome outcome = run({"diff"});
    EXPECT_EQ(outcome.status, 0);
    // 21.05 + 600 + 9 + 51 x 30 s before, 19.88 + 40 + 9.50 + 51 x 30 s after.
    EXPECT_EQ(outcome.out, first + " → " + second +
                               "\n"
                               "Level 1, Track  00:21:05  00:19:88  +1.17 s    Professional  World Class\n"
                               "Level 2, Track  SKIPPED   00:40:00  +560.00 s  Beginner      Good\n"
                               "Level 3, Track  00:09:00  00:09:50  -0.50 s                  World Record\n"
                               "TOTAL TIME:     36:00:05  26:39:38  +560.67 s\n");
    EXPECT_EQ(run({"diff", "latest~1", "latest"}).out, outcome.out);
    EXPECT_EQ(run({"diff", first}).out, outcome.out);
}

TEST_F(HistoryCommands, DiffPrintsExactNumbersAsJson)
{
    saveBoth();
    const Json diff = Json::parse(run({"diff", "latest", "latest~1", "--json"}).out);
    EXPECT_EQ(diff["from"], second);
    EXPECT_EQ(diff["to"], first);
    ASSERT_EQ(diff["changes"].size(), 3U);
    EXPECT_EQ(diff["changes"][0], Json::parse(R"({
        "level": 1, "name": "1, Track", "before": "00:19:88", "after": "00:21:05", "grade_before": "World Class",
        "grade_after": "Professional", "kind": "worse", "gain": -117})"));
    EXPECT_EQ(diff["changes"][1]["kind"], "lost");
    EXPECT_EQ(diff["changes"][2]["kind"], "better");
    EXPECT_EQ(diff["total"], Json::parse(R"({"before": "26:39:38", "after": "36:00:05", "gain": -56067})"));
}

TEST_F(HistoryCommands, DiffOfOneStateHasNothingToCompare)
{
    ASSERT_EQ(run({"history", "save"}).status, 0);
    EXPECT_EQ(run({"diff"}).status, 1);
    EXPECT_EQ(run({"diff"}).error,
              "kavo-timing-cli: Only one state is remembered, " + first + ": there is nothing to compare it with\n");
    // Asked for by name there is an answer: nothing has changed.
    EXPECT_EQ(run({"diff", "latest"}).out, first + " → " + first + "\nTOTAL TIME:  36:00:05  36:00:05  0.00 s\n");
}

TEST_F(HistoryCommands, BestEverTakesTheBestOfAll)
{
    saveBoth();
    const Outcome outcome = run({"best-ever"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out.substr(0, outcome.out.find("4, Track")),
              "1, Track     00:19:88  World Class   Zoe    " + second + "\n" +
                  "2, Track     00:40:00  Good          Zoe    " + second + "\n" +
                  "3, Track     00:09:00  World Record  Zoe    " + first + "\n");
    // 19.88 + 40 + 9 + 51 x 30 s
    EXPECT_NE(outcome.out.find("\nTOTAL TIME:  26:38:88\n"), std::string::npos);
}

TEST_F(HistoryCommands, BestEverAndDiffNeedNoTargets)
{
    saveBoth();
    std::filesystem::remove(folder / "targets.txt");
    const Json best = Json::parse(run({"best-ever", "--json"}).out);
    for (const Json& level : best["levels"]) EXPECT_EQ(level["grade"], "Beginner");
    EXPECT_EQ(best["levels"][0]["time"], "00:19:88");
    const Json progress = Json::parse(run({"diff", "--json"}).out);
    EXPECT_EQ(progress["changes"][0]["grade_after"], "Beginner");
}

TEST_F(HistoryCommands, BestEverIsAFileToCompareWith)
{
    saveBoth();
    folder.write("bob/data.ini", "stats.txt\r\n 2 \r\nbest.txt\r\n\r\n 8 \r\n");
    EXPECT_EQ(run({"best-ever", (folder / "best.txt").string()}).status, 0);
    const Json shown = Json::parse(run({"show", "--json"}).out);
    EXPECT_EQ(shown["rows"][0]["cells"][3], "00:19:88");
    EXPECT_EQ(shown["rows"][2]["cells"][3], "00:09:00");
    EXPECT_EQ(shown["headers"][3], "Zoe");
    EXPECT_EQ(run({"best-ever", "-"}).out, folder.read("best.txt"));
}

TEST_F(HistoryCommands, BestEverPrintsExactNumbersAsJson)
{
    saveBoth();
    const Json best = Json::parse(run({"best-ever", "--json"}).out);
    ASSERT_EQ(best["levels"].size(), 54U);
    EXPECT_EQ(best["levels"][2], (Json{{"level", 3},
                                       {"name", "3, Track"},
                                       {"time", "00:09:00"},
                                       {"hundredths", 900},
                                       {"driver", "Zoe"},
                                       {"grade", "World Record"},
                                       {"since", first}}));
    EXPECT_EQ(best["total"], Json::parse(R"({"time": "26:38:88", "hundredths": 159888})"));
    EXPECT_EQ(run({"best-ever", "--json", "best.txt"}).status, 2);
}

}  // namespace
}  // namespace kavo
