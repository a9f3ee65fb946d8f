// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/column_fit.h"

#include "cli/display_width.h"
#include "cli/printable.h"

#include <algorithm>
#include <numeric>

namespace kavo {

namespace {

constexpr std::size_t kShortestName = 8;
constexpr std::size_t kShortestGrade = 4;

std::size_t widthOfColumn(std::span<const PrintedRow> rows, std::size_t column)
{
    std::size_t width = 0;
    for (const PrintedRow& row : rows) width = std::max(width, displayWidth(row.at(column).text));
    return width;
}

/// How narrow a column may get.
std::size_t floorOf(const std::vector<PrintedRow>& rows, std::size_t column, Shrink shrink, std::size_t width)
{
    switch (shrink) {
    case Shrink::Nothing: return width;
    case Shrink::Names: return std::min(width, kShortestName);
    case Shrink::Heading: return std::max(widthOfColumn(std::span(rows).subspan(1), column), kShortestName);
    case Shrink::Grades: return std::min(width, kShortestGrade);
    }
    return width;
}

/// A table's columns on the way to their widths.
class Widths final
{
public:
    Widths(const std::vector<PrintedRow>& rows, std::span<const Shrink> columns, std::size_t allowed)
        : m_columns(columns)
    {
        for (std::size_t i = 0; i < columns.size(); ++i) {
            const std::size_t width = widthOfColumn(rows, i);
            const std::size_t floor = std::min(width, floorOf(rows, i, columns[i], width));
            m_floors.push_back(floor);
            // No column alone needs more than there is.
            m_widths.push_back(std::max(floor, std::min(width, allowed)));
        }
    }

    [[nodiscard]] std::size_t sum() const { return std::accumulate(m_widths.begin(), m_widths.end(), std::size_t{0}); }

    /// Narrows the widest column among those of some kinds by one; false when none can be narrowed.
    bool narrowWidest(std::initializer_list<Shrink> kinds)
    {
        std::size_t* widest = nullptr;
        for (std::size_t i = 0; i < m_widths.size(); ++i) {
            const bool isMeant = std::find(kinds.begin(), kinds.end(), m_columns[i]) != kinds.end();
            if (!isMeant || m_widths[i] <= m_floors[i]) continue;
            if (widest == nullptr || m_widths[i] > *widest) widest = &m_widths[i];
        }
        if (widest == nullptr) return false;
        --*widest;
        return true;
    }

    [[nodiscard]] std::size_t operator[](std::size_t column) const { return m_widths[column]; }

private:
    std::span<const Shrink> m_columns;
    std::vector<std::size_t> m_floors;
    std::vector<std::size_t> m_widths;
};

}  // namespace

void fitColumns(std::vector<PrintedRow>& rows, std::span<const Shrink> columns, std::size_t width)
{
    if (rows.empty() || columns.empty()) return;
    for (PrintedRow& row : rows)
        for (PrintedCell& cell : row) makePrintable(cell.text);
    const std::size_t gaps = kColumnGap.size() * (columns.size() - 1);
    Widths widths(rows, columns, width);
    while (widths.sum() + gaps > width &&
           (widths.narrowWidest({Shrink::Names, Shrink::Heading}) || widths.narrowWidest({Shrink::Grades})))
        ;
    for (PrintedRow& row : rows) {
        for (std::size_t i = 0; i < columns.size(); ++i) {
            std::string& text = row.at(i).text;
            text = columns[i] == Shrink::Grades ? cutMiddle(text, widths[i]) : cutEnd(text, widths[i]);
        }
    }
}

}  // namespace kavo
