// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/clickable_label.h"

#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

namespace kavo {

namespace {

class ClickableLabelTest : public testing::Test
{
protected:
    ClickableLabelTest() { label.resize(100, 20); }

    /// How often it was clicked, double-clicked and chosen by key since the last look.
    QList<qsizetype> news()
    {
        const QList<qsizetype> counts = {clicks.count(), doubleClicks.count(), keys.count()};
        for (QSignalSpy* spy : {&clicks, &doubleClicks, &keys}) spy->clear();
        return counts;
    }

    ClickableLabel label;
    QSignalSpy clicks{&label, &ClickableLabel::clicked};
    QSignalSpy doubleClicks{&label, &ClickableLabel::doubleClicked};
    QSignalSpy keys{&label, &ClickableLabel::chosenByKey};
};

TEST_F(ClickableLabelTest, IsClickedWhereTheLeftButtonIsLetGoOnIt)
{
    QTest::mousePress(&label, Qt::LeftButton);
    EXPECT_EQ(news(), QList<qsizetype>({0, 0, 0}));
    QTest::mouseRelease(&label, Qt::LeftButton);
    EXPECT_EQ(news(), QList<qsizetype>({1, 0, 0}));
    QTest::mousePress(&label, Qt::LeftButton);
    QTest::mouseRelease(&label, Qt::LeftButton, {}, QPoint(5, 500));
    QTest::mouseClick(&label, Qt::RightButton);
    QTest::mouseDClick(&label, Qt::RightButton);
    EXPECT_EQ(news(), QList<qsizetype>({0, 0, 0}));
}

TEST_F(ClickableLabelTest, TellsOfADoubleClickBesideItsTwoClicks)
{
    QTest::mouseClick(&label, Qt::LeftButton);
    QTest::mouseDClick(&label, Qt::LeftButton);
    QTest::mouseRelease(&label, Qt::LeftButton);
    EXPECT_EQ(news(), QList<qsizetype>({2, 1, 0}));
}

TEST_F(ClickableLabelTest, IsChosenBySpaceAndEnter)
{
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter}) {
        QTest::keyClick(&label, key);
        EXPECT_EQ(news(), QList<qsizetype>({0, 0, 1})) << key;
    }
    QTest::keyClick(&label, Qt::Key_A);
    EXPECT_EQ(news(), QList<qsizetype>({0, 0, 0}));
}

}  // namespace

}  // namespace kavo
