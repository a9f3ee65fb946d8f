// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/window_fixture.h"
#include "ui/main/results_header.h"

#include <QAccessible>
#include <QHeaderView>
#include <QScrollBar>

namespace {

class ResultsHeader : public kavo::test::ProgramTest
{
protected:
    ResultsHeader() { folder.write("Marek/names.dat", "Ann\r\nBob\r\nDuo\r\n"); }

    QHeaderView& headers() { return *list().header(); }
    void press(Qt::Key key) { QTest::keyClick(&headers(), key); }

    /// What Space asks in the chosen column.
    void expectName(const QString& title, const QString& prompt, const QString& offered)
    {
        prompts.expectLine({title, prompt, offered}, std::nullopt);
    }
};

TEST_F(ResultsHeader, IsReachedByTabAndLeftTheSameWay)
{
    startLoggedIn();
    mainWindow().activateWindow();
    ASSERT_TRUE(QTest::qWaitFor([this] { return mainWindow().isActiveWindow(); }));
    EXPECT_TRUE(list().hasFocus());
    QTest::keyClick(&list(), Qt::Key_Tab);
    EXPECT_TRUE(headers().hasFocus());
    QTest::keyClick(&headers(), Qt::Key_Tab);
    EXPECT_TRUE(list().hasFocus());
    QTest::keyClick(&list(), Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(headers().hasFocus());
}

TEST_F(ResultsHeader, SpacePressesTheColumnThatTheArrowKeysChoose)
{
    startLoggedIn();
    press(Qt::Key_Space);  // "Level" asks nothing
    press(Qt::Key_Right);
    expectName("Change player name", "Input player name:", "Ann");
    press(Qt::Key_Space);
    press(Qt::Key_Right);
    press(Qt::Key_Right);
    expectName("Change player name", "Input player name:", "Bob");
    press(Qt::Key_Space);
    press(Qt::Key_End);
    press(Qt::Key_Right);
    press(Qt::Key_Left);
    press(Qt::Key_Left);
    expectName("Change team name", "Input team name:", "Duo");
    press(Qt::Key_Space);
    press(Qt::Key_Home);
    press(Qt::Key_Left);
    press(Qt::Key_Right);
    expectName("Change player name", "Input player name:", "Ann");
    press(Qt::Key_Space);
    EXPECT_TRUE(prompts.isDone());
}

TEST_F(ResultsHeader, ChosenColumnIsBroughtIntoView)
{
    startLoggedIn();
    mainWindow().resize(list().columnWidth(0) + list().columnWidth(1), 300);
    const auto isInView = [this](int column) {
        const int left = headers().sectionViewportPosition(column);
        return left >= 0 && left + headers().sectionSize(column) <= headers().viewport()->width();
    };
    ASSERT_FALSE(isInView(6));
    for (int column = 1; column <= 6; ++column) press(Qt::Key_Right);
    EXPECT_TRUE(isInView(6));
    press(Qt::Key_Home);
    EXPECT_TRUE(isInView(0));
    press(Qt::Key_Right);
    press(Qt::Key_Right);
    list().horizontalScrollBar()->setValue(0);
    ASSERT_FALSE(isInView(2));
    QFocusEvent tab(QEvent::FocusIn, Qt::TabFocusReason);
    QCoreApplication::sendEvent(&headers(), &tab);
    EXPECT_TRUE(isInView(2));
}

TEST_F(ResultsHeader, KeysOfTheTableWorkInItToo)
{
    startLoggedIn();
    bool came = false;
    EXPECT_TRUE(kavo::test::withWindow(
        "Form4", [this] { press(Qt::Key_F9); }, [&came](QWidget&) { came = true; }));
    EXPECT_TRUE(came);
}

TEST_F(ResultsHeader, TellsAScreenReaderTheChosenColumn)
{
    startLoggedIn();
    press(Qt::Key_Home);
    const QAccessibleInterface* face = QAccessible::queryAccessibleInterface(&headers());
    ASSERT_NE(face, nullptr);
    EXPECT_EQ(face->text(QAccessible::Name), "Level");
    press(Qt::Key_Right);
    EXPECT_EQ(face->text(QAccessible::Name), "Ann");
    EXPECT_EQ(face->text(QAccessible::Description), "Click to rename");
}

TEST_F(ResultsHeader, CutsLongTextsWithDots)
{
    folder.write("Marek/names.dat", std::string(300, 'M') + "\r\nBob\r\nDuo\r\n");
    startLoggedIn();
    for (const int width : {60, 150}) {
        list().setColumnWidth(1, width);
        const int left = headers().sectionViewportPosition(1);
        const QImage picture = headers().viewport()->grab().toImage();
        // An M reaches from the top of the line to its foot, dots lie on the ground.
        const auto isInkAbove = [&](int from, int to) {
            for (int x = from; x < to; ++x)
                for (int y = 3; y < picture.height() / 2; ++y)
                    if (qGray(picture.pixel(x, y)) < 128) return true;
            return false;
        };
        EXPECT_TRUE(isInkAbove(left + 4, left + 20)) << width;
        EXPECT_FALSE(isInkAbove(left + width - 11, left + width - 3)) << width;
    }
}

TEST_F(ResultsHeader, CutsATextBesideTheMarkOfAFilterWithDots)
{
    folder.write("Marek/names.dat", std::string(300, 'M') + "\r\nBob\r\nDuo\r\n");
    startLoggedIn();
    mainWindow().findChild<QAction*>("mnuProf")->trigger();
    list().setColumnWidth(1, 90);
    const int right = headers().sectionViewportPosition(1) + 90;
    const QImage picture = headers().viewport()->grab().toImage();
    for (int x = right - 11; x < right - 3; ++x)
        for (int y = 3; y < picture.height() / 2; ++y) EXPECT_GE(qGray(picture.pixel(x, y)), 128) << x << ' ' << y;
}

}  // namespace
