// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QKeyCombination>
#include <QWidget>

#include <functional>
#include <ostream>
#include <vector>

class Form1;

namespace kavo::test {

/// A window that the main window's menu opens. Tests that hold for every window, and the program that
/// takes the screenshots, go over these.
struct WindowRow
{
    const char* className = nullptr;  ///< object name, too
    const char* caption = nullptr;
    const char* entry = nullptr;  ///< name of the menu entry
    const char* image = nullptr;  ///< file name of the screenshot, without ".png"
    QKeyCombination key = Qt::Key_unknown;
    bool closesOnEscape = true;
    std::vector<const char*> controls;
};

/// How GoogleTest names a row.
inline void PrintTo(const WindowRow& row, std::ostream* out)
{
    *out << row.className;
}

/// In the order of the menu.
[[nodiscard]] const std::vector<WindowRow>& allWindows();

/// Opens the window by its menu entry, runs `look` on it and closes it again if it is still there. Returns
/// whether it came.
bool withWindow(Form1& mainWindow, const WindowRow& row, const std::function<void(QWidget&)>& look);

/// The same while something else, such as a key press, opens it.
bool withWindow(const char* className, const std::function<void()>& open, const std::function<void(QWidget&)>& look);

}  // namespace kavo::test
