// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/automation/calc_spreadsheet.h"

namespace kavo {

namespace {

constexpr float kBold = 150;  // per cent of the weight that is not
constexpr float kNormal = 100;

/// The office has red in the highest byte, where ours has blue.
std::int32_t officeColour(Colour colour)
{
    return (colour & 0xFF) << 16 | (colour & 0xFF00) | (colour >> 16 & 0xFF);
}

/// The office has no such setting for one workbook; the user's own may say three sheets.
void keepSheets(const AutomationObject& sheets, int count)
{
    for (int last = sheets.value(L"getCount").number(); count > 0 && last > count; --last) {
        const AutomationObject sheet = sheets.get(L"getByIndex", {AutomationValue(std::int32_t{last - 1})});
        sheets.call(L"removeByName", {sheet.value(L"getName")});
    }
}

void setProperty(const AutomationObject& object, std::string_view name, const AutomationValue& value)
{
    object.call(L"setPropertyValue", {AutomationValue(name), AutomationValue(value)});
}

/// What the office takes for a cell of a table, where an empty text empties the cell.
AutomationValue valueInTable(const SheetDraft::Entry& entry)
{
    if (const auto* number = std::get_if<std::int32_t>(&entry.value)) return AutomationValue(*number);
    return AutomationValue(entry.isTyped ? std::string() : std::get<std::string>(entry.value));
}

}  // namespace

CalcSpreadsheet::CalcSpreadsheet() : m_services(AutomationObject::create(kCalc)) {}

void CalcSpreadsheet::addWorkbook()
{
    const AutomationObject desktop = m_services.get(L"createInstance", {AutomationValue("com.sun.star.frame.Desktop")});
    const AutomationObject workbook = desktop.get(
        L"loadComponentFromURL", {AutomationValue("private:factory/scalc"), AutomationValue("_blank"),
                                  AutomationValue(std::int32_t{0}), AutomationValue(AutomationList(0).value())});
    const AutomationObject sheets = workbook.get(L"getSheets");
    keepSheets(sheets, m_sheetsInNewWorkbook);
    m_sheet = sheets.get(L"getByIndex", {AutomationValue(std::int32_t{0})});
}

AutomationObject CalcSpreadsheet::range(const std::string& address) const
{
    return m_sheet.get(L"getCellRangeByName", {AutomationValue(address)});
}

void CalcSpreadsheet::writeTable(const SheetDraft& draft) const
{
    const auto [rows, columns] = draft.size();
    AutomationList table(rows);
    for (int row = 1; row <= rows; ++row) {
        AutomationList cells(columns);
        for (int column = 1; column <= columns; ++column) {
            const auto found = draft.entries().find({row, column});
            const bool isEmpty = found == draft.entries().end();
            cells.set(column - 1, isEmpty ? AutomationValue(std::string_view()) : valueInTable(found->second));
        }
        table.set(row - 1, cells.value());
    }
    range("A1:" + cellAddress(rows, columns)).call(L"setDataArray", {AutomationValue(table.value())});
}

void CalcSpreadsheet::writeTyped(const SheetDraft& draft) const
{
    // Only a single cell reads a text as if typed.
    for (const auto& [place, entry] : draft.entries())
        if (entry.isTyped)
            setProperty(range(cellAddress(place.first, place.second)), "FormulaLocal",
                        AutomationValue(std::get<std::string>(entry.value)));
}

void CalcSpreadsheet::writeMarks(const SheetDraft& draft) const
{
    for (const SheetDraft::MarkedCells& marked : draft.markedCells())
        for (const CellRange& place : marked.ranges) {
            const AutomationObject cells = range(rangeAddress(place));
            if (marked.font.colour) setProperty(cells, "CharColor", AutomationValue(officeColour(*marked.font.colour)));
            if (marked.font.bold)
                setProperty(cells, "CharWeight", AutomationValue(*marked.font.bold ? kBold : kNormal));
        }
}

void CalcSpreadsheet::writeSheet(const SheetDraft& draft)
{
    writeTable(draft);
    writeTyped(draft);
    writeMarks(draft);
}

void CalcSpreadsheet::fitColumns(int first, int last)
{
    const AutomationObject columns = range(cellAddress(1, first) + ":" + cellAddress(1, last)).get(L"getColumns");
    setProperty(columns, "OptimalWidth", AutomationValue(true));
}

}  // namespace kavo
