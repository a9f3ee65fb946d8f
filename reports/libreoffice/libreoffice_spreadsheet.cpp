// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/libreoffice/libreoffice_spreadsheet.h"

#include "reports/libreoffice/office_values.h"

#include <com/sun/star/awt/FontWeight.hpp>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/frame/Desktop.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>
#include <com/sun/star/table/XColumnRowRange.hpp>
#include <com/sun/star/text/XText.hpp>

#include <stdexcept>

using css::uno::Any;
using css::uno::Reference;
using css::uno::UNO_QUERY_THROW;

namespace kavo {

namespace {

/// Runs a call to the office. Its exceptions are no std::exception, and nobody outside knows them.
template <typename Call>
auto inOffice(Call call)
{
    try {
        return call();
    } catch (const css::uno::Exception& error) {
        throw std::runtime_error(rtl::OUStringToOString(error.Message, RTL_TEXTENCODING_UTF8).getStr());
    }
}

/// The office has red in the highest byte, where ours has blue.
sal_Int32 officeColour(Colour colour)
{
    return (colour & 0xFF) << 16 | (colour & 0xFF00) | (colour >> 16 & 0xFF);
}

/// Puts a value into a cell, by its kind.
struct ValueWriter
{
    const Reference<css::beans::XPropertySet>& cell;

    void operator()(const PlainText& plain) const
    {
        Reference<css::text::XText>(cell, UNO_QUERY_THROW)->setString(officeText(plain.text));
    }
    void operator()(const TypedText& typed) const
    {
        cell->setPropertyValue("FormulaLocal", Any(officeText(typed.text)));
    }
    void operator()(std::int32_t number) const
    {
        Reference<css::table::XCell>(cell, UNO_QUERY_THROW)->setValue(number);
    }
};

}  // namespace

LibreOfficeSpreadsheet::LibreOfficeSpreadsheet(const OfficeChoice& choice, const std::stop_token& stop)
    : m_connection(choice, stop)
{
}

LibreOfficeSpreadsheet::~LibreOfficeSpreadsheet()
{
    try {
        if (m_workbook.is() && m_workbook->hasControllersLocked() != sal_False) m_workbook->unlockControllers();
    } catch (const css::uno::Exception&) {
        // The user has closed the workbook.
    }
    // Without a window nobody could ever close it.
    if (!m_workbook.is()) m_connection.endStarted();
}

void LibreOfficeSpreadsheet::addWorkbook()
{
    inOffice([this] {
        const auto desktop = css::frame::Desktop::create(m_connection.office());
        const Any hidden(!m_isVisible);
        m_workbook.set(
            desktop->loadComponentFromURL("private:factory/scalc", "_blank", 0, onlyProperty("Hidden", hidden)),
            UNO_QUERY_THROW);
        // Drawn once at the end: half the time goes into showing every single cell otherwise.
        m_workbook->lockControllers();
        keepSheets(m_sheetsInNewWorkbook);
    });
}

void LibreOfficeSpreadsheet::keepSheets(int count)
{
    const auto sheets = Reference<css::sheet::XSpreadsheetDocument>(m_workbook, UNO_QUERY_THROW)->getSheets();
    const Reference<css::container::XIndexAccess> byNumber(sheets, UNO_QUERY_THROW);
    // The office has no such setting for one workbook; the user's own may say three sheets.
    while (count > 0 && byNumber->getCount() > count) {
        const Reference<css::container::XNamed> last(byNumber->getByIndex(byNumber->getCount() - 1), UNO_QUERY_THROW);
        sheets->removeByName(last->getName());
    }
    m_sheet.set(byNumber->getByIndex(0), UNO_QUERY_THROW);
}

Reference<css::beans::XPropertySet>& LibreOfficeSpreadsheet::cell(int row, int column)
{
    auto& cell = m_cells[{row, column}];
    if (!cell.is()) cell.set(m_sheet->getCellByPosition(column - 1, row - 1), UNO_QUERY_THROW);
    return cell;
}

void LibreOfficeSpreadsheet::setCellValue(int row, int column, const CellValue& value)
{
    inOffice([&] { std::visit(ValueWriter{cell(row, column)}, value); });
}

void LibreOfficeSpreadsheet::setCellFont(int row, int column, const CellFont& font)
{
    inOffice([&] {
        const auto& properties = cell(row, column);
        if (font.colour) properties->setPropertyValue("CharColor", Any(officeColour(*font.colour)));
        if (font.bold)
            properties->setPropertyValue("CharWeight",
                                         Any(*font.bold ? css::awt::FontWeight::BOLD : css::awt::FontWeight::NORMAL));
    });
}

void LibreOfficeSpreadsheet::autoFitColumns(int first, int last)
{
    inOffice([&] {
        const auto range = m_sheet->getCellRangeByPosition(first - 1, 0, last - 1, 0);
        const auto columns = Reference<css::table::XColumnRowRange>(range, UNO_QUERY_THROW)->getColumns();
        Reference<css::beans::XPropertySet>(columns, UNO_QUERY_THROW)->setPropertyValue("OptimalWidth", Any(true));
    });
}

}  // namespace kavo
