// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/results_state.h"
#include "insight/exact_time.h"
#include "insight/page/markup.h"

#include <optional>
#include <string>
#include <string_view>

/// Tables that become cards on a narrow screen: each cell then says what it is.
namespace kavo {

/// A heading of a column; a script makes it a button unless the column cannot be sorted.
enum class Sorting { Possible, None };
void writeHeading(Markup& page, std::string_view text, Sorting sorting = Sorting::Possible);

/// The heading of somebody's column.
void writeNameHeading(Markup& page, std::string_view name);

/// The heading of a row.
void writeRowName(Markup& page, std::string_view name, const std::string& value);

/// What a column is sorted by; empty stands last.
[[nodiscard]] std::string sortValue(std::optional<Hundredths> value);

struct CellForm
{
    std::string label;  ///< on a narrow screen
    std::optional<std::string> value{};
    std::string colourClass{};
};

void openCell(Markup& page, const CellForm& form);
void writeCell(Markup& page, const CellForm& form, std::string_view text);

/// A cell with a grade, by the name that the table shows.
void writeGradeCell(Markup& page, const std::string& label, const std::string& grade);

}  // namespace kavo
