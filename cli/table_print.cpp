#include "cli/table_print.h"

#include "cli/columns.h"

#include <utility>

namespace kavo {

namespace {

PrintedRow headersOf(const ResultsTable& table)
{
    PrintedRow printed;
    printed.reserve(kColumns);
    for (int column = 0; column < kColumns; ++column)
        printed.push_back({.text = table.header(static_cast<Column>(column)), .bold = true});
    return printed;
}

PrintedRow rowOf(const ResultsTable& table, int row)
{
    PrintedRow printed;
    printed.reserve(kColumns);
    for (int column = 0; column < kColumns; ++column) {
        const Cell& cell = table.cell(row, static_cast<Column>(column));
        printed.push_back({.text = cell.text, .colour = cell.colour, .bold = cell.bold});
    }
    return printed;
}

}  // namespace

std::string formatTable(const ResultsTable& table, Colours colours)
{
    std::vector<PrintedRow> rows;
    rows.reserve(static_cast<std::size_t>(table.rowCount()) + 1);
    rows.push_back(headersOf(table));
    for (int row = 1; row <= table.rowCount(); ++row) rows.push_back(rowOf(table, row));
    return formatColumns(std::move(rows), colours);
}

}  // namespace kavo
