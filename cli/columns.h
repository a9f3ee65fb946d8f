// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cli/terminal.h"
#include "core/colour_set.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kavo {

/// One text of a table for people.
struct PrintedCell
{
    std::string text;
    std::optional<Colour> colour = {};
    bool bold = false;
};

using PrintedRow = std::vector<PrintedCell>;

inline constexpr std::string_view kColumnGap = "  ";

/// Rows of the same number of cells in aligned columns, in UTF-8. With colours, each cell in its own and bold
/// where marked.
[[nodiscard]] std::string formatColumns(std::vector<PrintedRow> rows, Colours colours);

}  // namespace kavo
