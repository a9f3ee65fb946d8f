// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/atomic_file.h"
#include "core/window_layout.h"
#include "ui/main/column_widths.h"

#include <vector>

class QTreeView;
class QWidget;

namespace kavo {

struct Session;

/// Place, size and column widths of the main window, and `view.dat`, which keeps them for the user.
class LayoutKeeper final
{
public:
    LayoutKeeper(QWidget& window, QTreeView& list, const Session& session);

    /// The layout of a user who has no file.
    void applyDesigned();

    /// The values of the file, as far as it holds them.
    void apply(const std::vector<double>& values);

    /// After a loading or a new name: as far as the layout is the designed one, it has room for the texts in
    /// their font.
    void followFontAndTexts();

    /// After the choice of a font: the same, and columns that are too narrow for it grow.
    void fitChosenFont();

    /// What every loading ends with: whatever the file said, only the left edge, the widths and the columns
    /// carry over.
    void applyFinalPlace();

    /// Brings back a window whose screen has gone.
    void keepOnScreen();

    /// Rewrites the file when something has changed since, or when it still has to be flushed. Does nothing as
    /// long as there is no user with a folder. Throws as reading and replacing files do.
    void save(Flush flush);

private:
    void showAllColumns();
    [[nodiscard]] WindowLayout current() const;

    QWidget& m_window;
    QTreeView& m_list;
    const Session& m_session;
    ColumnWidths m_columns;
    bool m_isDesigned = false;  ///< since the designed layout nothing has been loaded into it
    bool m_isFlushed = true;    ///< what was saved is on the disk itself
};

}  // namespace kavo
