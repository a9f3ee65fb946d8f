// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/session.h"
#include "insight/exact_time.h"
#include "reports/spreadsheet.h"

#include <cstdint>
#include <ctime>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

namespace kavo {

/// The value of a time in spreadsheet form as a spreadsheet reads it where times are written with a comma:
/// minutes and seconds ("75:12,34") or hours, minutes and seconds ("1:15:03,04"). Nothing for any other text,
/// such as a total in hours that the form has cut ("1:15:,34"): that stays a text on the sheet, too.
[[nodiscard]] std::optional<Hundredths> spreadsheetTime(std::string_view form);

/// A workbook that ends in a file instead of a window. Times in it are numbers shown as times, so that they
/// can be added and sorted.
class SheetFile final : public Spreadsheet
{
public:
    void makeVisible() override {}
    void setSheetsInNewWorkbook(int) override {}
    void addWorkbook() override {}
    void setCellValue(int row, int column, const CellValue& value) override;
    void setCellFont(int row, int column, const CellFont& font) override;
    void autoFitColumns(int first, int last) override { m_fitted = {first, last}; }

    /// The workbook as an .xlsx file; equal sheets of the same moment are equal bytes. Throws RunTimeError:
    /// PathFileAccess where no temporary file can be made.
    [[nodiscard]] std::string bytes(std::time_t created) const;

private:
    friend class WorkbookWriter;

    struct Time
    {
        Hundredths value = 0;
    };

    struct SheetCell
    {
        std::variant<std::monostate, std::string, Time, std::int32_t> value;
        std::optional<Colour> colour;
        bool bold = false;
    };

    std::map<std::pair<int, int>, SheetCell> m_cells;  ///< by row and column, from 1
    std::pair<int, int> m_fitted{1, 0};
};

/// The live export of the table as an .xlsx file. Throws as SheetFile does.
[[nodiscard]] std::string sheetFileOf(const Session& session, std::string_view shortDate, std::time_t created);

}  // namespace kavo
