// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/colour_set.h"
#include "forms/screen_fit.h"
#include "forms/window_painting.h"

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QTest>
#include <QVBoxLayout>
#include <gtest/gtest.h>

namespace kavo {

namespace {

/// A dialog of one box that needs this much room at least, and a button below it.
class Dialog final : public QDialog
{
public:
    explicit Dialog(const QSize& smallestBox) : box(this), button("Close", this)
    {
        box.setMinimumSize(smallestBox);
        auto* layout = new QVBoxLayout(this);
        layout->addWidget(&box);
        layout->addWidget(&button);
    }

    QLabel box;
    QPushButton button;
};

QSize freeArea(const QWidget& window)
{
    return window.screen()->availableGeometry().size();
}

bool scrolls(const QWidget& window)
{
    return window.findChild<QScrollArea*>() != nullptr;
}

TEST(ScreenFit, LeavesAWindowThatFitsAsItIs)
{
    Dialog window({50, 50});
    window.resize(300, 200);
    fitToScreen(window);
    EXPECT_EQ(window.size(), QSize(300, 200));
    EXPECT_FALSE(scrolls(window));
}

TEST(ScreenFit, WindowWithoutADesignedSizeTakesTheRoomThatItAsksForWhereThereIsAny)
{
    Dialog window({50, 50});
    const int asked = freeArea(window).width() * 3 / 4;  // more than the toolkit gives of a screen by itself
    static_cast<QVBoxLayout*>(window.layout())->addItem(new QSpacerItem(asked, 0, QSizePolicy::Preferred));
    window.adjustSize();
    ASSERT_LT(window.width(), asked);
    window.setAttribute(Qt::WA_Resized, false);  // as it is when a window is shown
    fitToScreen(window);
    EXPECT_EQ(window.width(), window.sizeHint().width());
    EXPECT_FALSE(scrolls(window));
}

TEST(ScreenFit, LargeWindowShrinksWhileItsBoxesCan)
{
    Dialog window({50, 50});
    window.resize(freeArea(window) + QSize(200, 200));
    fitToScreen(window);
    EXPECT_LT(window.width(), freeArea(window).width());
    EXPECT_LT(window.height(), freeArea(window).height());
    EXPECT_FALSE(scrolls(window));
}

TEST(ScreenFit, WindowWhoseContentsAreTooLargeScrollsToAllOfThem)
{
    Dialog window({50, 50});
    window.box.setMinimumHeight(freeArea(window).height() + 200);
    fitToScreen(window);
    EXPECT_LT(window.height(), freeArea(window).height());
    ASSERT_TRUE(scrolls(window));
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([&window] { return window.isActiveWindow(); }));
    window.button.clearFocus();
    window.button.setFocus();
    EXPECT_EQ(window.button.visibleRegion().boundingRect(), window.button.rect());
}

TEST(ScreenFit, ShownWindowIsNeverSeenEmpty)
{
    Dialog window({50, 50});
    window.show();
    window.box.setMinimumHeight(freeArea(window).height() + 200);
    fitToScreen(window);
    ASSERT_TRUE(scrolls(window));
    EXPECT_TRUE(window.button.isVisible());
}

TEST(ScreenFit, WindowThatIsShownAgainIsNotWrappedTwice)
{
    Dialog window({50, 50});
    window.box.setMinimumHeight(freeArea(window).height() + 200);
    fitToScreen(window);
    fitToScreen(window);
    EXPECT_EQ(window.findChildren<QScrollArea*>().size(), 1);
}

TEST(ScreenFit, ScrolledSurfaceKeepsTheWindowsColours)
{
    ColourSet colours;
    colours.ColBack = rgb(10, 20, 30);
    Dialog window({50, 50});
    paintWindow(window, colours);
    window.box.setMinimumHeight(freeArea(window).height() + 200);
    fitToScreen(window);
    const QWidget& surface = *window.findChild<QScrollArea*>()->widget();
    EXPECT_EQ(surface.palette().color(surface.backgroundRole()), QColor(10, 20, 30));
    colours.ColBack = rgb(40, 50, 60);
    paintWindow(window, colours);
    EXPECT_EQ(surface.palette().color(surface.backgroundRole()), QColor(40, 50, 60));
}

}  // namespace

}  // namespace kavo
