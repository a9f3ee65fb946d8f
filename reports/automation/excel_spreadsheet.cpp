// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/automation/excel_spreadsheet.h"

namespace kavo {

namespace {

// Old versions refuse a table with a longer text in it.
constexpr std::size_t kLongestInTable = 255;

/// What would be typed into the cell.
AutomationValue typed(const SheetDraft::Entry& entry)
{
    const auto* text = std::get_if<std::string>(&entry.value);
    if (text == nullptr) return AutomationValue(std::get<std::int32_t>(entry.value));
    // The apostrophe is not shown: it says that what follows is a text and no formula, number or date.
    return AutomationValue(entry.isTyped ? *text : "'" + *text);
}

bool fitsIntoTable(const SheetDraft::Entry& entry)
{
    const auto* text = std::get_if<std::string>(&entry.value);
    return text == nullptr || text->size() < kLongestInTable;  // the apostrophe counts, too
}

}  // namespace

ExcelSpreadsheet::ExcelSpreadsheet() : m_application(AutomationObject::create(kExcel)) {}

void ExcelSpreadsheet::makeVisible()
{
    m_application.set(L"Visible", AutomationValue(true));
    // From here on it is the user's: it would end with our last reference otherwise.
    m_application.set(L"UserControl", AutomationValue(true));
}

void ExcelSpreadsheet::setSheetsInNewWorkbook(int count)
{
    m_application.set(L"SheetsInNewWorkbook", AutomationValue(std::int32_t{count}));
}

void ExcelSpreadsheet::addWorkbook()
{
    m_sheet = m_application.get(L"Workbooks").get(L"Add").get(L"ActiveSheet");
}

AutomationObject ExcelSpreadsheet::range(const std::string& addresses) const
{
    return m_sheet.get(L"Range", {AutomationValue(addresses)});
}

void ExcelSpreadsheet::writeEntries(const SheetDraft& draft) const
{
    const auto [rows, columns] = draft.size();
    AutomationTable table(rows, columns);
    for (const auto& [place, entry] : draft.entries())
        if (fitsIntoTable(entry)) table.set(place.first, place.second, typed(entry));
    range("A1:" + cellAddress(rows, columns)).set(L"FormulaLocal", table.value());
    for (const auto& [place, entry] : draft.entries())
        if (!fitsIntoTable(entry)) range(cellAddress(place.first, place.second)).set(L"FormulaLocal", typed(entry));
}

void ExcelSpreadsheet::writeSheet(const SheetDraft& draft)
{
    writeEntries(draft);
    for (const SheetDraft::MarkedCells& marked : draft.markedCells())
        for (const std::string& list : listsOf(marked.ranges)) {
            const AutomationObject font = range(list).get(L"Font");
            if (marked.font.colour) font.set(L"Color", AutomationValue(*marked.font.colour));
            if (marked.font.bold) font.set(L"Bold", AutomationValue(*marked.font.bold));
        }
}

void ExcelSpreadsheet::fitColumns(int first, int last)
{
    range(cellAddress(1, first) + ":" + cellAddress(1, last)).get(L"EntireColumn").call(L"AutoFit");
}

}  // namespace kavo
