// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// What a screen reader is told of the windows.

#include "tests/support/window_fixture.h"

#include <QAccessible>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>

#include <set>

namespace {

using kavo::test::allWindows;
using kavo::test::WindowRow;

const QAccessibleInterface& face(const QWidget& widget)
{
    QAccessibleInterface* found = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(&widget));
    if (found == nullptr) throw std::runtime_error("no face");
    return *found;
}

QString name(const QWidget& widget)
{
    return face(widget).text(QAccessible::Name);
}

/// Whether a label beside the control says what it is for.
bool hasLabel(const QWidget& control)
{
    return !face(control).relations(QAccessible::Label).isEmpty();
}

/// The name of the frame that a control stands in.
QString frameOf(const QWidget& control)
{
    for (const QWidget* at = control.parentWidget(); at != nullptr; at = at->parentWidget())
        if (qobject_cast<const QGroupBox*>(at) != nullptr) return name(*at);
    return {};
}

/// A list announces what is chosen in it; what it is for must come from elsewhere. Where it can be typed into, what
/// has the focus is the line in it.
void expectCombosHaveAPurpose(const QWidget& window)
{
    for (const QComboBox* combo : window.findChildren<QComboBox*>()) {
        EXPECT_TRUE(hasLabel(*combo) || !face(*combo).text(QAccessible::Description).isEmpty())
            << qPrintable(combo->objectName());
        const bool isNamed = !combo->isEditable() || !name(*combo->lineEdit()).isEmpty();
        EXPECT_TRUE(isNamed) << qPrintable(combo->objectName());
    }
}

void expectFramesHaveNamesOfTheirOwn(const QWidget& window)
{
    std::set<QString> names;
    for (const QWidget* frame : window.findChildren<QGroupBox*>()) {
        EXPECT_FALSE(name(*frame).isEmpty()) << qPrintable(frame->objectName());
        EXPECT_FALSE(name(*frame).contains("&&")) << qPrintable(name(*frame));
        EXPECT_TRUE(names.insert(name(*frame)).second) << "twice: " << qPrintable(name(*frame));
    }
}

/// Within a frame no two buttons are called the same.
void expectButtonsAreToldApart(const QWidget& window)
{
    std::set<QString> names;
    for (const QWidget* button : window.findChildren<QPushButton*>()) {
        EXPECT_EQ(face(*button).role(), QAccessible::Button);
        const QString full = frameOf(*button) + ": " + name(*button);
        EXPECT_TRUE(names.insert(full).second) << "twice: " << qPrintable(full);
    }
}

void expectSwatchesAreButtons(const QWidget& window)
{
    for (const QLabel* label : window.findChildren<QLabel*>()) {
        if (!label->inherits("kavo::Swatch")) continue;
        EXPECT_EQ(face(*label).role(), QAccessible::Button);
        EXPECT_TRUE(name(*label).contains(QRegularExpression(".* color: [a-z]+$"))) << qPrintable(name(*label));
    }
}

void expectAccessible(const QWidget& window)
{
    expectCombosHaveAPurpose(window);
    expectFramesHaveNamesOfTheirOwn(window);
    expectButtonsAreToldApart(window);
    expectSwatchesAreButtons(window);
}

class Accessibility : public kavo::test::ProgramTest
{
};

class AccessibilityOf : public Accessibility, public testing::WithParamInterface<WindowRow>
{
};

TEST_P(AccessibilityOf, EveryControlSaysWhatItIsFor)
{
    startLoggedIn();
    EXPECT_TRUE(kavo::test::withWindow(mainWindow(), GetParam(), [](const QWidget& window) {
        EXPECT_EQ(face(window).role(), QAccessible::Dialog);
        EXPECT_EQ(name(window), QLatin1StringView(GetParam().caption));
        expectAccessible(window);
    }));
}

INSTANTIATE_TEST_SUITE_P(Windows, AccessibilityOf, testing::ValuesIn(allWindows()),
                         [](const auto& row) { return std::string(row.param.className); });

TEST_F(Accessibility, LoginSaysWhatItsControlsAreFor)
{
    start();
    EXPECT_EQ(face(loginWindow()).role(), QAccessible::Dialog);
    EXPECT_EQ(name(loginWindow()), "Login");
    expectAccessible(loginWindow());
    EXPECT_TRUE(hasLabel(control<QComboBox>(loginWindow(), "Combo1")));
}

TEST_F(Accessibility, MainWindowIsAWindowWithATableInIt)
{
    startLoggedIn();
    EXPECT_EQ(face(mainWindow()).role(), QAccessible::Window);
    EXPECT_EQ(name(mainWindow()), "Kavo Timing 2.1  User: Marek");
    EXPECT_EQ(name(list()), "Results");
    QAccessibleTableInterface* table = const_cast<QAccessibleInterface&>(face(list())).tableInterface();
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->rowCount(), 55);
    EXPECT_EQ(table->columnCount(), 9);
    EXPECT_EQ(table->columnDescription(1), "Marek");
    const QAccessibleInterface* time = table->cellAt(0, 3);  // level 1: Жанна 0:14.99, Marek 0:16.32
    ASSERT_NE(time, nullptr);
    EXPECT_EQ(time->text(QAccessible::Name), "00:14:99");
    EXPECT_TRUE(time->text(QAccessible::Description).startsWith("faster, World Class. "))
        << qPrintable(time->text(QAccessible::Description));
    EXPECT_TRUE(table->cellAt(0, 1)->text(QAccessible::Description).startsWith("Professional. "));
}

TEST_F(Accessibility, SplashSaysItsName)
{
    const frmSplash splash;
    EXPECT_EQ(name(splash), "NRL Kavo Timing");
}

}  // namespace
