// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/results_table.h"

#include <array>

class QTreeView;

namespace kavo {

/// Widths of the table's columns. As long as a column is as wide as designed it follows the font and the
/// texts; a width that the user or the layout file has given it stays.
class ColumnWidths final
{
public:
    explicit ColumnWidths(QTreeView& list);

    /// Gives every column room for texts of the usual length.
    void design();

    /// Gives a column a width that stays.
    void set(int column, int width);

    /// After new texts or another font: makes the columns anew that still are as designed.
    void follow();

    /// After the choice of a font: the same, and columns that are too narrow for it grow.
    void fit();

    /// Width of a list with all columns in view, its scroll bar included.
    [[nodiscard]] int total() const;

private:
    [[nodiscard]] int designed(int column) const;
    [[nodiscard]] int widestCell(int column) const;
    [[nodiscard]] int needed(int column) const;
    [[nodiscard]] bool isAsDesigned(int column) const;

    QTreeView& m_list;
    std::array<int, kColumns> m_given{};  ///< what design gave each column last; 0 is nothing
};

}  // namespace kavo
