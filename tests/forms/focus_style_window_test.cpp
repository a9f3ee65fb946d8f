// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/colour_set.h"
#include "forms/focus_style.h"
#include "forms/window_painting.h"
#include "tests/support/colour_vision.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <utility>
#include <vector>

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

TEST(FocusStyle, ButtonWithTheFocusIsToldFromTheOneThatEnterPresses)
{
    QDialog window;
    auto* layout = new QVBoxLayout(&window);
    auto* pressed = new QPushButton(" ", &window);
    auto* other = new QPushButton(" ", &window);
    pressed->setDefault(true);
    other->setAutoDefault(false);
    layout->addWidget(pressed);
    layout->addWidget(other);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&window] { return window.isActiveWindow(); }));
    const auto marks = [](QPushButton& button) {
        constexpr int kBorder = 3;
        const QImage inside =
            button.grab().toImage().copy(button.rect().adjusted(kBorder, kBorder, -kBorder, -kBorder));
        return standingOut(inside, button.palette().color(QPalette::Button));
    };
    other->setFocus();
    EXPECT_EQ(marks(*pressed), 0);
    EXPECT_GT(marks(*other), 20);
    pressed->setFocus();
    EXPECT_GT(marks(*pressed), 20);
    EXPECT_EQ(marks(*other), 0);
}

/// Whether something is drawn in the upper half of a line, where dots are not.
bool isInkAbove(const QImage& line, int from, int to)
{
    for (int x = from; x < to; ++x)
        for (int y = 2; y < line.height() / 2; ++y)
            if (qGray(line.pixel(x, y)) < 128) return true;
    return false;
}

TEST(FocusStyle, OptionsAndTitlesThatAreTooNarrowEndInDots)
{
    QRadioButton option(QString(60, 'M'));
    QGroupBox frame(QString(60, 'M'));
    for (QWidget* widget : {static_cast<QWidget*>(&option), static_cast<QWidget*>(&frame)}) {
        widget->resize(200, widget->minimumSizeHint().height());
        const QImage line = widget->grab().toImage().copy(0, 0, 200, widget->fontMetrics().height());
        EXPECT_TRUE(isInkAbove(line, 30, 60)) << widget->metaObject()->className();
        EXPECT_FALSE(isInkAbove(line, 192, 200)) << widget->metaObject()->className();
    }
    const QImage whole = QRadioButton("MMM").grab().toImage();
    EXPECT_TRUE(isInkAbove(whole, whole.width() - 8, whole.width()));
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

constexpr double kScale = 1.5;

/// Whether a line lies along an edge of a widget: one row or column of pixels, within three of the edge, of which
/// nearly all stand out from the background. `lines` has a row of pixels for each parallel to that edge.
bool hasEdge(const QImage& lines, int from, int to, const QColor& background)
{
    constexpr int kNear = 3;
    constexpr double kNearlyAll = 0.9;
    for (int y = 0; y < kNear; ++y) {
        int count = 0;
        for (int x = from; x < to; ++x)
            if (lines.pixelColor(x, y).rgb() != background.rgb()) ++count;
        if (count > kNearlyAll * (to - from)) return true;
    }
    return false;
}

/// The edges of a widget that can be seen: "left right top bottom".
std::string edgesSeen(const QImage& window, const QRect& place, const QColor& background)
{
    const auto onScreen = [](int at, bool isUp) {
        return static_cast<int>(isUp ? std::ceil(at * kScale) : std::floor(at * kScale));
    };
    const QRect inside(QPoint(onScreen(place.left(), true), onScreen(place.top(), true)),
                       QPoint(onScreen(place.right() + 1, false) - 1, onScreen(place.bottom() + 1, false) - 1));
    const QImage picture = window.copy(inside);
    const std::pair<const char*, double> turns[] = {{"top", 0}, {"right", -90}, {"bottom", 180}, {"left", 90}};
    std::string seen;
    for (const auto& [name, turn] : turns) {
        const QImage turned = picture.transformed(QTransform().rotate(turn));
        constexpr int kCorner = 12;
        if (hasEdge(turned, kCorner, turned.width() - kCorner, background)) seen.append(name).append(" ");
    }
    return seen;
}

TEST(FocusStyle, EveryEdgeOfABoxIsSeenAlsoWhereAPixelOfTheWindowIsNoneOfTheScreen)
{
    QWidget window;
    const std::vector<QWidget*> boxes = {new QListWidget(&window), new QPlainTextEdit(&window), new QLineEdit(&window)};
    auto* other = new QPushButton(&window);
    other->move(200, 10);
    paintWindow(window, ColourSet());
    window.resize(400, 100);
    window.show();
    const QColor background = toQColor(ColourSet().ColBack);
    for (QWidget* box : boxes)
        for (const bool isFocused : {false, true})
            for (int at = 0; at < 4; ++at) {
                for (QWidget* one : boxes) one->setGeometry(-500, 0, 10, 10);
                box->setGeometry(10 + at, 10 + at / 2, 80 + at % 2, 60 + at / 2 % 2);
                isFocused ? box->setFocus() : other->setFocus();
                QImage picture(window.size() * kScale, QImage::Format_RGB32);
                picture.setDevicePixelRatio(kScale);
                window.render(&picture);
                picture.setDevicePixelRatio(1);
                EXPECT_EQ(edgesSeen(picture, box->geometry(), background), "top right bottom left ")
                    << box->metaObject()->className() << " at " << at << (isFocused ? " focused" : "");
            }
}

TEST(FocusStyle, DarkBoxesHaveAnEdgeOnADarkWindow)
{
    const QPalette usual = QApplication::palette();
    QPalette dark(Qt::white, QColor(53, 53, 53));
    dark.setColor(QPalette::Base, QColor(35, 35, 35));
    dark.setColor(QPalette::Text, Qt::white);
    QApplication::setPalette(dark);
    ColourSet colours;
    colours.ColBack = rgb(20, 24, 33);
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    layout->addWidget(new QPushButton(&window));  // has the focus
    auto* combo = new QComboBox(&window);
    combo->setEditable(true);
    const std::vector<QWidget*> boxes = {new QListWidget(&window), new QPlainTextEdit(&window), new QLineEdit(&window),
                                         new QSpinBox(&window), combo};
    for (QWidget* box : boxes) layout->addWidget(box);
    paintWindow(window, colours);
    window.show();
    constexpr double kSeen = 3;  // times as bright
    for (QWidget* box : boxes)
        EXPECT_GT(test::contrast(fromQColor(edgeOf(*box)), colours.ColBack), kSeen)
            << box->metaObject()->className() << ' ' << qPrintable(edgeOf(*box).name());
    QApplication::setPalette(usual);
}

TEST(FocusStyle, BetweenTheLineOfABoxAndItsInsideIsNothingOfTheWindow)
{
    ColourSet colours;
    colours.ColBack = rgb(20, 24, 30);
    QWidget window;
    auto* layout = new QVBoxLayout(&window);
    auto* list = new QListWidget(&window);
    layout->addWidget(list);
    layout->addWidget(new QPushButton(&window));
    paintWindow(window, colours);
    window.show();
    const QImage picture = list->grab().toImage();
    for (int x = 0; x < 4; ++x) EXPECT_NE(picture.pixelColor(x, picture.height() / 2), toQColor(colours.ColBack)) << x;
}

}  // namespace

}  // namespace kavo
