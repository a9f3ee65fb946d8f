// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#ifdef KAVO_HAS_XLSX

#include "insight/sheet_file.h"

#include "base/file_name.h"
#include "base/text.h"
#include "base/text_file.h"
#include "core/filters.h"
#include "insight/xlsx_library.h"
#include "reports/spreadsheet_export.h"
#include "tests/support/environment.h"
#include "tests/support/export_season.h"
#include "tests/support/flat_sheet.h"
#include "tests/support/recording_spreadsheet.h"

#include <gtest/gtest.h>

namespace kavo {
namespace {

using Kind = test::RecordedCell::Kind;

constexpr std::time_t kMoment = 1795257991;

TEST(SpreadsheetTime, IsReadAsTheApplicationReadsIt)
{
    EXPECT_EQ(spreadsheetTime("01:23,45"), 8345);
    EXPECT_EQ(spreadsheetTime("00:00,00"), 0);
    EXPECT_EQ(spreadsheetTime("00:60,60"), 6060);    // a difference of a minute
    EXPECT_EQ(spreadsheetTime("75:12,34"), 451234);  // player 2's total, which is not in hours
    EXPECT_EQ(spreadsheetTime("99:59,99"), 599999);
    EXPECT_EQ(spreadsheetTime("123:0,05"), 738005);  // as the form has cut 123:04:05
    EXPECT_EQ(spreadsheetTime("1:1:0,03"), 366003);  // 1:1:02:03, cut too
}

TEST(SpreadsheetTime, IsNoneWhereTheApplicationKeepsAText)
{
    for (const char* form : {"", ",", "1:15:,34", "SKIPP,ED", "1,1", "12,34", "01:23", ":,", "1:2:3:4,05", "12:3:,03",
                             "-1:23,45", "01:23,4", "01:23,456", "01:23,4x", "+1:23,45"})
        EXPECT_EQ(spreadsheetTime(form), std::nullopt) << form;
}

/// Lets LibreOffice open workbooks and store them as flat XML. All at once: its start is what takes long.
std::vector<test::FlatSheet> opened(const std::vector<std::string>& workbooks)
{
    const test::TemporaryFolder folder;
    const std::string at = folder.path().string();
    std::string command =
        "soffice -env:UserInstallation=file://" + at + "/profile --headless --convert-to fods --outdir " + at;
    for (std::size_t i = 0; i < workbooks.size(); ++i) {
        folder.write(std::to_string(i) + ".xlsx", workbooks[i]);
        command += " " + at + "/" + std::to_string(i) + ".xlsx";
    }
    if (std::system((command + " >" + at + "/log 2>&1").c_str()) != 0) ADD_FAILURE() << folder.read("log");
    std::vector<test::FlatSheet> sheets;
    for (std::size_t i = 0; i < workbooks.size(); ++i)
        sheets.push_back(test::readFlatSheet(folder / (std::to_string(i) + ".fods")));
    return sheets;
}

constexpr int kLastRow = 70;
constexpr int kLastColumn = 10;

/// Times are times here, shown with the decimal sign of the office's language; everything else is as the
/// recorded export has it.
void expectEqualCells(const test::FlatSheet& sheet, const test::SheetRecord& record)
{
    for (int row = 1; row <= kLastRow; ++row)
        for (int column = 1; column <= kLastColumn; ++column) {
            SCOPED_TRACE("row " + std::to_string(row) + ", column " + std::to_string(column));
            const test::RecordedCell wanted = record.cell(row, column);
            const test::ShownCell shown = sheet.cell(row, column);
            const bool isTime = wanted.kind == Kind::Typed && spreadsheetTime(wanted.text).has_value();
            EXPECT_EQ(shown.text, isTime ? replaceAll(wanted.text, ",", ".") : wanted.text);
            EXPECT_EQ(shown.type, isTime                        ? "time"
                                  : wanted.kind == Kind::Empty  ? ""
                                  : wanted.kind == Kind::Number ? "float"
                                                                : "string");
            EXPECT_EQ(shown.colour, wanted.colour.value_or(0));
            EXPECT_EQ(shown.bold, wanted.bold);
        }
}

test::SheetRecord recorded(const Session& session)
{
    test::SheetRecord record;
    ExportExcel(session.table, session.state, session.colours, "20.11.2026", test::recordingSpreadsheet(record));
    return record;
}

std::string fileOf(const Session& session)
{
    return sheetFileOf(session, "20.11.2026", kMoment);
}

TEST(SheetFile, IsTheLiveExportCellByCell)
{
    if (std::system("command -v soffice >/dev/null 2>&1") != 0) GTEST_SKIP() << "LibreOffice is not installed";
    test::ExportSeason players;
    players.load("2", "bob.txt");
    players.session.state.Player1Name = "=1+1";
    players.session.state.Player2Name = "1/2 <Жанна> & _x0041_";
    players.session.state.TeamName = "'007";

    test::ExportSeason totals;
    totals.load("3", "", "Good");
    totals.session.table.setText(kTotalsRow, Column::Time1, "1:15:12:34");
    totals.session.table.setText(kTotalsRow, Column::Time2, "123:04:05");
    totals.session.table.setText(7, Column::Difference, "00:60:60");
    totals.session.table.blankRow(3);
    test::SheetRecord totalsRecord = recorded(totals.session);
    // A time has its minutes and seconds, however it was written.
    totalsRecord.cells[{57, 4}].text = "123:00,05";
    totalsRecord.cells[{9, 6}].text = "01:00,60";

    test::ExportSeason names;
    names.load("2", "bob.txt");
    names.session.state.Player2Name = "\uFFFF \uFFFE \xFF \x01\x7F]]>";

    const auto sheets = opened({fileOf(players.session), fileOf(totals.session), fileOf(names.session)});
    EXPECT_EQ(sheets[0].sheets, 1);
    expectEqualCells(sheets[0], recorded(players.session));
    EXPECT_LT(sheets[0].columnWidths.at(2), sheets[0].columnWidths.at(3));
    EXPECT_LT(sheets[0].columnWidths.at(3), sheets[0].columnWidths.at(1));
    expectEqualCells(sheets[1], totalsRecord);
    EXPECT_EQ(sheets[1].cell(57, 2).text, "1:15:,34");
    EXPECT_EQ(sheets[2].cell(2, 4).text.substr(0, 10), "\uFFFD \uFFFD ÿ");
    EXPECT_EQ(sheets[2].cell(3, 1).text, "1, Track");
}

TEST(SheetFile, CutsANameThatNoCellTakes)
{
    test::ExportSeason season;
    season.load("2", "bob.txt");
    season.session.state.Player1Name = std::string(32000, 'x') + "y";
    const std::string cut = fileOf(season.session);
    season.session.state.Player1Name = std::string(32000, 'x') + std::string(100000, 'z');
    EXPECT_EQ(fileOf(season.session), cut);
}

TEST(SheetFile, IsTheSameBytesAtTheSameMoment)
{
    test::ExportSeason season;
    season.load("2", "bob.txt");
    const std::string bytes = sheetFileOf(season.session, "20.11.2026", kMoment);
    EXPECT_EQ(bytes.substr(0, 2), "PK");
    EXPECT_EQ(sheetFileOf(season.session, "20.11.2026", kMoment), bytes);
    EXPECT_NE(sheetFileOf(season.session, "20.11.2026", kMoment + 1), bytes);
    EXPECT_EQ(sheetFileOf(season.session, "20.11.2026", 0), sheetFileOf(season.session, "20.11.2026", 0));
}

TEST(SheetFile, LeavesNothingBehind)
{
    const test::TemporaryFolder folder;
    const test::EnvironmentValue place("TMPDIR", folder.path().string());
    static_cast<void>(SheetFile().bytes(kMoment));
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
    const test::EnvironmentValue nowhere("TMPDIR", (folder / "none").string());
    EXPECT_THROW(static_cast<void>(SheetFile().bytes(kMoment)), RunTimeError);
}

std::string reasonOf(const char* library)
{
    try {
        static_cast<void>(loadXlsxLibrary(library));
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return {};
}

TEST(XlsxLibrary, SaysWhyItCannotBeUsed)
{
    EXPECT_EQ(reasonOf("libnowhere.so.1").substr(0, 54), "No .xlsx file without libxlsxwriter: libnowhere.so.1: ");
    EXPECT_EQ(reasonOf("libc.so.6"), "libxlsxwriter has no workbook_new_opt");
    EXPECT_EQ(xlsxLibrary().workbook_close, loadXlsxLibrary("libxlsxwriter.so").workbook_close);
}

}  // namespace
}  // namespace kavo

#endif
