// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/libreoffice/libreoffice_spreadsheet.h"

#include "reports/libreoffice/office_values.h"

#include <com/sun/star/awt/FontWeight.hpp>
#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/container/XNamed.hpp>
#include <com/sun/star/frame/Desktop.hpp>
#include <com/sun/star/sheet/XCellAddressable.hpp>
#include <com/sun/star/sheet/XCellRangeData.hpp>
#include <com/sun/star/sheet/XSpreadsheetDocument.hpp>
#include <com/sun/star/table/CellRangeAddress.hpp>
#include <com/sun/star/table/XColumnRowRange.hpp>
#include <com/sun/star/text/XText.hpp>
#include <com/sun/star/util/XReplaceDescriptor.hpp>
#include <com/sun/star/util/XReplaceable.hpp>

#include <algorithm>
#include <stdexcept>
#include <string_view>

using css::uno::Any;
using css::uno::Reference;
using css::uno::Sequence;
using css::uno::UNO_QUERY;
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

constexpr sal_Int16 kSheet = 0;  ///< the first of the workbook

/// Stands before a text that is to be read as if typed: it keeps it a text until then. Nobody sees it.
constexpr std::string_view kTypedMark = "\u200B";

/// What is put into a cell first, as a text or a number.
Any officeValue(const SheetDraft::Entry& entry)
{
    if (const auto* number = std::get_if<std::int32_t>(&entry.value)) return Any(static_cast<double>(*number));
    const auto& text = std::get<std::string>(entry.value);
    return Any(officeText(entry.isTyped ? std::string(kTypedMark) + text : text));
}

/// As if somebody wrote it into the cell, which may hold it already.
void writeAlone(const SheetDraft::Entry& entry, const Reference<css::uno::XInterface>& cell)
{
    if (const auto* number = std::get_if<std::int32_t>(&entry.value)) {
        Reference<css::table::XCell>(cell, UNO_QUERY_THROW)->setValue(*number);
        return;
    }
    const rtl::OUString text = officeText(std::get<std::string>(entry.value));
    if (entry.isTyped)
        Reference<css::beans::XPropertySet>(cell, UNO_QUERY_THROW)->setPropertyValue("FormulaLocal", Any(text));
    else
        Reference<css::text::XText>(cell, UNO_QUERY_THROW)->setString(text);
}

/// Rows of a rectangle that has an entry for each of its cells.
Sequence<Sequence<Any>> valuesIn(const CellRange& range, const SheetDraft& draft)
{
    Sequence<Sequence<Any>> rows(range.lastRow - range.firstRow + 1);
    Sequence<Any>* nextRow = rows.getArray();
    for (int row = range.firstRow; row <= range.lastRow; ++row) {
        Sequence<Any> values(range.lastColumn - range.firstColumn + 1);
        Any* next = values.getArray();
        for (int column = range.firstColumn; column <= range.lastColumn; ++column)
            *next++ = officeValue(draft.entries().at({row, column}));
        *nextRow++ = values;
    }
    return rows;
}

}  // namespace

LibreOfficeSpreadsheet::LibreOfficeSpreadsheet(const OfficeChoice& choice, const std::stop_token& stop)
    : DraftedSpreadsheet(stop), m_connection(choice, stop)
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
        // Drawn once at the end, when everything stands where it belongs.
        m_workbook->lockControllers();
        m_services.set(m_workbook, UNO_QUERY_THROW);
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
    m_sheet.set(byNumber->getByIndex(kSheet), UNO_QUERY_THROW);
}

Reference<css::table::XCellRange> LibreOfficeSpreadsheet::rectangle(const CellRange& range) const
{
    return m_sheet->getCellRangeByPosition(range.firstColumn - 1, range.firstRow - 1, range.lastColumn - 1,
                                           range.lastRow - 1);
}

/// All of them as one object, whatever their number.
Reference<css::sheet::XSheetCellRangeContainer> LibreOfficeSpreadsheet::cells(
    const std::vector<CellRange>& ranges) const
{
    Sequence<css::table::CellRangeAddress> addresses(static_cast<sal_Int32>(ranges.size()));
    std::transform(ranges.begin(), ranges.end(), addresses.getArray(), [](const CellRange& range) {
        return css::table::CellRangeAddress(kSheet, range.firstColumn - 1, range.firstRow - 1, range.lastColumn - 1,
                                            range.lastRow - 1);
    });
    Reference<css::sheet::XSheetCellRangeContainer> cells(
        m_services->createInstance("com.sun.star.sheet.SheetCellRanges"), UNO_QUERY_THROW);
    cells->addRangeAddresses(addresses, sal_False);
    return cells;
}

void LibreOfficeSpreadsheet::writeSheet(const SheetDraft& draft)
{
    inOffice([&] {
        writeEntries(draft);
        readTyped(draft);
        showAtCursor(draft);
        writeMarks(draft);
    });
}

void LibreOfficeSpreadsheet::writeEntries(const SheetDraft& draft) const
{
    for (const CellRange& range : draft.filledRanges())
        Reference<css::sheet::XCellRangeData>(rectangle(range), UNO_QUERY_THROW)->setDataArray(valuesIn(range, draft));
}

void LibreOfficeSpreadsheet::readTyped(const SheetDraft& draft) const
{
    // What is left of a text after a replacement is read as if typed, in all cells by one call. Cell by cell it takes
    // three calls each: an export of 80 ms takes 230 ms then.
    const Reference<css::util::XReplaceable> typed(cells(draft.typedRanges()), UNO_QUERY_THROW);
    const auto marks = typed->createReplaceDescriptor();
    marks->setSearchString(officeText(kTypedMark));
    marks->setReplaceString({});
    typed->replaceAll(marks.get());
}

void LibreOfficeSpreadsheet::showAtCursor(const SheetDraft& draft) const
{
    // The window's line for the cell under the cursor stays as it was when a whole range is written.
    const Reference<css::sheet::XCellAddressable> cursor(m_workbook->getCurrentSelection(), UNO_QUERY);
    if (!cursor.is()) return;
    const auto place = cursor->getCellAddress();
    const auto entry = draft.entries().find({place.Row + 1, place.Column + 1});
    if (place.Sheet == kSheet && entry != draft.entries().end()) writeAlone(entry->second, cursor);
}

void LibreOfficeSpreadsheet::writeMarks(const SheetDraft& draft) const
{
    for (const SheetDraft::MarkedCells& marked : draft.markedCells()) {
        const Reference<css::beans::XPropertySet> properties(cells(marked.ranges), UNO_QUERY_THROW);
        const CellFont& font = marked.font;
        if (font.colour) properties->setPropertyValue("CharColor", Any(officeColour(*font.colour)));
        if (font.bold)
            properties->setPropertyValue("CharWeight",
                                         Any(*font.bold ? css::awt::FontWeight::BOLD : css::awt::FontWeight::NORMAL));
    }
}

void LibreOfficeSpreadsheet::fitColumns(int first, int last)
{
    inOffice([&] {
        const auto columns =
            Reference<css::table::XColumnRowRange>(rectangle({1, first, 1, last}), UNO_QUERY_THROW)->getColumns();
        Reference<css::beans::XPropertySet>(columns, UNO_QUERY_THROW)->setPropertyValue("OptimalWidth", Any(true));
    });
}

}  // namespace kavo
