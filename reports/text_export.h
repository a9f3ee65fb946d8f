// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/session.h"
#include "reports/report_lines.h"

#include <filesystem>

namespace kavo {

/// Writes the results as a report in columns: a line per row of the table, then a block with the counts
/// of each player and of the team. Throws RunTimeError(InvalidCall) at a level name of more than 23
/// characters; the lines before it have then been written.
void writeTextReport(const Session& session, ReportLines& report);

/// The report in a file, which is replaced. A report that breaks off stays as far as it came.
void exportText(const Session& session, const std::filesystem::path& path);

}  // namespace kavo
