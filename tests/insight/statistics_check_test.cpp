// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/statistics_check.h"

#include "base/text.h"
#include "tests/support/finding_text.h"
#include "tests/support/program_folder_fixture.h"

#include <gtest/gtest.h>

namespace kavo {
namespace {

using test::inShort;
using test::statisticsText;

std::string checked(const std::string& text, StatisticsUse use = StatisticsUse::Player1)
{
    return inShort(checkStatistics(text, use));
}

/// The first `what` replaced.
std::string changed(std::string text, std::string_view what, std::string_view with)
{
    return text.replace(text.find(what), what.size(), with);
}

TEST(StatisticsCheck, FindsNothingInAGoodFile)
{
    for (const StatisticsUse use : {StatisticsUse::Player1, StatisticsUse::SecondFile, StatisticsUse::PreviousResults})
        EXPECT_EQ(checked(statisticsText({"", "00:10:00", "01:02:03 Жанна"}), use), "");
    EXPECT_EQ(checked(test::undrivenText()), "");
}

TEST(StatisticsCheck, FindsTheWordsThatAreMissing)
{
    const std::string noPlayer = changed(statisticsText(), "player", "hero");
    EXPECT_EQ(checked(noPlayer), "error \"Wrong file!\": the word player does not occur in it");
    EXPECT_EQ(checked(noPlayer, StatisticsUse::PreviousResults), "");
    EXPECT_EQ(checked("nothing\r\n"),
              "error \"Wrong file!\": the word player does not occur in it\n"
              "error \"Wrong file!\": the word level does not occur in it");
    const std::string noSteppes = changed(statisticsText(), "Steppes", "Prairie");
    EXPECT_EQ(checked(noSteppes), "");
    EXPECT_EQ(checked(noSteppes, StatisticsUse::SecondFile),
              "error \"Wrong file!\": the word steppes does not occur in it");
    EXPECT_EQ(checked(noSteppes, StatisticsUse::PreviousResults), "");
}

TEST(StatisticsCheck, FindsAnEmptyFileAndOneInTwoByteCharacters)
{
    EXPECT_EQ(checked(""), "error the file is empty");
    std::string wide = "\xFF\xFE";
    for (const char c : statisticsText()) wide += {c, '\0'};
    const std::string found =
        "error it is stored with two bytes for each character (UTF-16), so that nothing in it is found";
    EXPECT_EQ(checked(wide), found);
    EXPECT_EQ(checked(wide.substr(2)), found);
}

TEST(StatisticsCheck, FindsLinesThatEndWithLfAlone)
{
    const std::string lfOnly = replaceAll(statisticsText(), "\r\n", "\n");
    EXPECT_EQ(checked(lfOnly), "error 1:0 its lines end with LF alone, so that no level is found");
    // "Statistics of player Alice", an empty line: level 1 begins at byte 30.
    EXPECT_EQ(checked(changed(statisticsText(), "Track\r\n", "Track\n")),
              "warning 3:30 this line ends with LF alone, and runs on into the next one");
}

TEST(StatisticsCheck, FindsThatLevelsAreMissing)
{
    const std::string text = statisticsText();
    const std::string cut = text.substr(0, text.find("Level 21"));
    EXPECT_EQ(checked(cut), "error 63:" + std::to_string(cut.size()) +
                                " only 20 levels begin in it (\"Invalid procedure call or argument\")");
    EXPECT_EQ(checked("Player of no level\r\n"),
              "error 2:20 only 0 levels begin in it (\"Invalid procedure call or argument\")");
}

TEST(StatisticsCheck, FindsALevelThatIsNotThere)
{
    const std::string text = statisticsText();
    const std::size_t level3 = text.find("Level 3,");
    const std::size_t level4 = text.find("Level 4,");
    const std::string without = text.substr(0, level3) + text.substr(level4) + "Level 55, Extra\r\n00:10:00 A\r\n";
    EXPECT_EQ(checked(without),
              "error 9:" + std::to_string(level3) + " this is read as level 3, but calls itself level 4");
}

TEST(StatisticsCheck, FindsTheWordLevelInALevelsName)
{
    const std::string text = changed(statisticsText(), "1, Track", "1, Level Crossing");
    EXPECT_EQ(inShort({checkStatistics(text, StatisticsUse::Player1).front()}),
              "error 3:39 the name of a level has the word \"Level\" in it once more (\"Level 1, Level Crossing\"), "
              "which is taken for the beginning of level 2");
}

TEST(StatisticsCheck, FindsTheWordLevelInAPlayersName)
{
    const std::string text = changed(statisticsText(), "00:30:00 Alice", "00:30:00 LevelQueen");
    EXPECT_EQ(inShort({checkStatistics(text, StatisticsUse::Player1).front()}),
              "error 4:55 the name of a player has the word \"Level\" in it (\"00:30:00 LevelQueen\"), which is taken "
              "for the beginning of level 2");
}

TEST(StatisticsCheck, FindsTheWordLevelInTheTextBefore)
{
    EXPECT_EQ(inShort({checkStatistics("Level by Level\r\n" + statisticsText(), StatisticsUse::Player1).front()}),
              "error 1:9 the name of a level has the word \"Level\" in it once more (\"Level by Level\"), which is "
              "taken for the beginning of level 2");
    EXPECT_EQ(inShort({checkStatistics("All Levels:\r\n" + statisticsText(), StatisticsUse::Player1).front()}),
              "error 4:43 this is read as level 2, but calls itself level 1");
}

TEST(StatisticsCheck, FindsALevelThatIsNotEnded)
{
    std::string text = statisticsText();
    text = text.substr(0, text.find("\r\n\r\nEnd of"));
    EXPECT_EQ(checked(text), "error 162:" + std::to_string(text.find("Level 54")) +
                                 " level 54 is not ended (\"Invalid procedure call or argument\")");
    text = text.substr(0, text.find("Level 54") + 10);
    EXPECT_EQ(checked(text), "error 162:" + std::to_string(text.find("Level 54")) +
                                 " level 54 is not ended (\"Invalid procedure call or argument\")");
}

TEST(StatisticsCheck, FindsTextsThatAreNoTimes)
{
    EXPECT_EQ(checked(statisticsText({"", "ab:cd:ef Alice"})), "warning 4:46 \"ab:cd:ef\" is read as the level's time");
    // Behind an empty line the line after it is the time, whatever it says.
    EXPECT_EQ(
        checked(changed(statisticsText({"", "00:10:00 Alice"}), "1, Track\r\n", "1, Track\r\n\r\nNever driven\r\n")),
        "warning 3:30 \"Never dr\" is read as the level's time");
}

TEST(StatisticsCheck, FindsLevelNamesThatTheTextExportHasNoRoomFor)
{
    const auto named = [](const std::string& name) { return changed(statisticsText(), "1, Track", name); };
    EXPECT_EQ(checked(named("1, " + std::string(20, 'x'))), "");
    EXPECT_EQ(checked(named("1, Жабий пруд у реки Оки")),  // 24 characters
              "warning 3:30 the name \"1, Жабий пруд у реки Оки\" is longer than 23 characters: the text export ends "
              "there");
}

TEST(StatisticsCheck, NotesNamesInACodePageOfEightBits)
{
    EXPECT_EQ(checked(statisticsText({"00:10:00 J\xFCrgen"})),
              "note 4:56 \"00:10:00 J\xFCrgen\" is written in a code page of 8 bits");
}

}  // namespace
}  // namespace kavo
