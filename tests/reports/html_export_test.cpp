// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/html_export.h"

#include "base/run_time_error.h"
#include "tests/support/program_folder_fixture.h"
#include "tests/support/report_session.h"
#include "tests/support/trouble.h"

#include <gtest/gtest.h>

namespace kavo {
namespace {

using test::RecordedReport;
using test::reportSession;

const ReportDates kDates = {.date = "7.3.2026", .dateTime = "7.3.2026 14:05", .time = "14:05"};
constexpr int kNoRow = 0;

std::string inBeginning(std::string_view section, const Session& session = reportSession())
{
    return substitute(section, session, kDates, kNoRow);
}

TEST(HtmlExport, CommentComesFirstAndTheLoopFiftyFourTimes)
{
    RecordedReport report;
    writeHtmlReport(reportSession(), {"begin\r\nning", "loop", "total", "end"}, kDates, report);
    std::string expected =
        "<!-- Maden by prog Kavo Timing v.2.1 by Nurel. Download here: https://kavo-timing.example/ -->\r\n"
        "begin\r\nning\r\n";
    for (int level = 1; level <= 54; ++level) expected += "loop\r\n";
    EXPECT_EQ(report.bytes, expected + "total\r\nend\r\n");
}

TEST(HtmlExport, DatesAreReplacedInEverySection)
{
    EXPECT_EQ(inBeginning("%date%|%date_time%|%time%|%date%"), "7.3.2026|7.3.2026 14:05|14:05|7.3.2026");
    EXPECT_EQ(substitute("%date%|%time%", reportSession(), kDates, 3), "7.3.2026|14:05");
}

TEST(HtmlExport, LevelPlaceholdersAreReplacedInTheLoopOnly)
{
    Session session = reportSession();
    session.table.setText(2, Column::Team, "team time");
    const std::string section =
        "%lev_name%|%record1%|%record2%|%target1%|%target2%|%team_record%|%team_target%|%best_driver%";
    EXPECT_EQ(substitute(section, session, kDates, 2),
              "2, Track|00:30:00|00:40:00|Professional|Good|team time|Professional|Alice");
    EXPECT_EQ(substitute(section, session, kDates, kNoRow), section);
}

TEST(HtmlExport, TotalsComeFromTheTotalsRow)
{
    EXPECT_EQ(inBeginning("%tt1%|%tt2%|%tt1target%|%tt2target%|%ttt%|%ttttarget%"),
              "27:00:00|36:00:00|Professional|Good|27:00:00|Professional");
    EXPECT_EQ(substitute("%ttt%", reportSession(), kDates, 1), "27:00:00");
}

TEST(HtmlExport, CountsAndNames)
{
    Session session = reportSession();
    test::countUp(session.state);
    EXPECT_EQ(inBeginning("%wr1% %wc1% %pr1% %go1% %ok1% %be1% %vic1% %player1%", session), "1 2 3 4 5 6 30 Alice");
    EXPECT_EQ(inBeginning("%wr2% %wc2% %pr2% %go2% %ok2% %be2% %vic2% %player2%", session), "11 12 13 14 15 16 17 Bob");
    EXPECT_EQ(inBeginning("%wrt% %wct% %prt% %got% %okt% %bet% %vict% %team%", session),
              "21 22 23 24 25 26 47 Dust Devils");
}

TEST(HtmlExport, OnlyExactNamesAreReplaced)
{
    EXPECT_EQ(inBeginning("%Date% %DATE% date% % team% 100% %difference%"),
              "%Date% %DATE% date% % team% 100% %difference%");
    EXPECT_EQ(inBeginning("%%team%%"), "%Dust Devils%");
}

TEST(HtmlExport, ValuesAreReplacedAgainByLaterPlaceholders)
{
    Session session = reportSession();
    session.state.Player1Name = "%team%";
    session.state.TeamName = "%player1%";
    session.table.setText(1, Column::Author, "%tt1%");
    session.table.setText(kTotalsRow, Column::Time2, "%tt1%");
    EXPECT_EQ(inBeginning("%player1%|%team%", session), "%player1%|%player1%");
    EXPECT_EQ(substitute("%best_driver%", session, kDates, 1), "27:00:00");
    // %tt1% is over when %tt2% is replaced.
    EXPECT_EQ(inBeginning("%tt2%", session), "%tt1%");
}

TEST(HtmlExport, PlaceholderThatArisesFromTwoIsReplaced)
{
    Session session = reportSession();
    session.state.Player1Name = "te";
    session.state.Player2Name = "am";
    EXPECT_EQ(inBeginning("%%player1%%player2%%", session), "Dust Devils");
}

class HtmlExportFile : public testing::Test
{
protected:
    void expectFailure(const std::filesystem::path& path)
    {
        EXPECT_THROW(reports.write(session, {"a", "b", "c", "d"}, 0, path), RunTimeError);
    }

    test::TemporaryFolder folder;
    Session session = reportSession();
    HtmlReports reports;
};

TEST_F(HtmlExportFile, ReplacesTheFile)
{
    folder.write("report.html", "old");
    reports.write(session, {"%team%", "", "", "end"}, 0, folder / "report.html");
    const std::string report = folder.read("report.html");
    EXPECT_TRUE(report.starts_with("<!-- Maden by prog"));
    EXPECT_TRUE(report.ends_with("\r\nend\r\n"));
    EXPECT_NE(report.find("\r\nDust Devils\r\n"), std::string::npos);
    reports.write(session, {}, 0, folder / "report.html");
    EXPECT_EQ(folder.read("report.html").find("Dust Devils"), std::string::npos);
}

TEST_F(HtmlExportFile, PathThatCannotBeOpenedFailsThisTimeOnly)
{
    expectFailure(folder / "none/report.html");
    expectFailure(folder.path());
    reports.write(session, {}, 0, folder / "report.html");
    EXPECT_TRUE(folder.has("report.html"));
}

#ifdef __linux__
TEST_F(HtmlExportFile, FailureAfterTheOpeningEndsAllLaterOnes)
{
    expectFailure("/dev/full");
    expectFailure(folder / "report.html");
    EXPECT_FALSE(folder.has("report.html"));
}
#endif

#ifndef _WIN32
TEST_F(HtmlExportFile, FullDiskLeavesTheReportThatWasThere)
{
    folder.write("report.html", "old");
    {
        const test::SmallDisk disk(100);
        expectFailure(folder / "report.html");
    }
    EXPECT_EQ(folder.read("report.html"), "old");
    expectFailure(folder / "report.html");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1);
}
#endif

}  // namespace
}  // namespace kavo
