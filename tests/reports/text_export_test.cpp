// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/text_export.h"

#include "base/run_time_error.h"
#include "tests/support/error_of.h"
#include "tests/support/program_folder_fixture.h"
#include "tests/support/report_session.h"
#include "tests/support/trouble.h"

#include <gtest/gtest.h>

namespace kavo {
namespace {

using test::RecordedReport;
using test::reportSession;

std::vector<std::string> linesOf(const Session& session)
{
    RecordedReport report;
    writeTextReport(session, report);
    return report.lines();
}

/// The line of a row, counted from the report's first line, which is line 0 here.
std::size_t lineOf(int row)
{
    return 2 * static_cast<std::size_t>(row);
}

constexpr std::size_t kTeamBlock = 134;

TEST(TextExport, HeaderHasNoTabBeforeTheTeamColumns)
{
    const auto lines = linesOf(reportSession());
    EXPECT_EQ(lines[0],
              "Level name              Time1   \tTarget1             Time2   \tTarget2             Difference  Team "
              "Time    Target");
    EXPECT_EQ(lines[1], "");
}

TEST(TextExport, RowsStandInColumnsWithAnEmptyLineBehindEach)
{
    const auto lines = linesOf(reportSession());
    EXPECT_EQ(lines[lineOf(1)],
              "1, Track                00:30:00\tProfessional        00:40:00\tGood                00:10:00\t"
              "00:30:00     Professional");
    EXPECT_EQ(lines[lineOf(1) + 1], "");
    EXPECT_EQ(lines[lineOf(kTotalsRow)],
              "TOTAL TIME:             27:00:00\tProfessional        36:00:00\tGood                09:00:00\t"
              "27:00:00     Professional");
    EXPECT_EQ(lines[lineOf(kTotalsRow) + 1], "");
}

TEST(TextExport, SummaryHasThreeBlocksAndEndsTheReport)
{
    Session session = reportSession();
    test::countUp(session.state);
    const auto lines = linesOf(session);
    const std::vector<std::string> summary(lines.begin() + 112, lines.end());
    EXPECT_EQ(summary, (std::vector<std::string>{"",
                                                 "",
                                                 "Alice",
                                                 "World Records: 1",
                                                 "World Class: 2",
                                                 "Professional: 3",
                                                 "Good: 4",
                                                 "OK: 5",
                                                 "Beginner: 6",
                                                 "Victories: 30",
                                                 "",
                                                 "",
                                                 "Bob",
                                                 "World Records: 11",
                                                 "World Class: 12",
                                                 "Professional: 13",
                                                 "Good: 14",
                                                 "OK: 15",
                                                 "Beginner: 16",
                                                 "Victories: 17",
                                                 "",
                                                 "",
                                                 "Dust Devils",
                                                 "World Records: 0",
                                                 "World Class: 0",
                                                 "Professional: 55",
                                                 "Good: 0",
                                                 "OK: 0",
                                                 "Beginner: 0",
                                                 "Victories: 47",
                                                 ""}));
}

TEST(TextExport, EqualTimesAndAnEmptySecondTime)
{
    Session session = reportSession();
    session.table.setText(1, Column::Time2, "00:30:00");
    session.table.setText(2, Column::Time2, "");
    const auto lines = linesOf(session);
    EXPECT_TRUE(lines[lineOf(1)].ends_with("\t00:30:00     Professional"));
    // The empty time is the team's, a World Record, and adds nothing: 53 levels of 30 seconds are left.
    EXPECT_TRUE(lines[lineOf(2)].ends_with("\t     World Record"));
    EXPECT_TRUE(lines[lineOf(kTotalsRow)].ends_with("\t26:30:00     Professional"));
    EXPECT_EQ(lines[kTeamBlock + 1], "World Records: 1");
    EXPECT_EQ(lines[kTeamBlock + 3], "Professional: 54");
}

TEST(TextExport, SkippedLevelAddsNothingToTheTeamTotal)
{
    Session session = reportSession();
    session.table.setText(9, Column::Time1, "SKIPPED");
    session.table.setText(9, Column::Time2, "SKIPPED");
    const auto lines = linesOf(session);
    EXPECT_TRUE(lines[lineOf(9)].ends_with("\tSKIPPED     Beginner"));
    EXPECT_TRUE(lines[lineOf(kTotalsRow)].ends_with("\t26:30:00     Professional"));
    EXPECT_EQ(lines[kTeamBlock + 6], "Beginner: 1");
}

TEST(TextExport, TotalsRowShowsTheTeamsTotalButIsCountedByItsOwnTimes)
{
    Session session = reportSession();
    for (int level = 1; level <= kLevels; level += 2) session.table.setText(level, Column::Time2, "00:20:00");
    const auto lines = linesOf(session);
    // 27 levels of 20 and 27 of 30 seconds: 22 minutes 30. Counted is the row's better time, 27:00:00.
    EXPECT_TRUE(lines[lineOf(kTotalsRow)].ends_with("\t22:30:00     World Class"));
    EXPECT_EQ(lines[kTeamBlock + 2], "World Class: 27");
    EXPECT_EQ(lines[kTeamBlock + 3], "Professional: 28");
}

TEST(TextExport, GradesAreCutAndPaddedToTwentyCharacters)
{
    Session session = reportSession();
    session.table.setText(1, Column::Target1, "abcdefghijklmnopqrstuvwxyz");
    session.table.setText(1, Column::Target2, "Жё");
    EXPECT_EQ(linesOf(session)[lineOf(1)],
              "1, Track                00:30:00\tabcdefghijklmnopqrst00:40:00\tЖё                  00:10:00\t"
              "00:30:00     Professional");
}

TEST(TextExport, NameOfTwentyThreeCharactersFillsItsColumn)
{
    Session session = reportSession();
    session.table.setText(1, Column::Level, "12, Жёлтый мост у реки!");
    EXPECT_TRUE(linesOf(session)[lineOf(1)].starts_with("12, Жёлтый мост у реки! 00:30:00\t"));
}

TEST(TextExport, LongerNameEndsTheReportThere)
{
    Session session = reportSession();
    session.table.setText(3, Column::Level, "abcdefghijklmnopqrstuvwx");
    RecordedReport report;
    try {
        writeTextReport(session, report);
        FAIL() << "no error";
    } catch (const RunTimeError& error) {
        EXPECT_STREQ(error.what(), "Invalid procedure call or argument");
    }
    const auto lines = report.lines();
    ASSERT_EQ(lines.size(), 7U);
    EXPECT_TRUE(lines[lineOf(2)].starts_with("2, Track "));
}

TEST(TextExport, TableWithoutRowsIsWrittenEmpty)
{
    const auto lines = linesOf(Session());
    ASSERT_EQ(lines.size(), 143U);
    // Every empty time reaches every target, also an empty one.
    EXPECT_EQ(lines[lineOf(1)],
              "                        \t                    \t                    \t     World Record");
    EXPECT_EQ(lines[kTeamBlock + 1], "World Records: 55");
}

TEST(TextExport, ReplacesTheFile)
{
    const test::TemporaryFolder folder;
    folder.write("report.txt", "old");
    const Session session = reportSession();
    exportText(session, folder / "report.txt");
    RecordedReport expected;
    writeTextReport(session, expected);
    EXPECT_EQ(folder.read("report.txt"), expected.bytes);
}

TEST(TextExport, BrokenOffReportStaysAsFarAsItCame)
{
    const test::TemporaryFolder folder;
    folder.write("report.txt", "old");
    Session session = reportSession();
    session.table.setText(1, Column::Level, "abcdefghijklmnopqrstuvwx");
    EXPECT_THROW(exportText(session, folder / "report.txt"), RunTimeError);
    EXPECT_EQ(folder.read("report.txt"),
              "Level name              Time1   \tTarget1             Time2   \tTarget2             Difference  Team "
              "Time    Target\r\n\r\n");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1);
}

#ifndef _WIN32

TEST(TextExport, FullDiskLeavesTheReportThatWasThere)
{
    const test::TemporaryFolder folder;
    folder.write("report.txt", "old");
    // One that is whole, and one that would have broken off by itself.
    for (const char* name : {"1, Track", "abcdefghijklmnopqrstuvwx"}) {
        Session session = reportSession();
        session.table.setText(kTotalsRow, Column::Level, name);
        std::string error;
        {
            const test::SmallDisk disk(1000);
            error = test::errorOf([&] { exportText(session, folder / "report.txt"); });
        }
        EXPECT_TRUE(error == "Disk full: report.txt" || error == "Invalid procedure call or argument") << error;
        EXPECT_EQ(folder.read("report.txt"), "old");
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1);
    }
}

#endif

TEST(TextExport, FolderThatIsNotThereIsAnError)
{
    const test::TemporaryFolder folder;
    EXPECT_THROW(exportText(reportSession(), folder / "none/report.txt"), RunTimeError);
}

}  // namespace
}  // namespace kavo
