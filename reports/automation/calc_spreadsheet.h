// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "reports/automation/automation_object.h"
#include "reports/sheet_draft.h"

#include <string>

namespace kavo {

inline constexpr const wchar_t* kCalc = L"com.sun.star.ServiceManager";

/// LibreOffice Calc, driven through the automation interface that it has on Windows. Failures are reported as
/// std::runtime_error.
class CalcSpreadsheet final : public DraftedSpreadsheet
{
public:
    CalcSpreadsheet();

    void makeVisible() override {}  // its windows are, unless they are asked not to be
    void setSheetsInNewWorkbook(int count) override { m_sheetsInNewWorkbook = count; }
    void addWorkbook() override;

private:
    void writeSheet(const SheetDraft& draft) override;
    void fitColumns(int first, int last) override;

    [[nodiscard]] AutomationObject range(const std::string& address) const;
    void writeTable(const SheetDraft& draft) const;
    void writeTyped(const SheetDraft& draft) const;
    void writeMarks(const SheetDraft& draft) const;

    AutomationLibrary m_library;  ///< before the objects, which must be gone when it ends
    AutomationObject m_services;
    AutomationObject m_sheet;  ///< of the new workbook
    int m_sheetsInNewWorkbook = 0;
};

}  // namespace kavo
