// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/table_text.h"

#include <array>
#include <utility>

namespace kavo::test {

namespace {

std::string colourName(const ColourSet& colours, Colour colour)
{
    const std::array<std::pair<const char*, Colour>, 7> names = {{{"WR", colours.ColWR},
                                                                  {"WC", colours.ColWC},
                                                                  {"Pro", colours.ColPro},
                                                                  {"Good", colours.ColGood},
                                                                  {"OK", colours.ColOK},
                                                                  {"Text", colours.ColText},
                                                                  {"Total", rgb(200, 100, 200)}}};
    for (const auto& [name, value] : names)
        if (value == colour) return name;
    return std::to_string(colour);
}

}  // namespace

std::string marked(const Session& session, int row)
{
    std::string line;
    for (int i = 0; i < kColumns; ++i) {
        const Cell& cell = session.table.cell(row, static_cast<Column>(i));
        line.append(i > 0 ? "|" : "").append(cell.text);
        if (cell.bold) line += "*";
        if (cell.colour) line.append("{").append(colourName(session.colours, *cell.colour)).append("}");
    }
    return line;
}

std::string texts(const ResultsTable& table, int row)
{
    std::string line;
    for (int i = 0; i < kColumns; ++i) line.append(i > 0 ? "|" : "").append(table.text(row, static_cast<Column>(i)));
    return line;
}

std::string headers(const ResultsTable& table)
{
    std::string line;
    for (int i = 0; i < kColumns; ++i) line.append(i > 0 ? "|" : "").append(table.header(static_cast<Column>(i)));
    return line;
}

std::string counts(const ResultsState& state, Side side)
{
    std::string line;
    for (const Grade& grade : grades())
        line.append(line.empty() ? "" : " ").append(std::to_string(state.counter(side, grade.category)));
    return line;
}

}  // namespace kavo::test
