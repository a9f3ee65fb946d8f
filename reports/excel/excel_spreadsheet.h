// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "reports/excel/automation_object.h"
#include "reports/spreadsheet.h"

namespace kavo {

/// Microsoft Excel, driven through its automation interface. Failures are reported as std::runtime_error.
class ExcelSpreadsheet final : public Spreadsheet
{
public:
    ExcelSpreadsheet();

    void makeVisible() override;
    void setSheetsInNewWorkbook(int count) override;
    void addWorkbook() override;
    void setCellValue(int row, int column, const CellValue& value) override;
    void setCellFont(int row, int column, const CellFont& font) override;
    void autoFitColumns(int first, int last) override;

private:
    [[nodiscard]] AutomationObject cell(int row, int column) const;

    AutomationLibrary m_library;  ///< before the objects, which must be gone when it ends
    AutomationObject m_application;
    AutomationObject m_cells;  ///< of the new workbook's sheet
};

}  // namespace kavo
