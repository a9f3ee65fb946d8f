// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/colour_set.h"
#include "forms/focus_style.h"
#include "forms/window_painting.h"

#include <QApplication>
#include <QCheckBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace kavo {

namespace {

/// The colour in the middle of a widget's left edge.
QColor edgeOf(QWidget& widget)
{
    return widget.grab().toImage().pixelColor(0, widget.height() / 2);
}

TEST(FocusStyle, IsTheStyleOfTheProgram)
{
    EXPECT_NE(qobject_cast<FocusStyle*>(QApplication::style()), nullptr);
}

TEST(FocusStyle, BoxesOfSeveralLinesAndListsShowThatTheyHaveTheFocus)
{
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    QPlainTextEdit box;
    QListWidget list;
    QLineEdit other;
    for (QWidget* widget : {static_cast<QWidget*>(&box), static_cast<QWidget*>(&list), static_cast<QWidget*>(&other)})
        layout->addWidget(widget);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&window] { return window.isActiveWindow(); }));
    const QColor highlight = window.palette().color(QPalette::Highlight);
    for (QWidget* widget : {static_cast<QWidget*>(&box), static_cast<QWidget*>(&list)}) {
        widget->setFocus();
        EXPECT_EQ(edgeOf(*widget), highlight);
        other.setFocus();
        EXPECT_NE(edgeOf(*widget), highlight);
    }
}

/// How many pixels of a picture stand out from its background.
int standingOut(const QImage& picture, const QColor& background)
{
    const auto luminance = [](const QColor& colour) { return qGray(colour.rgb()); };
    constexpr int kClearly = 100;  // of 255
    int count = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            if (std::abs(luminance(picture.pixelColor(x, y)) - luminance(background)) > kClearly) ++count;
    return count;
}

/// Scheme and desktop may each be light or dark.
TEST(FocusStyle, MarksOfOptionsStandOutWhateverTheDesktopsColoursAre)
{
    const QPalette usual = QApplication::palette();
    for (const QColor& desktop : {QColor(Qt::white), QColor(30, 30, 30)}) {
        const QColor desktopText = desktop == QColor(Qt::white) ? Qt::black : Qt::white;
        QPalette palette(desktopText, desktop);
        palette.setColor(QPalette::Base, desktop);
        palette.setColor(QPalette::Text, desktopText);
        QApplication::setPalette(palette);
        for (const bool isDark : {false, true}) {
            ColourSet colours;
            colours.ColBack = isDark ? rgb(20, 24, 30) : rgb(255, 255, 255);
            colours.ColLabels = isDark ? rgb(230, 230, 230) : rgb(0, 0, 0);
            QWidget window;
            auto* layout = new QVBoxLayout(&window);
            auto* option = new QRadioButton(&window);
            auto* focused = new QRadioButton("", &window);
            option->setAutoExclusive(false);
            focused->setAutoExclusive(false);
            layout->addWidget(option);
            layout->addWidget(focused);
            paintWindow(window, colours);
            window.show();
            const int unchosen = standingOut(option->grab().toImage(), toQColor(colours.ColBack));
            EXPECT_GT(unchosen, 20) << isDark << desktop.lightness();
            option->setChecked(true);
            EXPECT_GT(standingOut(option->grab().toImage(), toQColor(colours.ColBack)), unchosen + 10);
        }
    }
    QApplication::setPalette(usual);
}

TEST(FocusStyle, FocusOfAnOptionIsDrawnInTheColourOfItsText)
{
    ColourSet colours;
    colours.ColBack = rgb(48, 140, 198);  // what many desktops mark with
    colours.ColLabels = rgb(255, 255, 255);
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    auto* option = new QRadioButton(" ", &window);
    auto* other = new QPushButton(&window);
    layout->addWidget(option);
    layout->addWidget(other);
    paintWindow(window, colours);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&window] { return window.isActiveWindow(); }));
    other->setFocus();
    const int without = standingOut(option->grab().toImage(), toQColor(colours.ColBack));
    option->setFocus(Qt::TabFocusReason);
    EXPECT_GT(standingOut(option->grab().toImage(), toQColor(colours.ColBack)), without + 5);
}

TEST(FocusStyle, MarkOfACheckBoxShowsWhetherItIsChecked)
{
    QCheckBox box;
    box.show();
    const QColor background = box.palette().color(QPalette::Window);
    const int unchecked = standingOut(box.grab().toImage(), background);
    EXPECT_GT(unchecked, 20);
    box.setChecked(true);
    EXPECT_GT(standingOut(box.grab().toImage(), background), unchecked + 10);
}

}  // namespace

}  // namespace kavo
