// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/spreadsheet_export.h"

#include "base/shown_text.h"
#include "base/text.h"
#include "core/level_time.h"
#include "core/levels.h"

#include <array>
#include <exception>
#include <stdexcept>

namespace kavo {

namespace {

// Places on the sheet, rows and columns numbered from 1.
constexpr int kTitleRow = 1;
constexpr int kHeaderRow = 2;
constexpr int kNamesRow = 59;
constexpr int kVictoriesRow = 66;
constexpr int kSheetColumns = 8;

constexpr Colour kTitleColour = rgb(70, 230, 60);
constexpr Colour kWhite = rgb(255, 255, 255);  // would not be seen on a sheet

constexpr std::array<Column, 5> kColouredColumns = {Column::Time1, Column::Target1, Column::Time2, Column::Target2,
                                                    Column::Difference};

/// The sheet's row for a row of the table.
int sheetRow(int row)
{
    return row + kHeaderRow;
}

/// The sheet has the table's columns in their order, without the last one.
int sheetColumn(Column column)
{
    return static_cast<int>(column) + 1;
}

/// Letters never make a time, and a text that begins like a formula must not become one.
bool looksLikeTime(std::string_view text)
{
    return text.find_first_not_of("0123456789:,") == std::string_view::npos;
}

/// The colour of a grade in the summary. On purpose not all from the user's scheme: these lines have
/// always had their own World Class and Professional.
std::optional<Colour> summaryColour(const Grade& grade, const ColourSet& colours)
{
    switch (grade.category) {
    case TargetCategory::WorldClass: return rgb(200, 25, 25);
    case TargetCategory::Professional: return rgb(75, 25, 190);
    case TargetCategory::Beginner: return rgb(0, 0, 0);
    case TargetCategory::WorldRecord:
    case TargetCategory::Good:
    case TargetCategory::OK: break;
    }
    return colours.*grade.colour;
}

struct SummaryColumns
{
    Side side;
    int labels;
    int counts;
};

constexpr std::array<SummaryColumns, 3> kSummary = {{{Side::Player1, 1, 2}, {Side::Player2, 3, 4}, {Side::Team, 5, 6}}};

/// What the export counts itself while it marks the faster times.
struct Victories
{
    std::int32_t player1 = 0;
    std::int32_t player2 = 0;

    [[nodiscard]] std::int32_t of(Side side) const
    {
        switch (side) {
        case Side::Player1: return player1;
        case Side::Player2: return player2;
        case Side::Team: break;
        }
        return player1 + player2;
    }
};

/// One export under way.
class Export final
{
public:
    Export(Spreadsheet& sheet, const std::stop_token& stop, const ResultsTable& table, const ResultsState& state,
           const ColourSet& colours)
        : m_sheet(sheet), m_stop(stop), m_table(table), m_state(state), m_colours(colours)
    {
    }

    void run(std::string_view shortDate)
    {
        sheet().makeVisible();
        sheet().setSheetsInNewWorkbook(1);
        sheet().addWorkbook();
        writeHeaders();
        for (int row = 1; row <= kTotalsRow; ++row) writeRow(row);
        writeTeamTimes();
        const Victories victories = markFasterTimes();
        for (int row = 1; row <= kTotalsRow; ++row) writeTeamGrade(row);
        writeTitle(shortDate);
        writeSummary(victories);
        sheet().autoFitColumns(1, kSheetColumns);
    }

private:
    /// For the next operation.
    Spreadsheet& sheet()
    {
        if (m_stop.stop_requested()) throw std::runtime_error("the export was cancelled");
        return m_sheet;
    }

    void writeText(int row, int column, std::string_view text)
    {
        if (!text.empty()) sheet().setCellValue(row, column, PlainText{toUtf8(text)});
    }

    void writeTime(int row, int column, std::string_view time)
    {
        const std::string text = spreadsheetForm(time);
        if (looksLikeTime(text) && !text.empty())
            sheet().setCellValue(row, column, TypedText{text});
        else
            writeText(row, column, text);
    }

    void writeHeaders()
    {
        int column = 1;
        for (const std::string_view text :
             {std::string_view("Level"), std::string_view(m_state.Player1Name), std::string_view("Target"),
              std::string_view(m_state.Player2Name), std::string_view("Target"), std::string_view("Difference"),
              std::string_view(m_state.TeamName), std::string_view("Target")})
            writeText(kHeaderRow, column++, text);
    }

    void writeRow(int row)
    {
        for (int column = sheetColumn(Column::Level); column <= sheetColumn(Column::Difference); ++column)
            writeCell(row, static_cast<Column>(column - 1));
        for (const Column column : kColouredColumns) copyColour(row, column);
    }

    void writeCell(int row, Column column)
    {
        const std::string& text = m_table.text(row, column);
        const bool isTime =
            column == Column::Time1 || column == Column::Time2 || (column == Column::Difference && text != kNoChange);
        if (isTime)
            writeTime(sheetRow(row), sheetColumn(column), text);
        else
            writeText(sheetRow(row), sheetColumn(column), text);
    }

