// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/loading.h"

#include "tests/support/loaded_folder.h"

#include <gtest/gtest.h>

#include <map>

/// Whole program folders run through the loading; whole tables compared.
namespace kavo {

namespace {

using test::LoadedFolder;
using test::statisticsText;
using test::targetsText;

constexpr const char* kMissingTargetsText =
    "Unable to find: targets.txt. If you want to download it now, select \"Update targets\" in right-button menu or "
    "press Ctrl+R|";

/// Compares all 54 levels and the totals row: `rows` holds those that differ from `usual`, without their
/// level texts.
void expectTable(const LoadedFolder& loaded, const std::string& usual, const std::map<int, std::string>& rows,
                 const std::string& totals)
{
    ASSERT_EQ(loaded.session.table.rowCount(), 55);
    for (int level = 1; level <= kLevels; ++level) {
        const std::string name = std::to_string(level) + (level == 8 ? ", Steppes|" : ", Track|");
        const auto special = rows.find(level);
        EXPECT_EQ(loaded.row(level), name + (special != rows.end() ? special->second : usual));
    }
    EXPECT_EQ(loaded.row(kTotalsRow), totals);
}

TEST(Loading, ComparesTheFileWithItselfWithoutSettings)
{
    LoadedFolder loaded;
    loaded.folder.write("stats.txt", statisticsText());
    loaded.folder.write("targets.txt", targetsText());
    loaded.run();
    EXPECT_EQ(loaded.result.end, LoadingEnd::Completed);
    EXPECT_EQ(loaded.messages(), "");
    EXPECT_EQ(loaded.host.optionsOpened, 1);  // first run
    EXPECT_EQ(loaded.headers(), "Level|Alice|Target 1|Alice|Target 2|Difference|Team|Target|Author");
    // 54 x 30 s are 27 minutes, slower than the whole set's 50 seconds for OK.
    expectTable(loaded,
                "00:30:00|Professional{Pro}|00:30:00|Professional{Pro}|No change|00:30:00*|Professional{Pro}|Alice", {},
                "TOTAL TIME:*|27:00:00*|Beginner*|27:00:00*|Beginner*|No change*|27:00:00*|Beginner*|Team*");
    EXPECT_EQ(loaded.counts(Side::Player1), "0 0 54 0 0 0");
    EXPECT_EQ(loaded.counts(Side::Player2), "0 0 54 0 0 0");
    EXPECT_EQ(loaded.counts(Side::Team), "0 0 54 0 0 0");
    EXPECT_EQ(loaded.victories(), "0 0");
    EXPECT_EQ(loaded.session.table.selectedRow(), 55);
    EXPECT_EQ(loaded.session.caption, "Kavo Timing 2.1  User: bob");
}

TEST(Loading, ComparesWithAnotherFile)
{
    LoadedFolder loaded;
    loaded.writeAll(2);
    loaded.folder.write("stats.txt", statisticsText({"00:10:00 Ann", "00:45:00 Ann", "", "", "00:30:00 Ann"}));
    loaded.folder.write("other.txt", statisticsText({"00:10:01 Bob", "00:25:50 Bob", "01:00:00 Bob", "", ""}));
    loaded.run();
    EXPECT_EQ(loaded.messages(), "");
    EXPECT_EQ(loaded.host.optionsOpened, 0);
    EXPECT_EQ(loaded.headers(), "Level|Ann|Target 1|Bob|Target 2|Difference|Team|Target|Author");
    // Player 1: 10 + 45 + 2 x 600 + 50 x 30 s = 2755 s. Player 2: 10.01 + 25.50 + 60 + 2 x 600 + 49 x 30 s
    // = 2765.51 s. Team: 10 + 25.50 + 60 + (level 4: nothing) + 50 x 30 s = 1595.50 s.
    expectTable(loaded,
                "00:30:00|Professional{Pro}|00:30:00|Professional{Pro}|No change|00:30:00*|Professional{Pro}|Bob",
                {
                    {1, "00:10:00*|World Record{WR}|00:10:01|World Class{WC}|00:00:01|00:10:00*|World Record{WR}|Ann"},
                    {2, "00:45:00|OK{OK}|00:25:50*|Professional{Pro}|00:19:50|00:25:50*|Professional{Pro}|Bob"},
                    {3, "SKIPPED*|Beginner|01:00:00|Beginner|00:60:00|01:00:00*|Beginner|Bob"},
                    {4, "SKIPPED|Beginner|SKIPPED|Beginner|No change|SKIPPED*|Beginner|Bob"},
                    {5, "00:30:00*|Professional{Pro}|SKIPPED|Beginner|09:30:00|00:30:00*|Professional{Pro}|Ann"},
                },
                "TOTAL TIME:*|45:55:00*{Total}|Beginner*|46:05:51*|Beginner*|00:10:51*|26:35:50*|Beginner*|Team*");
    EXPECT_EQ(loaded.counts(Side::Player1), "1 0 50 0 1 2");
    EXPECT_EQ(loaded.counts(Side::Player2), "0 1 50 0 0 3");
    EXPECT_EQ(loaded.counts(Side::Team), "1 0 51 0 0 2");
    EXPECT_EQ(loaded.victories(), "3 1");
}

TEST(Loading, ComparesWithPreviousResultsUnchecked)
{
    LoadedFolder loaded;
    loaded.writeAll(1);
    // No mention of a player or the steppes: the saved results are not checked.
    std::string previous;
    for (int level = 1; level <= kLevels; ++level) previous += "Level x\r\n00:31:00 Old\r\n";
    loaded.folder.write("bob/1res.old", previous);
    loaded.run();
    EXPECT_EQ(loaded.messages(), "");
    EXPECT_EQ(loaded.headers(), "Level|Alice|Target 1|Old|Target 2|Difference|Team|Target|Author");
    expectTable(loaded, "00:30:00*|Professional{Pro}|00:31:00|Good{Good}|00:01:00|00:30:00*|Professional{Pro}|Alice",
                {}, "TOTAL TIME:*|27:00:00*{Total}|Beginner*|27:54:00*|Beginner*|00:54:00*|27:00:00*|Beginner*|Team*");
    EXPECT_EQ(loaded.victories(), "54 0");
}

TEST(Loading, ComparesWithTargets)
{
    LoadedFolder loaded;
    loaded.writeAll(3, "Good");
    loaded.folder.write("stats.txt", statisticsText({"00:40:00 Ann", "00:40:01 Ann"}));
    std::string targets = targetsText();
    targets.replace(targets.rfind("00:10:00,"), std::string::npos, "20.00.00,25.00.00,26.00.00,27.20.01,40.00.00");
    loaded.folder.write("targets.txt", targets);
    loaded.run();
    EXPECT_EQ(loaded.headers(), "Level|Ann|Target 1|Good|Target 2|Difference|Team|Target|Author");
    // 40 + 40.01 + 52 x 30 s = 1640.01 s, which the whole set's Good target meets exactly.
    expectTable(loaded, "00:30:00*|Professional{Pro}|00:40:00|Good{Good}|00:10:00|00:30:00*|Professional{Pro}|Ann",
                {{1, "00:40:00|Good{Good}|00:40:00|Good{Good}|No change|00:40:00*|Good{Good}|Good"},
                 {2, "00:40:01|OK{OK}|00:40:00*|Good{Good}|00:00:01|00:40:00*|Good{Good}|Good"}},
                "TOTAL TIME:*|27:20:01*|Good*{Good}|27:20:01*|Good*{Good}|No change*|27:20:00*|Good*{Good}|Team*");
    EXPECT_EQ(loaded.counts(Side::Player2), "0 0 0 54 0 0");
    EXPECT_EQ(loaded.victories(), "52 1");
}

TEST(Loading, ShowsTheCategoryInPlaceOfTheTotalsGrade)
{
    LoadedFolder loaded;
    loaded.writeAll(3, "World Record");
    loaded.run();
    // The whole set's target (00:10:00) would be a World Record; with "OK" it is the category all the same.
    EXPECT_EQ(
        loaded.row(55),
        "TOTAL TIME:*|27:00:00*|Beginner*|00:10:00*{Total}|World Record*{WR}|26:50:00*|09:00:00*|Beginner*|Team*");
    loaded.writeAll(3, "Nonsense");
    loaded.run();
    EXPECT_EQ(loaded.row(1),
              "1, Track|00:30:00|Professional{Pro}|*|World Record{WR}|00:30:00|*|World Record{WR}|Player2");
    EXPECT_EQ(loaded.row(55),
              "TOTAL TIME:*|27:00:00*|Beginner*|27:00:00*|Nonsense*|No change*|00:00:00*|World Record*{WR}|Team*");
    EXPECT_EQ(loaded.headers(), "Level|Alice|Target 1|Player2|Target 2|Difference|Team|Target|Author");
    EXPECT_EQ(loaded.victories(), "0 54");
}

TEST(Loading, WithoutASecondFileLosesTheTotalsRow)
{
    LoadedFolder loaded;
    loaded.writeAll(2);
    loaded.run();
    EXPECT_EQ(loaded.result.end, LoadingEnd::Completed);
    EXPECT_EQ(loaded.messages(), "");
    EXPECT_EQ(loaded.session.table.rowCount(), 54);
    for (int level = 1; level <= kLevels; ++level) {
        const std::string name = std::to_string(level) + (level == 8 ? ", Steppes" : ", Track");
        EXPECT_EQ(loaded.row(level), name + "|00:30:00|Professional{Pro}|*||00:30:00|*|World Record{WR}|Player2");
    }
    EXPECT_EQ(loaded.headers(), "Level|Alice|Target 1|Player2|Target 2|Difference|Team|Target|Author");
    EXPECT_EQ(loaded.counts(Side::Player2), "0 0 0 0 0 0");
    EXPECT_EQ(loaded.counts(Side::Team), "54 0 0 0 0 0");
    EXPECT_EQ(loaded.victories(), "0 54");
    EXPECT_EQ(loaded.session.table.selectedRow(), 0);
}

TEST(Loading, ShowsATotalOfSixtyMinutesInHoursForPlayerOneOnly)
{
    LoadedFolder loaded;
    loaded.writeAll(2);
    const std::string stats = statisticsText({"10:00:00 A", "10:00:00 A", "10:00:00 A", "10:00:00 A", "09:12:34 A"});
    loaded.folder.write("stats.txt", stats);
    loaded.folder.write("other.txt", stats);
    std::string targets = targetsText("99:99:99,a,b,c,d");
    loaded.folder.write("targets.txt", targets);
    loaded.run();
    // 49:12:34 and 49 x 30 s = 24:30:00 make 73:42:34. In hours it is 1:13:42:34, of more than eight
    // characters and so a Beginner's. The difference reads 1 minute, "3:" seconds and 34: 63.34 s against
    // 4422.34 s.
    EXPECT_EQ(loaded.row(55),
              "TOTAL TIME:*|1:13:42:34*{Total}|Beginner*{Text}|73:42:34*|World Record*{WR}|72:39:00*|73:42:34*|"
              "World Record*{WR}|Team*");
}

TEST(Loading, CarriesATotalOfAHundredMinutesOnFromItsFirstTwoDigits)
{
    LoadedFolder loaded;
    loaded.writeAll(2);
    std::vector<std::string> times(54, "00:00:01 A");
    for (std::size_t i = 44; i < times.size(); ++i) times[i] = "10:00:00 A";
    loaded.folder.write("stats.txt", statisticsText(times));
    loaded.folder.write("other.txt", statisticsText(times));
    loaded.folder.write("targets.txt", targetsText("99:99:99,a,b,c,d"));
    loaded.run();
    // 44 hundredths and ten times ten minutes: nine characters, shown unchanged (its first two digits are 10).
    EXPECT_EQ(loaded.row(55),
              "TOTAL TIME:*|100:00:44*|Beginner*{Text}|100:00:44*|Beginner*{Text}|No change*|100:00:44*|"
              "World Record*{WR}|Team*");
    std::swap(times[0], times[53]);
    loaded.folder.write("stats.txt", statisticsText(times));
    loaded.run();
    // Level 53 reaches 100:00:43; the last hundredth is added to ten minutes.
    EXPECT_EQ(loaded.session.table.text(55, Column::Time1), "10:00:44");
}

TEST(Loading, WithoutTargetsGradesEveryoneABeginner)
{
    LoadedFolder loaded;
    loaded.writeAll(2);
    std::filesystem::remove(loaded.folder / "targets.txt");
    loaded.folder.write("other.txt", statisticsText());
    loaded.run();
    EXPECT_EQ(loaded.result.end, LoadingEnd::Completed);
    ASSERT_EQ(loaded.messages(), kMissingTargetsText);
    EXPECT_EQ(loaded.host.messages[0].icon, MessageIcon::Critical);
    EXPECT_EQ(loaded.host.messages[0].title, "NRL Kavo Timing");
    expectTable(loaded, "00:30:00|Beginner|00:30:00|Beginner|No change|00:30:00*|Beginner|Alice", {},
                "TOTAL TIME:*|27:00:00*|Beginner*|27:00:00*|Beginner*|No change*|27:00:00*|Beginner*|Team*");
    EXPECT_EQ(loaded.counts(Side::Player1), "0 0 0 0 0 54");
}

TEST(Loading, KeepsTheTargetsOfTheLoadingBeforeWhenTheyAreMissing)
{
    LoadedFolder loaded;
    loaded.writeAll(3, "OK");
    loaded.run();
    EXPECT_EQ(loaded.messages(), "");
    std::filesystem::remove(loaded.folder / "targets.txt");
    for (int i = 0; i < 2; ++i) {
        loaded.run();
        EXPECT_EQ(loaded.messages(), kMissingTargetsText);  // once in every loading
        EXPECT_EQ(loaded.row(1),
                  "1, Track|00:30:00*|Professional{Pro}|00:50:00|OK{OK}|00:20:00|00:30:00*|Professional{Pro}|Alice");
        EXPECT_EQ(loaded.counts(Side::Player1), "0 0 54 0 0 0");
    }
}

TEST(Loading, ComparesWithMissingTargetsAsEmptyTimes)
{
    LoadedFolder loaded;
    loaded.writeAll(3, "Good");
    std::filesystem::remove(loaded.folder / "targets.txt");
    loaded.run();
    EXPECT_EQ(loaded.row(1), "1, Track|00:30:00|Beginner|*|World Record{WR}|00:30:00|*|World Record{WR}|Good");
    EXPECT_EQ(loaded.counts(Side::Player2), "54 0 0 0 0 0");
}

TEST(Loading, PutsBugTimesInPlaceOfTheFilesTimes)
{
    LoadedFolder loaded;
    loaded.writeAll(2);
    loaded.folder.write("stats.txt", statisticsText({"", "", "00:30:00 Ann"}));
    loaded.folder.write("other.txt", statisticsText());
    loaded.folder.write("bob/bugs.dat",
                        "player1\r\n01, 00:05:00\r\n03, 00:55:00\r\n03, 00:15:00\r\nPLAYER2\r\n"
                        "01, 00:04:00\r\n54, 01:00:00\r\n");
    loaded.run();
    EXPECT_EQ(loaded.result.error, "");
    EXPECT_EQ(
        loaded.row(1),
        "1, Track|00:05:00|World Record{WR}|00:04:00*|World Record{WR}|00:01:00|00:04:00*|World Record{WR}|Alice");
    EXPECT_EQ(loaded.row(2),
              "2, Track|SKIPPED*|Beginner|00:30:00|Professional{Pro}|00:30:00|00:30:00*|"
              "Professional{Pro}|Alice");
    EXPECT_EQ(loaded.row(3),
              "3, Track|00:15:00*|World Class{WC}|00:30:00|Professional{Pro}|00:15:00|00:15:00*|World Class{WC}|Alice");
    EXPECT_EQ(loaded.row(54),
              "54, Track|00:30:00*|Professional{Pro}|01:00:00|Beginner|00:30:00|00:30:00*|Professional{Pro}|Alice");
    EXPECT_EQ(loaded.counts(Side::Player1), "1 1 51 0 0 1");
    EXPECT_EQ(loaded.counts(Side::Player2), "1 0 52 0 0 1");
}

TEST(Loading, TakesNoNameFromALineThatABugTimeHides)
{
    LoadedFolder loaded;
    loaded.writeAll(2);
    loaded.folder.write("stats.txt", statisticsText({"00:10:00 Hidden", "00:10:00 Shown"}));
    loaded.folder.write("bob/bugs.dat", "Player1\r\n01, 00:05:00\r\nPlayer2\r\n");
    loaded.run();
    EXPECT_EQ(loaded.session.state.Player1Name, "Shown");
}

TEST(Loading, IgnoresAFileOfBugTimesThatStartsOtherwise)
{
    LoadedFolder loaded;
    loaded.writeAll(2);
    loaded.folder.write("bob/bugs.dat", "Notes\r\n99, 00:05:00\r\n");
    loaded.run();
    EXPECT_EQ(loaded.result.end, LoadingEnd::Completed);
    EXPECT_EQ(loaded.session.table.text(1, Column::Time1), "00:30:00");
}

TEST(Loading, StartsAnewEveryTime)
{
    LoadedFolder loaded;
    loaded.writeAll(2);
    loaded.folder.write("other.txt", statisticsText());
    loaded.folder.write("bob/bugs.dat", "Player1\r\n01, 00:05:00\r\nPlayer2\r\n");
    loaded.run();
    const std::string before = loaded.row(2) + loaded.row(55);
    const std::string counts = loaded.counts(Side::Player1);
    loaded.run();
    EXPECT_EQ(loaded.row(2) + loaded.row(55), before);
    EXPECT_EQ(loaded.counts(Side::Player1), counts);
    std::filesystem::remove(loaded.folder / "bob/bugs.dat");
    loaded.run();
    EXPECT_EQ(loaded.counts(Side::Player1), "0 0 54 0 0 0");
}

}  // namespace

}  // namespace kavo
