// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "tests/support/window_fixture.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

#include <functional>

namespace kavo::test {

/// The Options window of a user who has driven one level, and what its tests do in it.
class OptionsWindowTest : public ProgramTest
{
protected:
    OptionsWindowTest()
    {
        folder.write("targets.txt", targetsText());
        folder.write("game/stats.txt", statisticsText({"00:10:00 Alice"}));
        folder.write("friend/stats.txt", statisticsText({"00:09:00 Bob"}));
        std::filesystem::remove(folder / "Marek/bugs.dat");
    }

    void look(const std::function<void(QWidget&)>& script)
    {
        if (!program) startLoggedIn();
        withKey("Form2", Qt::Key_F2, script);
    }

    /// The window that a loading opens by itself.
    void lookAtStart(const std::function<void(QWidget&)>& script)
    {
        EXPECT_TRUE(withWindow(
            "Form2", [this] { startLoggedIn(); }, script))
            << "Options did not open";
    }

    static QLineEdit& line(const QWidget& window, const char* name) { return control<QLineEdit>(window, name); }
    static QRadioButton& option(const QWidget& window, const char* name) { return control<QRadioButton>(window, name); }
    static QComboBox& category(const QWidget& window) { return control<QComboBox>(window, "Combo1"); }
    static void press(const QWidget& window, const char* name) { click(control<QPushButton>(window, name)); }

    static void type(QLineEdit& box, const QString& text)
    {
        box.selectAll();
        QTest::keyClicks(&box, text);
    }

    void expectCleared()
    {
        prompts.expectMessage({.text = "Previous results have been cleared", .title = "Kavo Timing"});
    }
};

}  // namespace kavo::test
