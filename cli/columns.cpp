#include "cli/columns.h"

#include "base/text.h"
#include "cli/printable.h"

#include <algorithm>

namespace kavo {

namespace {

constexpr std::string_view kGap = "  ";
constexpr std::string_view kReset = "\x1b[0m";

/// Makes the texts printable and returns how wide their columns are.
std::vector<std::size_t> prepare(std::vector<PrintedRow>& rows)
{
    std::vector<std::size_t> widths;
    for (PrintedRow& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t i = 0; i < row.size(); ++i) {
            makePrintable(row[i].text);
            widths[i] = std::max(widths[i], countCharacters(row[i].text));
        }
    }
    return widths;
}

std::string escapeFor(const PrintedCell& cell)
{
    std::string escape;
    if (cell.bold) escape += "\x1b[1m";
    if (cell.colour) {
        const auto colour = static_cast<std::uint32_t>(*cell.colour);
        escape += "\x1b[38;2;" + std::to_string(colour & 0xFFU) + ";" + std::to_string((colour >> 8U) & 0xFFU) + ";" +
                  std::to_string((colour >> 16U) & 0xFFU) + "m";
    }
    return escape;
}

void appendCell(std::string& text, const PrintedCell& cell, std::size_t width, Colours colours)
{
    const std::string escape = colours == Colours::None ? std::string{} : escapeFor(cell);
    text.append(escape).append(cell.text).append(width - countCharacters(cell.text), ' ');
    if (!escape.empty()) text += kReset;
}

}  // namespace

std::string formatColumns(std::vector<PrintedRow> rows, Colours colours)
{
    const std::vector<std::size_t> widths = prepare(rows);
    std::string text;
    for (const PrintedRow& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            if (i > 0) text += kGap;
            appendCell(text, row[i], widths[i], colours);
        }
        if (colours == Colours::None) text.resize(text.find_last_not_of(' ') + 1);
        text += '\n';
    }
    return text;
}

}  // namespace kavo
