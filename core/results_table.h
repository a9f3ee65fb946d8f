// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/colour_set.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kavo {

/// Columns of the results table.
enum class Column { Level, Time1, Target1, Time2, Target2, Difference, Team, Target, Author };

inline constexpr int kColumns = 9;

struct Cell
{
    std::string text;
    std::optional<Colour> colour;  ///< none: the list's normal text colour
    bool bold = false;
};

using Row = std::array<Cell, kColumns>;

/// The working record of the results: a row per level, the totals row, and for each cell what it shows.
/// Grades, filters, reports and exports read and write the texts here. Rows are numbered from 1;
/// reading a cell of a row that does not exist gives the empty text, changing one does nothing.
class ResultsTable final
{
public:
    ResultsTable();

    /// No rows, designed headers, nothing selected.
    void clear();

    [[nodiscard]] int rowCount() const { return static_cast<int>(m_rows.size()); }
    void addRow(std::string_view levelText);
    void removeLastRow();

    [[nodiscard]] const std::string& header(Column column) const { return m_headers.at(index(column)); }
    void setHeader(Column column, std::string_view text) { m_headers.at(index(column)) = text; }

    [[nodiscard]] const Cell& cell(int row, Column column) const;
    [[nodiscard]] const std::string& text(int row, Column column) const { return cell(row, column).text; }
    void setText(int row, Column column, std::string_view text);
    void setColour(int row, Column column, Colour colour);
    void setBold(int row, Column column);
    void setRowBold(int row);

    /// Empties the nine texts; colours and bold marks stay.
    void blankRow(int row);

    /// The row that the list shows as selected, 0 for none.
    [[nodiscard]] int selectedRow() const { return m_selectedRow; }
    void selectRow(int row) { m_selectedRow = row; }

private:
    static std::size_t index(Column column) { return static_cast<std::size_t>(column); }
    [[nodiscard]] bool hasRow(int row) const { return row >= 1 && row <= rowCount(); }
    Cell* find(int row, Column column);

    std::vector<Row> m_rows;
    std::array<std::string, kColumns> m_headers;
    int m_selectedRow = 0;
};

/// The text that a row's team drives: the first time when it is strictly before the second in text
/// order, else the second. A tie is the second player's, in every report.
[[nodiscard]] bool isFirstFaster(const ResultsTable& table, int row);
[[nodiscard]] const std::string& fasterTime(const ResultsTable& table, int row);

}  // namespace kavo
