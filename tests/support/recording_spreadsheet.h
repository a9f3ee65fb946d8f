// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "reports/spreadsheet.h"

#include <array>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

namespace kavo::test {

struct RecordedCell
{
    std::string text;  ///< also of a number
    enum class Kind { Empty, Plain, Typed, Number } kind = Kind::Empty;
    std::optional<Colour> colour;
    bool bold = false;
};

/// What an export did to the spreadsheet application. Outlives the application.
struct SheetRecord
{
    std::size_t failsAt = 0;  ///< number of the operation (the creation is 1) that fails; 0: none does
    std::vector<std::string> steps;
    std::map<std::pair<int, int>, RecordedCell> cells;  ///< by row and column

    [[nodiscard]] RecordedCell cell(int row, int column) const
    {
        const auto found = cells.find({row, column});
        return found != cells.end() ? found->second : RecordedCell{};
    }

    void step(const std::string& text)
    {
        if (steps.size() + 1 == failsAt) throw std::runtime_error("the application is gone");
        steps.push_back(text);
    }
};

class RecordingSpreadsheet final : public Spreadsheet
{
public:
    explicit RecordingSpreadsheet(SheetRecord& record) : m_record(record) { m_record.step("create"); }

    void makeVisible() override { m_record.step("visible"); }
    void setSheetsInNewWorkbook(int count) override { m_record.step("sheets " + std::to_string(count)); }
    void addWorkbook() override { m_record.step("workbook"); }

    void setCellValue(int row, int column, const CellValue& value) override
    {
        m_record.step("value " + place(row, column));
        RecordedCell& cell = m_record.cells[{row, column}];
        cell.kind = std::array{RecordedCell::Kind::Plain, RecordedCell::Kind::Typed, RecordedCell::Kind::Number}.at(
            value.index());
        if (const auto* plain = std::get_if<PlainText>(&value)) cell.text = plain->text;
        if (const auto* typed = std::get_if<TypedText>(&value)) cell.text = typed->text;
        if (const auto* number = std::get_if<std::int32_t>(&value)) cell.text = std::to_string(*number);
    }

    void setCellFont(int row, int column, const CellFont& font) override
    {
        m_record.step("font " + place(row, column));
        RecordedCell& cell = m_record.cells[{row, column}];
        if (font.colour) cell.colour = font.colour;
        if (font.bold) cell.bold = *font.bold;
    }

    void autoFitColumns(int first, int last) override { m_record.step("fit " + place(first, last)); }

private:
    static std::string place(int row, int column) { return std::to_string(row) + " " + std::to_string(column); }

    SheetRecord& m_record;
};

/// The application that writes into `record`, which must outlive it.
inline CreateSpreadsheet recordingSpreadsheet(SheetRecord& record)
{
    return [&record](const std::stop_token&) { return std::make_unique<RecordingSpreadsheet>(record); };
}

}  // namespace kavo::test
