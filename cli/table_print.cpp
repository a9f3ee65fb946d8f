#include "cli/table_print.h"

#include "base/text.h"

#include <algorithm>
#include <array>

namespace kavo {

namespace {

using Widths = std::array<std::size_t, kColumns>;

constexpr std::string_view kGap = "  ";
constexpr std::string_view kReset = "\x1b[0m";

/// Control characters in a name must not reach the terminal.
std::string printable(std::string_view text)
{
    std::string result = toUtf8(text);
    std::replace_if(
        result.begin(), result.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }, ' ');
    return replaceAll(result, "\xC2\x9B", " ");  // the one-character form of "escape ["
}

Widths widthsOf(const ResultsTable& table)
{
    Widths widths{};
    for (std::size_t i = 0; i < widths.size(); ++i) {
        const auto column = static_cast<Column>(i);
        widths.at(i) = countCharacters(table.header(column));
        for (int row = 1; row <= table.rowCount(); ++row)
            widths.at(i) = std::max(widths.at(i), countCharacters(table.text(row, column)));
    }
    return widths;
}

std::string escapeFor(const Cell& cell)
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

void appendCell(std::string& line, const Cell& cell, std::size_t width, Colouring colouring)
{
    const std::string escape = colouring == Colouring::Terminal ? escapeFor(cell) : std::string{};
    line += escape + cutOrPad(printable(cell.text), width);
    if (!escape.empty()) line += kReset;
}

void endLine(std::string& text, std::string& line, Colouring colouring)
{
    if (colouring == Colouring::None) line.resize(line.find_last_not_of(' ') + 1);
    text += line + "\n";
    line.clear();
}

}  // namespace

std::string formatTable(const Session& session, Colouring colouring)
{
    const ResultsTable& table = session.table;
    const Widths widths = widthsOf(table);
    std::string text;
    std::string line;
    for (int row = 0; row <= table.rowCount(); ++row) {
        for (std::size_t i = 0; i < widths.size(); ++i) {
            const auto column = static_cast<Column>(i);
            if (i > 0) line += kGap;
            appendCell(line, row == 0 ? Cell{table.header(column), {}, true} : table.cell(row, column), widths.at(i),
                       colouring);
        }
        endLine(text, line, colouring);
    }
    return text;
}

}  // namespace kavo