    void copyColour(int row, Column column)
    {
        const std::optional<Colour>& colour = m_table.cell(row, column).colour;
        if (!colour || *colour == m_colours.ColText || *colour == kWhite) return;
        sheet().setCellFont(sheetRow(row), sheetColumn(column), {.colour = colour});
    }

    /// Whether a filter has blanked the row. One that a short table does not have is no such row: it
    /// counts like a row without times.
    [[nodiscard]] bool isBlanked(int row) const
    {
        if (row > m_table.rowCount()) return false;
        for (int column = 0; column < kColumns; ++column)
            if (!m_table.text(row, static_cast<Column>(column)).empty()) return false;
        return true;
    }

    void writeTeamTimes()
    {
        std::string total;
        for (int level = 1; level <= kLevels; ++level) {
            const std::string& time = fasterTime(m_table, level);
            writeTime(sheetRow(level), sheetColumn(Column::Team), time);
            total = AddTime(total, time);
        }
        // The sum of what is shown, so a blanked level adds nothing.
        if (!isBlanked(kTotalsRow)) writeTime(sheetRow(kTotalsRow), sheetColumn(Column::Team), total);
    }

    Victories markFasterTimes()
    {
        Victories victories;
        for (int row = 1; row <= kTotalsRow; ++row) {
            // A tie is the second player's, and so is a blanked row: the texts count as they stand.
            const bool isFirst = isFirstFaster(m_table, row);
            sheet().setCellFont(sheetRow(row), sheetColumn(isFirst ? Column::Time1 : Column::Time2), {.bold = true});
            if (row != kTotalsRow) ++(isFirst ? victories.player1 : victories.player2);
        }
        return victories;
    }

    void writeTeamGrade(int row)
    {
        const int column = sheetColumn(Column::Target);
        CellFont font{.bold = true};
        if (!isBlanked(row)) {
            // On the totals row this is the faster of the two totals, on purpose not the team's sum
            // that stands beside it.
            const Grade& grade = gradeReached(m_state, row, fasterTime(m_table, row));
            writeText(sheetRow(row), column, grade.name);
            if (grade.colour != nullptr) font.colour = m_colours.*grade.colour;
        }
        sheet().setCellFont(sheetRow(row), column, font);
        sheet().setCellFont(sheetRow(row), sheetColumn(Column::Team), {.bold = true});
    }

    void writeTitle(std::string_view shortDate)
    {
        writeText(kTitleRow, 1, "Kavo results. Update: " + std::string(shortDate));
        sheet().setCellFont(kTitleRow, 1, {.colour = kTitleColour, .bold = true});
    }

    void writeSummary(const Victories& victories)
    {
        for (const SummaryColumns& columns : kSummary) {
            writeText(kNamesRow, columns.labels, m_state.name(columns.side));
            int row = kNamesRow;
            for (const Grade& grade : grades()) writeCount(++row, columns, grade);
            writeText(kVictoriesRow, columns.labels, "Victories:");
            sheet().setCellValue(kVictoriesRow, columns.counts, victories.of(columns.side));
            sheet().setCellFont(kVictoriesRow, columns.counts, {.bold = true});
        }
    }

    void writeCount(int row, const SummaryColumns& columns, const Grade& grade)
    {
        // "World Records:" alone is a plural.
        const bool isRecord = grade.category == TargetCategory::WorldRecord;
        writeText(row, columns.labels, std::string(grade.name) + (isRecord ? "s:" : ":"));
        sheet().setCellValue(row, columns.counts, m_state.counter(columns.side, grade.category));
        const CellFont font{.colour = summaryColour(grade, m_colours)};
        sheet().setCellFont(row, columns.labels, font);
        sheet().setCellFont(row, columns.counts, font);
    }

    Spreadsheet& m_sheet;
    const std::stop_token& m_stop;
    const ResultsTable& m_table;
    const ResultsState& m_state;
    const ColourSet& m_colours;
};

}  // namespace

std::string spreadsheetForm(std::string_view time)
{
    constexpr std::size_t kMinutesAndSeconds = 5;  // characters of MM:SS
    constexpr std::size_t kHundredths = 2;
    if (time.empty()) return {};
    // A comma whatever the decimal sign of the system, and for every text alike: SKIPPED is SKIPP,ED.
    std::string form(firstCharacters(time, kMinutesAndSeconds));
    return form.append(",").append(lastCharacters(time, kHundredths));
}

void fillSpreadsheet(Spreadsheet& sheet, const ResultsTable& table, const ResultsState& state, const ColourSet& colours,
                     std::string_view shortDate, const std::stop_token& stop)
{
    Export(sheet, stop, table, state, colours).run(shortDate);
}

void ExportExcel(const ResultsTable& table, const ResultsState& state, const ColourSet& colours,
                 std::string_view shortDate, const CreateSpreadsheet& create, const std::stop_token& stop)
{
    try {
        const std::unique_ptr<Spreadsheet> sheet = create(stop);
        fillSpreadsheet(*sheet, table, state, colours, shortDate, stop);
    } catch (const std::exception&) {
        // No message on purpose: the application is the user's, who may have closed it half-way, have none
        // installed or have cancelled the export. What has been written stays there.
    }
}

}  // namespace kavo
