// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/table_print.h"

#include "base/text.h"
#include "cli/column_fit.h"

#include <array>
#include <utility>

namespace kavo {

namespace {

constexpr std::size_t kLongestCell = 4096;  // characters, as in the windows

/// What a line of the table has room for: padded to the longest of 55 names, megabytes of it become gigabytes.
std::string shown(std::string_view text)
{
    const std::string_view beginning = firstCharacters(text, kLongestCell);
    return std::string(beginning).append(beginning.size() < text.size() ? "…" : "");
}

PrintedRow headersOf(const ResultsTable& table)
{
    PrintedRow printed;
    printed.reserve(kColumns);
    for (int column = 0; column < kColumns; ++column)
        printed.push_back({.text = shown(table.header(static_cast<Column>(column))), .bold = true});
    return printed;
}

PrintedRow rowOf(const ResultsTable& table, int row)
{
    PrintedRow printed;
    printed.reserve(kColumns);
    for (int column = 0; column < kColumns; ++column) {
        const Cell& cell = table.cell(row, static_cast<Column>(column));
        printed.push_back({.text = shown(cell.text), .colour = cell.colour, .bold = cell.bold});
    }
    return printed;
}

/// What may be shortened: never a time.
constexpr std::array<Shrink, kColumns> kShrink = {
    Shrink::Names,    // Level
    Shrink::Heading,  // Time1
    Shrink::Grades,   // Target1
    Shrink::Heading,  // Time2
    Shrink::Grades,   // Target2
    Shrink::Heading,  // Difference
    Shrink::Heading,  // Team
    Shrink::Grades,   // TeamTarget
    Shrink::Names,    // Author
};

}  // namespace

std::string formatTable(const ResultsTable& table, Colours colours, std::optional<std::size_t> width)
{
    std::vector<PrintedRow> rows;
    rows.reserve(static_cast<std::size_t>(table.rowCount()) + 1);
    rows.push_back(headersOf(table));
    for (int row = 1; row <= table.rowCount(); ++row) rows.push_back(rowOf(table, row));
    if (width) fitColumns(rows, kShrink, *width);
    return formatColumns(std::move(rows), colours);
}

}  // namespace kavo
