// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/sheet_draft.h"

#include <algorithm>
#include <optional>
#include <stdexcept>

namespace kavo {

namespace {

struct EntryOf
{
    SheetDraft::Entry operator()(const PlainText& plain) const { return {std::string(plain.text)}; }
    SheetDraft::Entry operator()(const TypedText& typed) const { return {std::string(typed.text), true}; }
    SheetDraft::Entry operator()(std::int32_t number) const { return {number}; }
};

/// Rows from above, by column.
using Rows = std::map<int, std::vector<int>>;

/// Cells that follow one another in a column are one range.
std::vector<CellRange> rangesOf(const Rows& rowsByColumn)
{
    std::vector<CellRange> ranges;
    for (const auto& [column, rows] : rowsByColumn)
        for (std::size_t first = 0, next = 0; first < rows.size(); first = next) {
            while (next < rows.size() && rows[next] - rows[first] == static_cast<int>(next - first)) ++next;
            ranges.push_back({rows[first], column, rows[next - 1], column});
        }
    return ranges;
}

/// Ranges with the same rows in columns that follow one another become one.
std::vector<CellRange> joinedColumns(const std::vector<CellRange>& ranges)
{
    std::vector<CellRange> joined;
    for (const CellRange& range : ranges) {
        const auto left = std::find_if(joined.begin(), joined.end(), [&range](const CellRange& known) {
            return known.lastColumn + 1 == range.firstColumn && known.firstRow == range.firstRow &&
                   known.lastRow == range.lastRow;
        });
        if (left != joined.end())
            left->lastColumn = range.lastColumn;
        else
            joined.push_back(range);
    }
    return joined;
}

}  // namespace

void SheetDraft::setValue(int row, int column, const CellValue& value)
{
    m_entries[{row, column}] = std::visit(EntryOf{}, value);
}

void SheetDraft::setFont(int row, int column, const CellFont& font)
{
    CellFont& known = m_fonts[{row, column}];
    if (font.colour) known.colour = font.colour;
    if (font.bold) known.bold = font.bold;
}

std::vector<SheetDraft::MarkedCells> SheetDraft::markedCells() const
{
    std::map<std::pair<std::optional<Colour>, std::optional<bool>>, Rows> kinds;
    for (const auto& [place, font] : m_fonts) kinds[{font.colour, font.bold}][place.second].push_back(place.first);
    std::vector<MarkedCells> marked;
    marked.reserve(kinds.size());
    for (const auto& [kind, rows] : kinds)
        marked.push_back({rangesOf(rows), {.colour = kind.first, .bold = kind.second}});
    return marked;
}

std::vector<CellRange> SheetDraft::filledRanges() const
{
    Rows rows;
    for (const auto& [place, entry] : m_entries) rows[place.second].push_back(place.first);
    return joinedColumns(rangesOf(rows));
}

std::vector<CellRange> SheetDraft::typedRanges() const
{
    Rows rows;
    for (const auto& [place, entry] : m_entries)
        if (entry.isTyped) rows[place.second].push_back(place.first);
    return rangesOf(rows);
}

SheetDraft::Place SheetDraft::size() const
{
    Place size{0, 0};
    for (const auto& [place, entry] : m_entries)
        size = {std::max(size.first, place.first), std::max(size.second, place.second)};
    return size;
}

void DraftedSpreadsheet::autoFitColumns(int first, int last)
{
    writeSheet(draft());
    fitColumns(first, last);
}

SheetDraft& DraftedSpreadsheet::draft()
{
    if (m_stop.stop_requested()) throw std::runtime_error("the spreadsheet is no longer wanted");
    return m_draft;
}

std::string cellAddress(int row, int column)
{
    return std::string(1, static_cast<char>('A' + column - 1)) + std::to_string(row);
}

std::string rangeAddress(const CellRange& range)
{
    std::string address = cellAddress(range.firstRow, range.firstColumn);
    const std::string last = cellAddress(range.lastRow, range.lastColumn);
    return address == last ? address : address.append(":").append(last);
}

std::vector<std::string> listsOf(const std::vector<CellRange>& ranges)
{
    constexpr std::size_t kLongestList = 255;
    std::vector<std::string> lists;
    for (const CellRange& range : ranges) {
        const std::string address = rangeAddress(range);
        if (!lists.empty() && lists.back().size() + 1 + address.size() <= kLongestList)
            lists.back().append(",").append(address);
        else
            lists.push_back(address);
    }
    return lists;
}

}  // namespace kavo
