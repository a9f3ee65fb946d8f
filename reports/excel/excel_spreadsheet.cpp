// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/excel/excel_spreadsheet.h"

namespace kavo {

namespace {

/// Puts a value into a cell, by its kind.
struct ValueWriter
{
    const AutomationObject& cell;

    void operator()(const PlainText& plain) const
    {
        // The apostrophe is not shown: it says that what follows is a text and no formula, number or date.
        cell.set(L"Value", AutomationValue("'" + std::string(plain.text)));
    }
    void operator()(const TypedText& typed) const { cell.set(L"FormulaLocal", AutomationValue(typed.text)); }
    void operator()(std::int32_t number) const { cell.set(L"Value", AutomationValue(number)); }
};

}  // namespace

ExcelSpreadsheet::ExcelSpreadsheet() : m_application(AutomationObject::create(L"Excel.Application")) {}

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
    const AutomationObject workbook = m_application.get(L"Workbooks").get(L"Add");
    m_cells = workbook.get(L"ActiveSheet").get(L"Cells");
}

AutomationObject ExcelSpreadsheet::cell(int row, int column) const
{
    return m_cells.get(L"Item", {AutomationValue(std::int32_t{row}), AutomationValue(std::int32_t{column})});
}

void ExcelSpreadsheet::setCellValue(int row, int column, const CellValue& value)
{
    std::visit(ValueWriter{cell(row, column)}, value);
}

void ExcelSpreadsheet::setCellFont(int row, int column, const CellFont& font)
{
    const AutomationObject properties = cell(row, column).get(L"Font");
    if (font.colour) properties.set(L"Color", AutomationValue(*font.colour));
    if (font.bold) properties.set(L"Bold", AutomationValue(*font.bold));
}

void ExcelSpreadsheet::autoFitColumns(int first, int last)
{
    for (int column = first; column <= last; ++column) cell(1, column).get(L"EntireColumn").call(L"AutoFit");
}

}  // namespace kavo
