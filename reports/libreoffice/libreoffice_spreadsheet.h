// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "reports/libreoffice/office_connection.h"
#include "reports/spreadsheet.h"

#include <com/sun/star/beans/XPropertySet.hpp>
#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/sheet/XSpreadsheet.hpp>

#include <map>
#include <utility>

namespace kavo {

/// LibreOffice Calc, driven through its component model. Failures in the office are reported as
/// std::runtime_error.
class LibreOfficeSpreadsheet : public Spreadsheet
{
public:
    LibreOfficeSpreadsheet(const OfficeChoice& choice, const std::stop_token& stop);
    ~LibreOfficeSpreadsheet() override;

    void makeVisible() override { m_isVisible = true; }
    void setSheetsInNewWorkbook(int count) override { m_sheetsInNewWorkbook = count; }
    void addWorkbook() override;
    void setCellValue(int row, int column, const CellValue& value) override;
    void setCellFont(int row, int column, const CellFont& font) override;
    void autoFitColumns(int first, int last) override;

protected:
    [[nodiscard]] OfficeConnection& connection() { return m_connection; }
    [[nodiscard]] const css::uno::Reference<css::frame::XModel>& workbook() const { return m_workbook; }

private:
    void keepSheets(int count);
    [[nodiscard]] css::uno::Reference<css::beans::XPropertySet>& cell(int row, int column);

    OfficeConnection m_connection;
    bool m_isVisible = false;
    int m_sheetsInNewWorkbook = 0;  ///< 0: as many as the user's settings say
    css::uno::Reference<css::frame::XModel> m_workbook;
    css::uno::Reference<css::sheet::XSpreadsheet> m_sheet;
    /// Cells used so far, by row and column: asking the office for one takes as long as setting it.
    std::map<std::pair<int, int>, css::uno::Reference<css::beans::XPropertySet>> m_cells;
};

}  // namespace kavo
