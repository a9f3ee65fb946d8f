// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "reports/automation/automation_object.h"
#include "reports/sheet_draft.h"

#include <string>

namespace kavo {

inline constexpr const wchar_t* kExcel = L"Excel.Application";

/// Microsoft Excel, driven through its automation interface. Failures are reported as std::runtime_error.
class ExcelSpreadsheet final : public DraftedSpreadsheet
{
public:
    ExcelSpreadsheet();

    void makeVisible() override;
    void setSheetsInNewWorkbook(int count) override;
    void addWorkbook() override;

private:
    void writeSheet(const SheetDraft& draft) override;
    void fitColumns(int first, int last) override;

    [[nodiscard]] AutomationObject range(const std::string& addresses) const;
    void writeEntries(const SheetDraft& draft) const;

    AutomationLibrary m_library;  ///< before the objects, which must be gone when it ends
    AutomationObject m_application;
    AutomationObject m_sheet;  ///< of the new workbook
};

}  // namespace kavo
