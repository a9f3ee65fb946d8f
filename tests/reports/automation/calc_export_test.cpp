// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// An export to LibreOffice on Windows as the system sees it: by way of its registry, into another process.
#ifdef _WIN32

#include "tests/support/recorded_office.h"

#include <algorithm>

namespace kavo {
namespace {

using test::CellTexts;
using test::Lines;
using test::linesOf;
using Kind = test::RecordedCell::Kind;

const std::string kSheets =
    "Application.createInstance(com.sun.star.frame.Desktop)"
    ".loadComponentFromURL(private:factory/scalc;_blank;#0;list).getSheets";
const std::string kRange = "call " + kSheets + ".getByIndex(#0).getCellRangeByName(";

class CalcExport : public test::RecordedExport
{
protected:
    CalcExport() : RecordedExport(test::calcClass()) {}
};

/// Red is the highest byte there.
std::string officeColour(Colour colour)
{
    return "#" + std::to_string((colour & 0xFF) * 0x10000 + (colour & 0xFF00) + (colour / 0x10000));
}

TEST_F(CalcExport, MakesTheSameSheetCellByCell)
{
    CellTexts texts, typed, colours, bold;
    for (const auto& [place, cell] : expected().cells) {
        const std::string name = test::placeText(place.first, place.second);
        if (cell.kind == Kind::Plain) texts[name] = cell.text;
        if (cell.kind == Kind::Number) texts[name] = "#" + cell.text;
        if (cell.kind == Kind::Typed) typed[name] = cell.text + ")";
        if (cell.colour) colours[name] = officeColour(*cell.colour) + ")";
        if (cell.bold) bold[name] = "150.0)";
    }
    const Lines log = exported();
    CellTexts written = test::tablesOf(log);
    std::erase_if(written, [](const auto& cell) { return cell.second.empty(); });
    EXPECT_GT(texts.size(), 100U);
    EXPECT_GT(typed.size(), 100U);
    EXPECT_EQ(linesOf(written), linesOf(texts));
    EXPECT_EQ(linesOf(test::rangesOf(log, kRange, ").setPropertyValue(FormulaLocal;")), linesOf(typed));
    EXPECT_EQ(linesOf(test::rangesOf(log, kRange, ").setPropertyValue(CharColor;")), linesOf(colours));
    EXPECT_EQ(linesOf(test::rangesOf(log, kRange, ").setPropertyValue(CharWeight;")), linesOf(bold));
}

TEST_F(CalcExport, LeavesNoCellOfTheTableWithoutAText)
{
    // The office would show an error there.
    const std::size_t cells = test::tablesOf(exported()).size();
    EXPECT_EQ(cells, 66U * 8U);
}

TEST_F(CalcExport, FillsTheTableBeforeItReadsTexts)
{
    const Lines log = exported();
    const auto starting = [&log](const std::string& start) {
        return std::find_if(log.begin(), log.end(), [&](const std::string& line) { return line.starts_with(start); });
    };
    const auto table = starting(kRange + "A1:H66).setDataArray(");
    ASSERT_NE(table, log.end());
    EXPECT_LT(table, starting(kRange + "B3).setPropertyValue(FormulaLocal;"));
}

TEST_F(CalcExport, KeepsOneSheetAndFitsTheColumns)
{
    const Lines log = exported();
    ASSERT_GT(log.size(), 5U);
    Lines removed;
    std::copy_if(log.begin(), log.end(), std::back_inserter(removed),
                 [](const std::string& line) { return line.find(".removeByName(") != std::string::npos; });
    EXPECT_EQ(removed,
              Lines({"call " + kSheets + ".removeByName(Sheet3)", "call " + kSheets + ".removeByName(Sheet2)"}));
    EXPECT_EQ(log[log.size() - 2], kRange + "A1:H1).getColumns.setPropertyValue(OptimalWidth;true)");
    EXPECT_EQ(log.back(), "released");
}

TEST_F(CalcExport, EndsInSilenceWhereAMemberIsRefused)
{
    expectSilenceWhereRefused({L"createInstance", L"getCount", L"setDataArray", L"setPropertyValue"});
}

TEST_F(CalcExport, EndsInSilenceWhereTheApplicationDies)
{
    expectSilenceWhereItDies(L"setPropertyValue");
}

}  // namespace
}  // namespace kavo

#endif
