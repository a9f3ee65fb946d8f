// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cli/columns.h"

#include <cstddef>
#include <span>
#include <vector>

namespace kavo {

/// What may be shortened in a column so that a table gets narrower.
enum class Shrink {
    Nothing,  ///< its texts must be seen as a whole
    Names,    ///< texts that are known by their beginnings; cut first
    Heading,  ///< the heading alone, down to the width of the texts below; cut first, too
    Grades,   ///< a few words, which are known by their ends as well; cut when that was not enough
};

/// Shortens texts of a table, the widest column first, until it is no wider than `width` columns of a terminal.
/// `columns` says what each column allows, the first row is the heading. A name keeps eight columns and a grade
/// four, so that a table can stay wider.
void fitColumns(std::vector<PrintedRow>& rows, std::span<const Shrink> columns, std::size_t width);

}  // namespace kavo
