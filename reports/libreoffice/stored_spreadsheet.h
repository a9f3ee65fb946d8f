// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "reports/libreoffice/libreoffice_spreadsheet.h"

#include <string>

namespace kavo {

/// For tests: at its end it stores its workbook as flat XML, for reading back, and ends the office.
class StoredSpreadsheet final : public LibreOfficeSpreadsheet
{
public:
    StoredSpreadsheet(const OfficeChoice& choice, std::string storeUrl, const std::stop_token& stop);
    ~StoredSpreadsheet() override;

private:
    void store();
    void terminate();

    std::string m_storeUrl;
};

}  // namespace kavo
