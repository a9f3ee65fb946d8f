// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// Every text of a table, as the spreadsheet gets it: a cell a line of the input, one after the other.

#include "base/shown_text.h"
#include "fuzz_input.h"
#include "reports/spreadsheet_export.h"

#include <memory>
#include <string>

using kavo::fuzz::require;

namespace {

/// Checks what it is given: what is typed into a cell must be no formula, other texts must be UTF-8.
class CheckingSpreadsheet final : public kavo::Spreadsheet
{
public:
    void makeVisible() override {}
    void setSheetsInNewWorkbook(int count) override { require(count == 1); }
    void addWorkbook() override {}
    void setCellValue(int row, int column, const kavo::CellValue& value) override
    {
        checkPlace(row, column);
        if (const auto* plain = std::get_if<kavo::PlainText>(&value))
            require(!plain->text.empty() && kavo::toUtf8(plain->text) == plain->text);
        if (const auto* typed = std::get_if<kavo::TypedText>(&value))
            require(!typed->text.empty() && typed->text.find_first_not_of("0123456789:,") == std::string_view::npos);
    }
    void setCellFont(int row, int column, const kavo::CellFont&) override { checkPlace(row, column); }
    void autoFitColumns(int first, int last) override { require(first == 1 && last >= first); }

private:
    static void checkPlace(int row, int column) { require(row >= 1 && row <= 100 && column >= 1 && column <= 26); }
};

std::string_view cutLine(std::string_view& text)
{
    const std::size_t end = std::min(text.find('\n'), text.size());
    const std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    return line;
}

void checkForm(std::string_view time)
{
    const std::string form = kavo::spreadsheetForm(time);
    require(form.empty() == time.empty());
    require(form.size() <= time.size() + 1 + 4 * 2);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::string_view text = kavo::fuzz::textOf(data, size);
    kavo::ResultsState state;
    state.Player1Name = cutLine(text);
    state.TeamName = cutLine(text);
    kavo::ResultsTable table;
    for (int row = 1; row <= kavo::kTotalsRow && !text.empty(); ++row) {
        table.addRow(std::string(cutLine(text)));
        for (int column = 1; column < kavo::kColumns; ++column) {
            const std::string_view cell = cutLine(text);
            checkForm(cell);
            table.setText(row, static_cast<kavo::Column>(column), std::string(cell));
        }
    }
    kavo::ExportExcel(table, state, kavo::ColourSet{}, "7.3.2026",
                      [](const std::stop_token&) { return std::make_unique<CheckingSpreadsheet>(); });
    return 0;
}
