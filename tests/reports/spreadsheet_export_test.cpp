// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/spreadsheet_export.h"

#include "core/filters.h"
#include "tests/support/export_season.h"
#include "tests/support/recording_spreadsheet.h"

#include <gtest/gtest.h>

namespace kavo {
namespace {

using test::ExportSeason;
using test::RecordedCell;
using test::SheetRecord;
using Kind = RecordedCell::Kind;

constexpr Colour kRecord = rgb(255, 0, 0);
constexpr Colour kWorldClass = rgb(255, 95, 5);
constexpr Colour kProfessional = rgb(150, 100, 255);
constexpr Colour kGood = rgb(25, 190, 30);
constexpr Colour kOk = rgb(100, 100, 100);
constexpr Colour kFasterTotal = rgb(200, 100, 200);

SheetRecord exported(const Session& session)
{
    SheetRecord record;
    ExportExcel(session.table, session.state, session.colours, "20.11.2026", test::recordingSpreadsheet(record));
    return record;
}

/// A row of the sheet as a reader of it would note it down: text, then * for bold.
std::vector<std::string> textsOf(const SheetRecord& record, int row)
{
    std::vector<std::string> texts;
    for (int column = 1; column <= 8; ++column) {
        const RecordedCell cell = record.cell(row, column);
        texts.push_back(cell.text + (cell.bold ? "*" : ""));
    }
    return texts;
}

std::vector<std::optional<Colour>> coloursOf(const SheetRecord& record, int row)
{
    std::vector<std::optional<Colour>> colours;
    for (int column = 1; column <= 8; ++column) colours.push_back(record.cell(row, column).colour);
    return colours;
}

using Texts = std::vector<std::string>;
using Colours = std::vector<std::optional<Colour>>;
constexpr std::nullopt_t kNone = std::nullopt;

void expectCounts(const SheetRecord& record, int column, const Texts& counts)
{
    for (int i = 0; i < 7; ++i) {
        EXPECT_EQ(record.cell(60 + i, column).text, counts.at(static_cast<std::size_t>(i))) << 60 + i << ", " << column;
        EXPECT_EQ(record.cell(60 + i, column).kind, Kind::Number);
    }
}

TEST(SpreadsheetForm, HasACommaBeforeTheLastTwoCharacters)
{
    EXPECT_EQ(spreadsheetForm("01:23:45"), "01:23,45");
    EXPECT_EQ(spreadsheetForm("SKIPPED"), "SKIPP,ED");
    EXPECT_EQ(spreadsheetForm("1:15:12:34"), "1:15:,34");
    EXPECT_EQ(spreadsheetForm("123:45:67"), "123:4,67");
    EXPECT_EQ(spreadsheetForm(""), "");
    EXPECT_EQ(spreadsheetForm("1"), "1,1");
    EXPECT_EQ(spreadsheetForm("Жаннаёж"), "Жанна,ёж");
}

TEST(SpreadsheetExport, StartsWithOneVisibleSheetAndEndsWithTheWidths)
{
    ExportSeason season;
    season.load("2", "bob.txt");
    const SheetRecord record = exported(season.session);
    ASSERT_GT(record.steps.size(), 5U);
    EXPECT_EQ(Texts(record.steps.begin(), record.steps.begin() + 5),
              (Texts{"create", "visible", "sheets 1", "workbook", "value 2 1"}));
    EXPECT_EQ(record.steps.back(), "fit 1 8");
}

TEST(SpreadsheetExport, HasTitleAndHeaders)
{
    ExportSeason season;
    season.load("2", "bob.txt");
    const SheetRecord record = exported(season.session);
    EXPECT_EQ(textsOf(record, 1), (Texts{"Kavo results. Update: 20.11.2026*", "", "", "", "", "", "", ""}));
    EXPECT_EQ(record.cell(1, 1).colour, rgb(70, 230, 60));
    EXPECT_EQ(textsOf(record, 2),
              (Texts{"Level", "Alice", "Target", "Bob", "Target", "Difference", "Dust Devils", "Target"}));
    EXPECT_EQ(coloursOf(record, 2), Colours(8, kNone));
    EXPECT_EQ(textsOf(record, 58), Texts(8, ""));
}

TEST(SpreadsheetExport, ShowsEveryRowAgainstAnotherFile)
{
    ExportSeason season;
    season.load("2", "bob.txt");
    const SheetRecord record = exported(season.session);
    const std::vector<Texts> firstRows = {
        {"1, Track", "00:09,00*", "World Record", "00:10,00", "World Record", "00:01,00", "00:09,00*", "World Record*"},
        {"2, Track", "00:15,00", "World Class", "00:15,00*", "World Class", "No change", "00:15,00*", "World Class*"},
        {"3, Track", "00:30,00", "Professional", "00:25,00*", "Professional", "00:05,00", "00:25,00*", "Professional*"},
        {"4, Track", "00:35,00*", "Good", "00:45,00", "OK", "00:10,00", "00:35,00*", "Good*"},
        {"5, Track", "00:50,00*", "OK", "SKIPP,ED", "Beginner", "09:10,00", "00:50,00*", "OK*"},
        {"6, Track", "01:00,00", "Beginner", "01:00,00*", "Beginner", "No change", "01:00,00*", "Beginner*"},
        {"7, Track", "SKIPP,ED", "Beginner", "SKIPP,ED*", "Beginner", "No change", "SKIPP,ED*", "Beginner*"},
        {"8, Steppes", "00:30,00*", "Professional", "00:40,00", "Good", "00:10,00", "00:30,00*", "Professional*"},
    };
    for (int level = 1; level <= 8; ++level)
        EXPECT_EQ(textsOf(record, level + 2), firstRows.at(static_cast<std::size_t>(level) - 1)) << level;
    for (int level = 9; level <= 54; ++level)
        EXPECT_EQ(textsOf(record, level + 2), (Texts{std::to_string(level) + ", Track", "00:30,00*", "Professional",
                                                     "00:40,00", "Good", "00:10,00", "00:30,00*", "Professional*"}));
    // 36:49:00 and 53:55:00; the faster total is Good, the team's own sum would be Professional.
    EXPECT_EQ(textsOf(record, 57),
              (Texts{"TOTAL TIME:", "36:49,00*", "Good", "53:55,00", "Beginner", "17:06,00", "26:44,00*", "Good*"}));
}

TEST(SpreadsheetExport, ColoursGradesAndTheFasterTotal)
{
    ExportSeason season;
    season.load("2", "bob.txt");
    const SheetRecord record = exported(season.session);
    const std::vector<Colours> firstRows = {
        {kNone, kNone, kRecord, kNone, kRecord, kNone, kNone, kRecord},
        {kNone, kNone, kWorldClass, kNone, kWorldClass, kNone, kNone, kWorldClass},
        {kNone, kNone, kProfessional, kNone, kProfessional, kNone, kNone, kProfessional},
        {kNone, kNone, kGood, kNone, kOk, kNone, kNone, kGood},
        {kNone, kNone, kOk, kNone, kNone, kNone, kNone, kOk},
        Colours(8, kNone),
        Colours(8, kNone),
    };
    for (int level = 1; level <= 7; ++level)
        EXPECT_EQ(coloursOf(record, level + 2), firstRows.at(static_cast<std::size_t>(level) - 1)) << level;
    for (int level = 8; level <= 54; ++level)
        EXPECT_EQ(coloursOf(record, level + 2),
                  (Colours{kNone, kNone, kProfessional, kNone, kGood, kNone, kNone, kProfessional}));
    EXPECT_EQ(coloursOf(record, 57), (Colours{kNone, kFasterTotal, kGood, kNone, kNone, kNone, kNone, kGood}));
}

TEST(SpreadsheetExport, SumsUpGradesAndItsOwnVictories)
{
    ExportSeason season;
    season.load("2", "bob.txt");
    const SheetRecord record = exported(season.session);
    EXPECT_EQ(textsOf(record, 59), (Texts{"Alice", "", "Bob", "", "Dust Devils", "", "", ""}));
    const Texts labels = {"World Records:", "World Class:", "Professional:", "Good:", "OK:", "Beginner:", "Victories:"};
    for (const int column : {1, 3, 5})
        for (int i = 0; i < 7; ++i) EXPECT_EQ(record.cell(60 + i, column).text, labels.at(static_cast<std::size_t>(i)));
    expectCounts(record, 2, {"1", "1", "48", "1", "1", "2", "50"});
    expectCounts(record, 4, {"1", "1", "1", "47", "1", "3", "4"});
    expectCounts(record, 6, {"1", "1", "48", "1", "1", "2", "54"});
    for (int column = 1; column <= 8; ++column) EXPECT_EQ(record.cell(67, column).kind, Kind::Empty);
}

TEST(SpreadsheetExport, ColoursTheSummaryWithItsOwnWorldClassAndProfessional)
{
    ExportSeason season;
    season.load("2", "bob.txt");
    season.session.colours.ColWR = rgb(1, 2, 3);
    season.session.colours.ColGood = rgb(4, 5, 6);
    season.session.colours.ColOK = rgb(7, 8, 9);
    const SheetRecord record = exported(season.session);
    const Colours expected = {
        rgb(1, 2, 3), rgb(200, 25, 25), rgb(75, 25, 190), rgb(4, 5, 6), rgb(7, 8, 9), rgb(0, 0, 0), kNone};
    for (int column = 1; column <= 6; ++column)
        for (int i = 0; i < 7; ++i) {
            const RecordedCell cell = record.cell(60 + i, column);
            EXPECT_EQ(cell.colour, expected.at(static_cast<std::size_t>(i))) << 60 + i << ", " << column;
            EXPECT_EQ(cell.bold, i == 6 && column % 2 == 0) << 60 + i << ", " << column;
        }
}

TEST(SpreadsheetExport, ComparesWithPreviousResultsLikeWithAFile)
{
    ExportSeason season;
    season.load("2", "bob.txt");
    const SheetRecord another = exported(season.session);
    season.load("1");
    const SheetRecord previous = exported(season.session);
    EXPECT_EQ(previous.steps, another.steps);
    for (int row = 1; row <= 66; ++row) {
        EXPECT_EQ(textsOf(previous, row), textsOf(another, row));
        EXPECT_EQ(coloursOf(previous, row), coloursOf(another, row));
    }
}

TEST(SpreadsheetExport, ComparesWithTargets)
{
    ExportSeason season;
    season.load("3", "", "Good");
    const SheetRecord record = exported(season.session);
    EXPECT_EQ(record.cell(2, 4).text, "Good");
    EXPECT_EQ(textsOf(record, 3), (Texts{"1, Track", "00:09,00*", "World Record", "00:40,00", "Good", "00:31,00",
                                         "00:09,00*", "World Record*"}));
    EXPECT_EQ(textsOf(record, 9),
              (Texts{"7, Track", "SKIPP,ED", "Beginner", "00:40,00*", "Good", "00:40,00", "00:40,00*", "Good*"}));
    EXPECT_EQ(textsOf(record, 57),
              (Texts{"TOTAL TIME:", "36:49,00*", "Good", "40:00,00", "Good", "03:11,00", "26:59,00*", "Good*"}));
    EXPECT_EQ(record.cell(59, 3).text, "Good");
    expectCounts(record, 4, {"0", "0", "0", "54", "0", "0", "3"});
    EXPECT_EQ(record.cell(66, 2).text, "51");
}

TEST(SpreadsheetExport, TheSameFileTwiceHasNoChangeInTheTotalsRow)
{
    ExportSeason season;
    season.load("2", "alice.txt");
    const SheetRecord record = exported(season.session);
    EXPECT_EQ(record.cell(57, 6).text, "No change");
    EXPECT_TRUE(record.cell(57, 4).bold);
    EXPECT_EQ(record.cell(66, 2).text, "0");
    EXPECT_EQ(record.cell(66, 4).text, "54");
    EXPECT_EQ(record.cell(66, 6).text, "54");
}

TEST(SpreadsheetExport, FilteredRowsStayEmptyWhileTheSummaryCountsAllLevels)
{
    ExportSeason season;
    season.load("2", "bob.txt");
    filterByGrade(season.session.table, FilterSide::Player1, "World Record");
    const SheetRecord record = exported(season.session);
    EXPECT_EQ(record.cell(3, 8).text, "World Record");
    for (int row = 4; row <= 57; ++row) {
        EXPECT_EQ(textsOf(record, row), (Texts{"", "", "", "*", "", "", "*", "*"})) << row;
        EXPECT_EQ(record.cell(row, 8).colour, kNone);
    }
    expectCounts(record, 2, {"1", "1", "48", "1", "1", "2", "1"});
    expectCounts(record, 4, {"1", "1", "1", "47", "1", "3", "53"});
    expectCounts(record, 6, {"1", "1", "48", "1", "1", "2", "54"});
}

TEST(SpreadsheetExport, AFilteredLevelAddsNothingToTheTeamsSum)
{
    ExportSeason season;
    season.load("2", "bob.txt");
    filterVictories(season.session.table, FilterSide::Player1);  // blanks level 3, Bob's 00:25:00, alone
    const SheetRecord record = exported(season.session);
    EXPECT_EQ(textsOf(record, 5), (Texts{"", "", "", "*", "", "", "*", "*"}));
    EXPECT_EQ(textsOf(record, 57),
              (Texts{"TOTAL TIME:", "36:49,00*", "Good", "53:55,00", "Beginner", "17:06,00", "26:19,00*", "Good*"}));
}

TEST(SpreadsheetExport, WithoutASecondFileNoTotalsRowIsCopied)
{
    ExportSeason season;
    season.load("2", "missing.txt");
    ASSERT_EQ(season.session.table.rowCount(), 54);
    const SheetRecord record = exported(season.session);
    // An empty time is before every target, so the team that it stands for has only records.
    EXPECT_EQ(textsOf(record, 3),
              (Texts{"1, Track", "00:09,00", "World Record", "*", "", "00:09,00", "*", "World Record*"}));
    EXPECT_EQ(textsOf(record, 57), (Texts{"", "", "", "*", "", "", "00:00,00*", "World Record*"}));
    EXPECT_EQ(record.cell(66, 4).text, "54");
    EXPECT_EQ(record.steps.back(), "fit 1 8");
}

TEST(SpreadsheetExport, AnEmptyTableIsNoError)
{
    const Session session;
    const SheetRecord record = exported(session);
    EXPECT_EQ(record.steps.back(), "fit 1 8");
}

TEST(SpreadsheetExport, CopiesOwnColoursOnly)
{
    ExportSeason season;
    season.load("2", "bob.txt");
    Session& session = season.session;
    session.colours.ColText = rgb(10, 20, 30);
    for (const Column column : {Column::Level, Column::Time1, Column::Difference, Column::Team})
        session.table.setColour(6, column, rgb(1, 1, 1));
    session.table.setColour(6, Column::Target1, rgb(255, 255, 255));
    session.table.setColour(6, Column::Target2, rgb(10, 20, 30));
    const SheetRecord record = exported(session);
    EXPECT_EQ(coloursOf(record, 8), (Colours{kNone, rgb(1, 1, 1), kNone, kNone, kNone, rgb(1, 1, 1), kNone, kNone}));
}

TEST(SpreadsheetExport, OnlyTimesAreTyped)
{
    ExportSeason season;
    season.load("2", "bob.txt");
    season.session.state.Player1Name = "=1+1";
    season.session.state.Player2Name = "Zo\xEB";  // 8-bit, as old files have it
    season.session.table.setText(1, Column::Time1, "=SUM(A1)");
    const SheetRecord record = exported(season.session);
    EXPECT_EQ(record.cell(2, 2).text, "=1+1");
    EXPECT_EQ(record.cell(2, 2).kind, Kind::Plain);
    EXPECT_EQ(record.cell(2, 4).text, "Zoë");
    EXPECT_EQ(record.cell(3, 2).text, "=SUM(,1)");
    EXPECT_EQ(record.cell(3, 2).kind, Kind::Plain);
    EXPECT_EQ(record.cell(3, 4).kind, Kind::Typed);
    EXPECT_EQ(record.cell(3, 6).kind, Kind::Typed);
    EXPECT_EQ(record.cell(4, 6).kind, Kind::Plain);
    EXPECT_EQ(record.cell(9, 2).kind, Kind::Plain);
    EXPECT_EQ(record.cell(9, 2).text, "SKIPP,ED");
}

TEST(SpreadsheetExport, StopsWithoutAWordWhereAStepFails)
{
    ExportSeason season;
    season.load("2", "bob.txt");
    const Texts all = exported(season.session).steps;
    for (std::size_t step = 1; step <= all.size(); ++step) {
        SheetRecord record;
        record.failsAt = step;
        EXPECT_NO_THROW(ExportExcel(season.session.table, season.session.state, season.session.colours, "20.11.2026",
                                    test::recordingSpreadsheet(record)));
        EXPECT_EQ(record.steps, Texts(all.begin(), all.begin() + static_cast<std::ptrdiff_t>(step) - 1));
    }
}

}  // namespace
}  // namespace kavo
