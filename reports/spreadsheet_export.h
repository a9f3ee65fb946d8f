// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/colour_set.h"
#include "core/results_state.h"
#include "core/results_table.h"
#include "reports/spreadsheet.h"

#include <stop_token>
#include <string>
#include <string_view>

namespace kavo {

/// A time as spreadsheets read it: 01:23:45 is 01:23,45. A text that is no time is treated alike; an
/// empty one stays empty.
[[nodiscard]] std::string spreadsheetForm(std::string_view time);

/// Copies the table as it is shown into a new sheet, adds a title with the date and a summary of the
/// grades. Lets through what the spreadsheet throws, and throws after the next step when `stop` is asked for.
void fillSpreadsheet(Spreadsheet& sheet, const ResultsTable& table, const ResultsState& state, const ColourSet& colours,
                     std::string_view shortDate, const std::stop_token& stop = {});

/// Does that in the user's application, and leaves that to the user. Where a step fails or the export is
/// stopped, it ends without a word. May run on any thread.
void ExportExcel(const ResultsTable& table, const ResultsState& state, const ColourSet& colours,
                 std::string_view shortDate, const CreateSpreadsheet& create, const std::stop_token& stop = {});

}  // namespace kavo
