// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/colour_set.h"

#include <filesystem>
#include <map>
#include <string>
#include <utility>

namespace kavo::test {

/// A cell of a stored sheet as a person would see it.
struct ShownCell
{
    std::string text;
    std::string type;  ///< "string", "float", "time", ...; empty for an empty cell
    Colour colour = 0;
    bool bold = false;
};

/// The first sheet of a flat XML workbook.
struct FlatSheet
{
    std::map<std::pair<int, int>, ShownCell> cells;  ///< by row and column, from 1
    std::map<int, int> writtenRows;                  ///< the first of rows that are written as one, by the last
    std::map<int, double> columnWidths;              ///< in centimetres
    int sheets = 0;

    [[nodiscard]] ShownCell cell(int row, int column) const;
};

/// Reads what LibreOffice stores, as far as the export needs it.
[[nodiscard]] FlatSheet readFlatSheet(const std::filesystem::path& file);

}  // namespace kavo::test
