// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/session.h"
#include "reports/report_dates.h"
#include "reports/report_lines.h"
#include "reports/template_file.h"

#include <ctime>
#include <filesystem>
#include <string>
#include <string_view>

namespace kavo {

/// Where the comment at the top of every report says that the program can be had.
inline constexpr std::string_view kDownloadAddress = "https://kavo-timing.example/";

/// A section with its placeholders replaced, one after the other, also in what was inserted before.
/// `row` (1 to 54) is the level in the loop, 0 elsewhere: the placeholders of a level then stay.
[[nodiscard]] std::string substitute(std::string_view section, const Session& session, const ReportDates& dates,
                                     int row);

/// Writes the report of a template.
void writeHtmlReport(const Session& session, const TemplateSections& sections, const ReportDates& dates,
                     ReportLines& report);

/// The reports that one run of the program writes into files.
class HtmlReports final
{
public:
    /// Writes a report over the file. Throws RunTimeError when it cannot be written; once one has broken off after its
    /// file was opened, it is never closed, and no other can be written in this run.
    void write(const Session& session, const TemplateSections& sections, std::time_t now,
               const std::filesystem::path& path);

private:
    bool m_isOneOpen = false;
};

/// A report by itself.
void exportHtml(const Session& session, const TemplateSections& sections, std::time_t now,
                const std::filesystem::path& path);

}  // namespace kavo
