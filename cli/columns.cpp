// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/columns.h"

#include "cli/display_width.h"
#include "cli/escape.h"
#include "cli/printable.h"

#include <algorithm>

namespace kavo {

namespace {

/// Makes the texts printable and returns how wide their columns are.
std::vector<std::size_t> prepare(std::vector<PrintedRow>& rows)
{
    std::vector<std::size_t> widths;
    for (PrintedRow& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t i = 0; i < row.size(); ++i) {
            makePrintable(row[i].text);
            widths[i] = std::max(widths[i], displayWidth(row[i].text));
        }
    }
    return widths;
}

void appendCell(std::string& text, const PrintedCell& cell, std::size_t width, Colours colours)
{
    const std::string escape = escapeFor(cell.colour, cell.bold, colours);
    text.append(escape).append(cell.text).append(width - displayWidth(cell.text), ' ');
    if (!escape.empty()) text += kEscapeEnd;
}

}  // namespace

std::string formatColumns(std::vector<PrintedRow> rows, Colours colours)
{
    const std::vector<std::size_t> widths = prepare(rows);
    std::string text;
    for (const PrintedRow& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            if (i > 0) text += kColumnGap;
            appendCell(text, row[i], widths[i], colours);
        }
        if (colours == Colours::None) text.resize(text.find_last_not_of(' ') + 1);
        text += '\n';
    }
    return text;
}

}  // namespace kavo
