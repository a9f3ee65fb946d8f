// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "reports/spreadsheet.h"

#include <cstdint>
#include <map>
#include <stop_token>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace kavo {

/// A value of CellValue that outlives the texts it was made of.
using DraftValue = std::variant<std::string, std::int32_t>;

/// A rectangle of cells: rows and columns from the first to the last.
struct CellRange
{
    int firstRow = 0;
    int firstColumn = 0;
    int lastRow = 0;
    int lastColumn = 0;
};

/// What is to stand on a sheet, gathered so that an application in another process gets it in few calls. Rows and
/// columns are numbered from 1.
class SheetDraft final
{
public:
    using Place = std::pair<int, int>;  ///< row and column

    struct Entry
    {
        DraftValue value;
        bool isTyped = false;  ///< TypedText; any other text stays a text
    };

    /// Cells that have the same marks.
    struct MarkedCells
    {
        std::vector<CellRange> ranges;  ///< one column wide
        CellFont font;
    };

    void setValue(int row, int column, const CellValue& value);
    /// Later marks of a cell join the earlier ones.
    void setFont(int row, int column, const CellFont& font);

    [[nodiscard]] const std::map<Place, Entry>& entries() const { return m_entries; }
    [[nodiscard]] std::vector<MarkedCells> markedCells() const;

    /// All cells that have an entry, and none that has not.
    [[nodiscard]] std::vector<CellRange> filledRanges() const;
    /// All cells with TypedText, one column wide.
    [[nodiscard]] std::vector<CellRange> typedRanges() const;

    /// The smallest number of rows and columns from the first on that hold all entries.
    [[nodiscard]] Place size() const;

private:
    std::map<Place, Entry> m_entries;
    std::map<Place, CellFont> m_fonts;
};

/// An application that is handed its sheet with the last operation of an export, autoFitColumns.
class DraftedSpreadsheet : public Spreadsheet
{
public:
    /// Takes nothing any more once `stop` is asked for.
    explicit DraftedSpreadsheet(std::stop_token stop = {}) : m_stop(std::move(stop)) {}

    void setCellValue(int row, int column, const CellValue& value) final { draft().setValue(row, column, value); }
    void setCellFont(int row, int column, const CellFont& font) final { draft().setFont(row, column, font); }
    void autoFitColumns(int first, int last) final;

private:
    virtual void writeSheet(const SheetDraft& draft) = 0;
    virtual void fitColumns(int first, int last) = 0;
    [[nodiscard]] SheetDraft& draft();

    std::stop_token m_stop;
    SheetDraft m_draft;
};

/// How spreadsheet applications call a cell: "B3". Columns are 1 to 26.
[[nodiscard]] std::string cellAddress(int row, int column);

/// "B3:B9", "D4".
[[nodiscard]] std::string rangeAddress(const CellRange& range);

/// Ranges one after the other in as few lists as may be: "B3:B9,D4". No list is longer than an application takes.
[[nodiscard]] std::vector<std::string> listsOf(const std::vector<CellRange>& ranges);

}  // namespace kavo
