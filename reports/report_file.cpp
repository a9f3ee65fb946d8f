// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/report_file.h"

#include "base/text.h"

#include <exception>

namespace kavo {

ReportFile::~ReportFile()
{
    if (m_isClosed || m_file.hasFailed()) return;
    try {
        m_file.commit();
    } catch (const std::exception&) {
        // The error that has broken off the report is on its way to the user; the former report stays.
    }
}

void ReportFile::write(std::string_view text)
{
    m_file.write(text);
    m_file.write(kLineEnd);
}

void ReportFile::close()
{
    m_file.commit();
    m_isClosed = true;
}

}  // namespace kavo
