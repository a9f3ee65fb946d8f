// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/main/popup_menu.h"

#include "core/results_state.h"
#include "forms/event_guard.h"
#include "forms/screen_text.h"
#include "ui/main/main_window.h"

#include <QAction>

#include <array>

namespace kavo {

namespace {

/// An entry of a filter submenu: its name for player 1 (player 2's ends in "1"), and the filter that it
/// applies to the freshly loaded table. The caption is the filter's name.
struct FilterEntry
{
    const char* name;
    std::string_view filter;
};

constexpr std::string_view kNoFilter = "No filter";

constexpr std::array<FilterEntry, 8> kFilterEntries = {{
    {"mnuFiltNone", kNoFilter},
    {"mnuBegin", "Beginner"},
    {"mnuOK", "OK"},
    {"mnuGood", "Good"},
    {"mnuProf", "Professional"},
    {"mnuWC", "World Class"},
    {"mnuWR", "World Record"},
    {"mnuVic", kVictories},
}};

bool isFunctionKey(int key)
{
    return key >= Qt::Key_F1 && key <= Qt::Key_F35;
}

void addFilters(QMenu& submenu, FilterSide side, Form1& form)
{
    for (const FilterEntry& entry : kFilterEntries) {
        QAction* action = submenu.addAction(toScreen(entry.filter));
        action->setObjectName(QString(QLatin1StringView(entry.name)) +
                              QLatin1StringView(side == FilterSide::Player2 ? "1" : ""));
        const std::string_view filter = entry.filter == kNoFilter ? std::string_view{} : entry.filter;
        on(action, &QAction::triggered, &form, [&form, side, filter] { form.filter(side, filter); });
    }
}

void addAction(QMenu& menu, const MenuEntry& entry, Form1& form)
{
    QAction* action = menu.addAction(QLatin1StringView(entry.caption));
    action->setObjectName(QLatin1StringView(entry.name));
    on(action, &QAction::triggered, &form, entry.action);
    if (entry.shortcut.key() == Qt::Key_unknown) return;
    // Shown only: the window looks at the keys itself, since function keys count with any modifier.
    action->setShortcut(entry.shortcut);
    action->setShortcutContext(Qt::WidgetShortcut);
    action->setShortcutVisibleInContextMenu(true);
}

}  // namespace

const std::vector<MenuEntry>& menuEntries()
{
    static const MenuEntry kSeparator{};
    static const std::vector<MenuEntry> kEntries = {
        {"mnuUpTargets", "Update targets", Qt::CTRL | Qt::Key_R, &Form1::mnuUpTargets_Click, {}},
        {"mnuBUGs", "Bug times", Qt::CTRL | Qt::Key_B, &Form1::mnuBUGs_Click, {}},
        kSeparator,
        {"mdas", "Filter #1", Qt::Key_unknown, nullptr, FilterSide::Player1},
        {"filt2", "Filter #2", Qt::Key_unknown, nullptr, FilterSide::Player2},
        kSeparator,
        {"mnuOpt", "Settings", Qt::Key_F2, &Form1::mnuOpt_Click, {}},
        {"mnuFont", "View", Qt::Key_F3, &Form1::mnuFont_Click, {}},
        kSeparator,
        {"mnuStats", "Statistics", Qt::Key_F7, &Form1::mnuStats_Click, {}},
        {"mnuLevsStats", "Levels' statistic", Qt::Key_F8, &Form1::mnuLevsStats_Click, {}},
        kSeparator,
        {"mnuHTML", "eXtended HTML Export", Qt::CTRL | Qt::Key_H, &Form1::mnuHTML_Click, {}},
        {"mnuExport", "Excel export", Qt::CTRL | Qt::Key_E, &Form1::mnuExport_Click, {}},
        {"mnuTextExport", "Text file export", Qt::CTRL | Qt::Key_T, &Form1::mnuTextExport_Click, {}},
        kSeparator,
        {"mnuRefresh", "Refresh", Qt::Key_F5, &Form1::mnuRefresh_Click, {}},
        {"mnuChangeUser", "Change user", Qt::Key_F12, &Form1::mnuChangeUser_Click, {}},
        {"mnuLinks", "Links...", Qt::Key_F9, &Form1::mnuLinks_Click, {}},
        {"mnuAbout", "About...", Qt::Key_F1, &Form1::mnuAbout_Click, {}},
    };
    return kEntries;
}

void buildPopupMenu(QMenu& menu, Form1& form)
{
    for (const MenuEntry& entry : menuEntries()) {
        if (entry.caption == nullptr) {
            menu.addSeparator();
        } else if (entry.filters) {
            QMenu* submenu = menu.addMenu(QLatin1StringView(entry.caption));
            submenu->setObjectName(QLatin1StringView(entry.name));
            addFilters(*submenu, *entry.filters, form);
        } else {
            addAction(menu, entry, form);
        }
    }
}

const MenuEntry* entryOfKey(QKeyCombination pressed)
{
    const Qt::KeyboardModifiers modifiers = pressed.keyboardModifiers() & ~Qt::KeypadModifier;
    for (const MenuEntry& entry : menuEntries()) {
        if (entry.shortcut.key() == Qt::Key_unknown || entry.shortcut.key() != pressed.key()) continue;
        if (isFunctionKey(pressed.key()) || modifiers == entry.shortcut.keyboardModifiers()) return &entry;
    }
    return nullptr;
}

}  // namespace kavo
