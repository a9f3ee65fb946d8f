// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/automation/sheet_draft.h"

#include <algorithm>
#include <optional>

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

std::string rangeAddress(int column, int first, int last)
{
    std::string address = cellAddress(first, column);
    return first == last ? address : address.append(":").append(cellAddress(last, column));
}

std::vector<std::string> rangesOf(const Rows& rowsByColumn)
{
    std::vector<std::string> ranges;
    for (const auto& [column, rows] : rowsByColumn)
        for (std::size_t first = 0, next = 0; first < rows.size(); first = next) {
            while (next < rows.size() && rows[next] - rows[first] == static_cast<int>(next - first)) ++next;
            ranges.push_back(rangeAddress(column, rows[first], rows[next - 1]));
        }
    return ranges;
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

SheetDraft::Place SheetDraft::size() const
{
    Place size{0, 0};
    for (const auto& [place, entry] : m_entries)
        size = {std::max(size.first, place.first), std::max(size.second, place.second)};
    return size;
}

void DraftedSpreadsheet::autoFitColumns(int first, int last)
{
    writeSheet(m_draft);
    fitColumns(first, last);
}

std::string cellAddress(int row, int column)
{
    return std::string(1, static_cast<char>('A' + column - 1)) + std::to_string(row);
}

std::vector<std::string> listsOf(const std::vector<std::string>& ranges)
{
    constexpr std::size_t kLongestList = 255;
    std::vector<std::string> lists;
    for (const std::string& range : ranges)
        if (!lists.empty() && lists.back().size() + 1 + range.size() <= kLongestList)
            lists.back().append(",").append(range);
        else
            lists.push_back(range);
    return lists;
}

}  // namespace kavo
