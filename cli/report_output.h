// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cli/loaded_results.h"
#include "reports/report_lines.h"

#include <filesystem>
#include <functional>

namespace kavo {

/// The argument of the commands that write a report.
[[nodiscard]] Value reportFileValue();
/// In place of a file's name.
inline constexpr std::string_view kStandardOutput = "-";
inline constexpr std::string_view kReportFileHelp = "the report, which is replaced; - is standard output";

/// The two ways in which a report is written.
struct ReportWriters
{
    std::function<void(Session&, ReportLines&)> toLines;
    std::function<void(Session&, const std::filesystem::path&)> toFile;
};

/// Runs the loading and, when it went through to its end, writes a report of what it left into the file named,
/// or to standard output.
[[nodiscard]] ExitStatus writeReport(const CommandContext& context, std::string_view file,
                                     const ReportWriters& writers);

/// Prints JSON for a script as it stands; for a terminal none of its characters acts on that.
void writeJson(const CommandContext& context, std::string_view json);

/// Writes bytes as they are into the file named, which is replaced, or to standard output.
void writeBytes(const CommandContext& context, std::string_view file, std::string_view bytes);

}  // namespace kavo
