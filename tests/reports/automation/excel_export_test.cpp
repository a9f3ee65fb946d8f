// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// An export to Excel as the system sees it: by way of its registry, into another process.
#ifdef _WIN32

#include "tests/support/recorded_office.h"

namespace kavo {
namespace {

using test::CellTexts;
using test::Lines;
using test::linesOf;
using Kind = test::RecordedCell::Kind;

const std::string kSheet = "Application.Workbooks.Add.ActiveSheet";

class ExcelExport : public test::RecordedExport
{
protected:
    ExcelExport() : RecordedExport(test::excelClass()) {}
};

TEST_F(ExcelExport, MakesTheSameSheetCellByCell)
{
    CellTexts texts, colours, bold;
    for (const auto& [place, cell] : expected().cells) {
        const std::string name = test::placeText(place.first, place.second);
        const char* mark = cell.kind == Kind::Plain ? "'" : cell.kind == Kind::Number ? "#" : "";
        if (cell.kind != Kind::Empty) texts[name] = mark + cell.text;
        if (cell.colour) colours[name] = "#" + std::to_string(*cell.colour);
        if (cell.bold) bold[name] = "true";
    }
    const Lines log = exported();
    EXPECT_GT(texts.size(), 300U);
    EXPECT_EQ(linesOf(test::tablesOf(log)), linesOf(texts));
    EXPECT_EQ(linesOf(test::rangesOf(log, "set " + kSheet + ".Range(", ").Font.Color=")), linesOf(colours));
    EXPECT_EQ(linesOf(test::rangesOf(log, "set " + kSheet + ".Range(", ").Font.Bold=")), linesOf(bold));
}

TEST_F(ExcelExport, OpensTheUsersApplicationAndLetsItGo)
{
    const Lines log = exported();
    ASSERT_GT(log.size(), 5U);
    EXPECT_EQ(log[0], "set Application.Visible=true");
    EXPECT_EQ(log[1], "set Application.UserControl=true");
    EXPECT_EQ(log[2], "set Application.SheetsInNewWorkbook=#1");
    EXPECT_EQ(log[log.size() - 2], "call " + kSheet + ".Range(A1:H1).EntireColumn.AutoFit()");
    EXPECT_EQ(log.back(), "released");
}

TEST_F(ExcelExport, NeedsFewCalls)
{
    EXPECT_LT(test::callsIn(exported()), 120);
}

TEST_F(ExcelExport, EndsInSilenceWhereAMemberIsRefused)
{
    expectSilenceWhereRefused({L"Visible", L"Workbooks", L"FormulaLocal", L"Color", L"AutoFit"});
}

TEST_F(ExcelExport, EndsInSilenceWhereTheApplicationDies)
{
    expectSilenceWhereItDies(L"Color");
    EXPECT_EQ(exported().back(), "released");  // the next one is well
}

TEST_F(ExcelExport, ComesBeforeLibreOffice)
{
    const test::RecordedOffice calc(test::calcClass());
    EXPECT_FALSE(exported().empty());
    EXPECT_EQ(calc.log(), Lines());
}

TEST_F(ExcelExport, EndsInSilenceWhereThereIsNoOffice)
{
    exportSeason();
    EXPECT_THROW(static_cast<void>(openSpreadsheetApplication({})), std::runtime_error);
}

}  // namespace
}  // namespace kavo

#endif
