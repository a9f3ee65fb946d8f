// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "reports/libreoffice/office_connection.h"
#include "reports/sheet_draft.h"

#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/lang/XMultiServiceFactory.hpp>
#include <com/sun/star/sheet/XSheetCellRangeContainer.hpp>
#include <com/sun/star/sheet/XSpreadsheet.hpp>

#include <vector>

namespace kavo {

/// LibreOffice Calc, driven through its component model. Failures in the office are reported as
/// std::runtime_error.
class LibreOfficeSpreadsheet : public DraftedSpreadsheet
{
public:
    LibreOfficeSpreadsheet(const OfficeChoice& choice, const std::stop_token& stop);
    ~LibreOfficeSpreadsheet() override;

    void makeVisible() override { m_isVisible = true; }
    void setSheetsInNewWorkbook(int count) override { m_sheetsInNewWorkbook = count; }
    void addWorkbook() override;

protected:
    [[nodiscard]] OfficeConnection& connection() { return m_connection; }
    [[nodiscard]] const css::uno::Reference<css::frame::XModel>& workbook() const { return m_workbook; }

private:
    void keepSheets(int count);
    void writeSheet(const SheetDraft& draft) override;
    void fitColumns(int first, int last) override;

    [[nodiscard]] css::uno::Reference<css::table::XCellRange> rectangle(const CellRange& range) const;
    [[nodiscard]] css::uno::Reference<css::sheet::XSheetCellRangeContainer> cells(
        const std::vector<CellRange>& ranges) const;
    void writeEntries(const SheetDraft& draft) const;
    void readTyped(const SheetDraft& draft) const;
    void showAtCursor(const SheetDraft& draft) const;
    void writeMarks(const SheetDraft& draft) const;

    OfficeConnection m_connection;
    bool m_isVisible = false;
    int m_sheetsInNewWorkbook = 0;  ///< 0: as many as the user's settings say
    css::uno::Reference<css::frame::XModel> m_workbook;
    css::uno::Reference<css::lang::XMultiServiceFactory> m_services;  ///< of the workbook
    css::uno::Reference<css::sheet::XSpreadsheet> m_sheet;
};

}  // namespace kavo
