// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/results_table.h"

#include <algorithm>

namespace kavo {

namespace {

constexpr std::array<std::string_view, kColumns> kDesignedHeaders = {
    "Level", "Time 1", "Target 1", "Time 2", "Target 2", "Difference", "Team", "Target", "Author"};

}  // namespace

ResultsTable::ResultsTable()
{
    clear();
}

void ResultsTable::clear()
{
    m_rows.clear();
    std::copy(kDesignedHeaders.begin(), kDesignedHeaders.end(), m_headers.begin());
    m_selectedRow = 0;
}

void ResultsTable::addRow(std::string_view levelText)
{
    m_rows.emplace_back();
    m_rows.back().front().text = levelText;
}

void ResultsTable::removeLastRow()
{
    if (m_rows.empty()) return;
    m_rows.pop_back();
    if (!hasRow(m_selectedRow)) m_selectedRow = 0;
}

const Cell& ResultsTable::cell(int row, Column column) const
{
    static const Cell kNoCell;
    return hasRow(row) ? m_rows[static_cast<std::size_t>(row) - 1].at(index(column)) : kNoCell;
}

Cell* ResultsTable::find(int row, Column column)
{
    return hasRow(row) ? &m_rows[static_cast<std::size_t>(row) - 1].at(index(column)) : nullptr;
}

void ResultsTable::setText(int row, Column column, std::string_view text)
{
    if (Cell* cell = find(row, column)) cell->text = text;
}

void ResultsTable::setColour(int row, Column column, Colour colour)
{
    if (Cell* cell = find(row, column)) cell->colour = colour;
}

void ResultsTable::setBold(int row, Column column)
{
    if (Cell* cell = find(row, column)) cell->bold = true;
}

void ResultsTable::setRowBold(int row)
{
    if (!hasRow(row)) return;
    for (Cell& cell : m_rows[static_cast<std::size_t>(row) - 1]) cell.bold = true;
}

void ResultsTable::blankRow(int row)
{
    if (!hasRow(row)) return;
    for (Cell& cell : m_rows[static_cast<std::size_t>(row) - 1]) cell.text.clear();
}

bool isFirstFaster(const ResultsTable& table, int row)
{
    return table.text(row, Column::Time1) < table.text(row, Column::Time2);
}

const std::string& fasterTime(const ResultsTable& table, int row)
{
    return table.text(row, isFirstFaster(table, row) ? Column::Time1 : Column::Time2);
}

}  // namespace kavo
