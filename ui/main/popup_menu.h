// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/filters.h"

#include <QKeyCombination>
#include <QMenu>

#include <optional>
#include <vector>

class Form1;

namespace kavo {

/// One row of the main window's menu: what is shown, and what the entry and its key do. An entry
/// without a caption is a separator; one with a submenu opens the filters of one player.
struct MenuEntry
{
    const char* name = nullptr;  ///< object name of the action (of the submenu)
    const char* caption = nullptr;
    QKeyCombination shortcut = Qt::Key_unknown;
    void (Form1::*action)() = nullptr;
    std::optional<FilterSide> filters;
};

/// The menu in order. Keyboard and menu both work from this table.
[[nodiscard]] const std::vector<MenuEntry>& menuEntries();

/// Fills `menu` with the entries and connects them to `form`.
void buildPopupMenu(QMenu& menu, Form1& form);

/// The entry that a key press stands for. Function keys count whatever else is held; letters only with
/// Ctrl alone.
[[nodiscard]] const MenuEntry* entryOfKey(QKeyCombination pressed);

}  // namespace kavo
