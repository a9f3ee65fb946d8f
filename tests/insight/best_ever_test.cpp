// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/best_ever.h"

#include "core/statistics_file.h"
#include "tests/support/program_folder_fixture.h"

#include <gtest/gtest.h>

namespace kavo {
namespace {

using test::statisticsText;

std::string levelOf(const BestEver& best, int level)
{
    const BestEverLevel& one = best[level];
    return one.name + " | " + one.time + " | " + one.driver + " | " + one.since;
}

void take(BestEver& best, const std::vector<std::string>& times, std::string_view state)
{
    takeState(best, parseStatisticsTimes(statisticsText(times)), state);
}

TEST(BestEver, IsTheFastestTimeOfEachLevelWithItsFirstState)
{
    BestEver best;
    take(best, {"00:21:05 Zoe", "00:10:00 Zoe", "", "00:40:00 Zoe"}, "a");
    take(best, {"00:19:88 Bob", "00:11:00 Zoe", "", "00:40:00 Bob"}, "b");
    take(best, {"00:20:00 Zoe", "00:10:00 Bob", "", ""}, "c");
    EXPECT_EQ(levelOf(best, 1), "1, Track | 00:19:88 | Bob | b");
    EXPECT_EQ(levelOf(best, 2), "2, Track | 00:10:00 | Zoe | a");
    EXPECT_EQ(levelOf(best, 3), "3, Track | SKIPPED |  | ");
    EXPECT_EQ(levelOf(best, 4), "4, Track | 00:40:00 | Zoe | a");
}

TEST(BestEver, TakesOnlyTextsThatAreTimes)
{
    BestEver best;
    take(best, {"-0:10:00 Zoe", "00:00:1x Zoe", "00.30.00 Zoe", "100:00:00 Zoe"}, "a");
    take(best, {"00:50:00 Zoe", "00:50:00 Zoe", "00:30:01 Zoe", "99:59:99 Zoe"}, "b");
    EXPECT_EQ(best[1].time, "00:50:00");
    EXPECT_EQ(best[2].time, "00:50:00");
    EXPECT_EQ(best[3].time, "00.30.00");
    EXPECT_EQ(best[4].time, "99:59:99");
}

TEST(BestEver, HasATotalThatIsExactWhereTheOneShownIsCut)
{
    BestEver best;
    take(best, std::vector<std::string>(10), "a");
    // Ten times ten minutes and 44 half minutes, of which the table shows the last 32 minutes.
    EXPECT_EQ(shownTotal(timesOf(best)), "32:00:00");
    EXPECT_EQ(exactTotal(timesOf(best)), 732000);
}

TEST(BestEver, GoesOverEverythingRemembered)
{
    const test::TemporaryFolder folder;
    HistoryStore history(folder / "history");
    static_cast<void>(history.remember(statisticsText({"00:21:05 Zoe", "00:10:00 Zoe"}), 1000));
    static_cast<void>(history.remember(statisticsText({"00:19:88 Zoe", "00:11:00 Zoe"}), 2000));
    folder.write("history/20200101T000000Z.txt", "no statistics file");
    folder.write("history/20200101T000001Z.txt", "Player Level 1, Track\r\n00:00:01 Eve\r\n\r\n");
    const BestEver best = bestEverOf(history);
    EXPECT_EQ(levelOf(best, 1), "1, Track | 00:19:88 | Zoe | 19700101T003320Z.txt");
    EXPECT_EQ(levelOf(best, 2), "2, Track | 00:10:00 | Zoe | 19700101T001640Z.txt");
}

TEST(BestEver, IsEmptyWithoutAnythingRemembered)
{
    const test::TemporaryFolder folder;
    const BestEver best = bestEverOf(HistoryStore(folder / "history"));
    for (int level = 1; level <= kLevels; ++level) EXPECT_EQ(levelOf(best, level), " | SKIPPED |  | ");
}

/// What the program reads out of the file written.
StatisticsTimes readBack(const BestEver& best)
{
    return parseStatisticsTimes(formatBestEver(best));
}

TEST(BestEverFile, IsReadLikeOneOfTheGames)
{
    BestEver best;
    take(best, {"00:19:88 Bob the \"Builder\"", "", "00:10:00", "00:11:00 Жанна"}, "a");
    const std::string text = formatBestEver(best);
    EXPECT_TRUE(isSecondStatisticsFile(text));
    const StatisticsTimes times = readBack(best);
    EXPECT_EQ(times[1].name, "1, Track");
    EXPECT_EQ(times[1].time, "00:19:88");
    EXPECT_EQ(times[1].driver, "Bob the \"Builder\"");
    EXPECT_EQ(times[2].time, "SKIPPED");
    EXPECT_EQ(times[3].time, "00:10:00");
    EXPECT_EQ(times[3].driver, "");
    EXPECT_EQ(times[4].driver, "Жанна");
    EXPECT_EQ(times[54].time, "00:30:00");
}

TEST(BestEverFile, HasTheWordsOfASecondFileWhateverTheLevelsAreCalled)
{
    EXPECT_TRUE(isSecondStatisticsFile(formatBestEver(BestEver{})));
}

TEST(BestEverFile, HasACompleteLastLevel)
{
    BestEver best;
    std::vector<std::string> times(kLevels, "00:30:00 Zoe");
    times.back().clear();
    take(best, times, "a");
    EXPECT_EQ(readBack(best)[53].time, "00:30:00");
    EXPECT_EQ(readBack(best)[54].time, "SKIPPED");
    const StatisticsTimes none = readBack(BestEver{});
    for (int level = 1; level <= kLevels; ++level) EXPECT_EQ(none[level].time, "SKIPPED");
}

TEST(BestEverFile, HasCrLfAtEveryLineEnd)
{
    BestEver best;
    take(best, {}, "a");
    const std::string text = formatBestEver(best);
    for (std::size_t at = text.find('\n'); at != std::string::npos; at = text.find('\n', at + 1))
        EXPECT_EQ(text[at - 1], '\r') << at;
    EXPECT_EQ(text.substr(text.find("Level 1")).substr(0, 35), "Level 1, Track\r\n00:30:00 Alice\r\n\r\nL");
}

TEST(BestEverFile, KeepsItsLevelsApartWhateverTheyAreCalled)
{
    BestEver best;
    take(best, {}, "a");
    best[1].name = "1, Level Level";
    best[2].name = "2, LevLevelel \xFC";
    best[3].name = "";
    best[4].name = "4, odd\rname\r";
    best[5].name = "LeveLeveLevell 5";
    best[3].time = kSkipped;
    const StatisticsTimes times = readBack(best);
    EXPECT_EQ(times[1].name, "1, level level");
    EXPECT_EQ(times[2].name, "2, Levlevelel \xFC");
    EXPECT_EQ(times[3].time, "SKIPPED");
    EXPECT_EQ(times[4].name, "4, odd\rname\r");
    EXPECT_EQ(times[5].name, "levelevelevell 5");
    for (int level = 4; level <= kLevels; ++level) EXPECT_EQ(times[level].time, "00:30:00") << level;
}

TEST(BestEverFile, KeepsTheTimeOfALevelWhoseNameHasTheEndOfALine)
{
    // Without the words that begin a level, which the table leaves out, the lone CR and LF around them meet.
    std::string text = statisticsText({"", "00:19:88 Zoe"});
    text.replace(text.find("Level 2, Track"), 14, "Level 2, Odd\rLevel \nTrack");
    BestEver best;
    takeState(best, parseStatisticsTimes(text), "a");
    ASSERT_EQ(best[2].name, "2, Odd\r\nTrack");
    const StatisticsTimes times = readBack(best);
    EXPECT_EQ(times[2].name, "2, Odd Track");
    // The second word begins a level as well, which has the same time behind it.
    EXPECT_EQ(times[2].time, "00:19:88");
    EXPECT_EQ(times[3].time, "00:19:88");
    EXPECT_EQ(times[4].name, "3, Track");
    EXPECT_EQ(times[4].time, "00:30:00");
}

}  // namespace
}  // namespace kavo
