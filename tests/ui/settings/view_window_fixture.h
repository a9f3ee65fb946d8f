// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "tests/support/window_fixture.h"

#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>

#include <functional>

namespace kavo::test {

/// The View window, opened by its key, and what its tests do in it.
class ViewWindowTest : public ProgramTest
{
protected:
    static constexpr const char* kColours = "Marek/colors/colors.ini";
    static constexpr const char* kPrevious = "Marek/colors/colors_prev.ini";

    void look(const std::function<void(QWidget&)>& script)
    {
        if (!program) startLoggedIn();
        withKey("Form3", Qt::Key_F3, script);
    }

    static QColor shown(const QWidget& window, const char* swatch)
    {
        return control<QLabel>(window, swatch).palette().color(QPalette::Window);
    }
    static QLabel& swatch(const QWidget& window, const char* name) { return control<QLabel>(window, name); }
    static QComboBox& schemes(const QWidget& window) { return control<QComboBox>(window, "cmbSheme"); }
    static QSpinBox& size(const QWidget& window) { return control<QSpinBox>(window, "Text1"); }
    static QPushButton& button(const QWidget& window, const char* name) { return control<QPushButton>(window, name); }
    static void press(const QWidget& window, const char* name) { click(button(window, name)); }

    /// Chooses a scheme with the arrow keys.
    static void choose(const QWidget& window, const QString& name)
    {
        for (int step = 0; step <= schemes(window).count() && schemes(window).currentText() != name; ++step)
            QTest::keyClick(&schemes(window), Qt::Key_Down);
        EXPECT_EQ(schemes(window).currentText(), name);
    }

    static QStringList listed(const QWidget& window)
    {
        QStringList names;
        for (int i = 0; i < schemes(window).count(); ++i) names << schemes(window).itemText(i);
        return names;
    }
};

}  // namespace kavo::test
