// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/window_painting.h"
#include "ui/settings/swatch.h"

#include <QAccessible>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace kavo {

namespace {

TEST(Swatch, HasTheNameOfTheColourThatItLooksLikeMost)
{
    Swatch swatch;
    const std::pair<Colour, QString> cases[] = {{rgb(255, 0, 0), "red"},
                                                {rgb(254, 2, 1), "red"},
                                                {rgb(255, 255, 255), "white"},
                                                {rgb(0, 0, 128), "navy"},
                                                {rgb(25, 190, 30), "limegreen"}};  // 50, 205, 50
    for (const auto& [colour, name] : cases) {
        paintSwatch(swatch, colour);
        EXPECT_EQ(swatch.colourName(), name);
    }
}

TEST(Swatch, IsAButtonForAScreenReader)
{
    Swatch swatch;
    swatch.setAccessibleName("World Record color");
    paintSwatch(swatch, rgb(255, 0, 0));
    QAccessibleInterface* face = QAccessible::queryAccessibleInterface(&swatch);
    ASSERT_NE(face, nullptr);
    EXPECT_EQ(face->role(), QAccessible::Button);
    EXPECT_EQ(face->text(QAccessible::Name), "World Record color: red");
    ASSERT_TRUE(face->actionInterface()->actionNames().contains(QAccessibleActionInterface::pressAction()));
    QSignalSpy clicks(&swatch, &Swatch::clicked);
    face->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(QTest::qWaitFor([&clicks] { return clicks.count() == 1; }));
}

}  // namespace

}  // namespace kavo
