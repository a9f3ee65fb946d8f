// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/window_fixture.h"
#include "ui/main/popup_menu.h"

#include <QHeaderView>
#include <QMenu>

namespace {

using kavo::entryOfKey;
using kavo::test::allWindows;
using kavo::test::statisticsText;

class PopupMenu : public kavo::test::ProgramTest
{
protected:
    QMenu& menu() { return control<QMenu>(mainWindow(), "popup"); }

    static QString described(const QMenu& menu)
    {
        QStringList entries;
        for (const QAction* action : menu.actions()) {
            const QString name = action->menu() != nullptr ? action->menu()->objectName() : action->objectName();
            const QString key = action->shortcut().toString(QKeySequence::PortableText);
            entries << (action->isSeparator() ? "-" : name + "|" + action->text() + "|" + key);
        }
        return entries.join('\n');
    }

    static std::string nameOf(QKeyCombination key)
    {
        const kavo::MenuEntry* entry = entryOfKey(key);
        return entry == nullptr ? "" : entry->name;
    }

    /// Whether a key reloads the table: the statistics file changes before it and the first time with it.
    bool reloads(QWidget& receiver, QKeyCombination key)
    {
        static int hundredths = 10;
        const std::string time = "00:01:" + std::to_string(++hundredths);
        folder.write("game/stats.txt", statisticsText({time + " A"}));
        QTest::keyClick(&receiver, key.key(), key.keyboardModifiers());
        return cell(1, 1).toStdString() == time;
    }
};

TEST_F(PopupMenu, OpensWithShiftF10AtTheSelectedRowAndNotWithF10Alone)
{
    startLoggedIn();
    list().setCurrentIndex(index(3, 0));
    for (const QKeyCombination key : {QKeyCombination(Qt::Key_F10), Qt::CTRL | Qt::Key_F10, Qt::ALT | Qt::Key_F10,
                                      Qt::CTRL | Qt::SHIFT | Qt::Key_F10}) {
        QTest::keyClick(&list(), key.key(), key.keyboardModifiers());
        EXPECT_FALSE(menu().isVisible()) << key.toCombined();
    }
    for (QWidget* receiver : {static_cast<QWidget*>(&list()), static_cast<QWidget*>(list().header())}) {
        QTest::keyClick(receiver, Qt::Key_F10, Qt::ShiftModifier);
        ASSERT_TRUE(menu().isVisible());
        EXPECT_EQ(menu().pos(), list().viewport()->mapToGlobal(list().visualRect(index(3, 0)).bottomLeft()));
        menu().close();
    }
}

TEST_F(PopupMenu, HasItsEntriesInOrder)
{
    startLoggedIn();
    EXPECT_EQ(described(menu()), R"(mnuUpTargets|Update targets|Ctrl+R
mnuBUGs|Bug times|Ctrl+B
-
mdas|Filter #1|
filt2|Filter #2|
-
mnuOpt|Settings|F2
mnuFont|View|F3
-
mnuStats|Statistics|F7
mnuLevsStats|Levels' statistic|F8
-
mnuHTML|eXtended HTML Export|Ctrl+H
mnuExport|Excel export|Ctrl+E
mnuTextExport|Text file export|Ctrl+T
-
mnuRefresh|Refresh|F5
mnuChangeUser|Change user|F12
mnuLinks|Links...|F9
mnuAbout|About...|F1)");
    EXPECT_EQ(described(control<QMenu>(mainWindow(), "mdas")), R"(mnuFiltNone|No filter|
mnuBegin|Beginner|
mnuOK|OK|
mnuGood|Good|
mnuProf|Professional|
mnuWC|World Class|
mnuWR|World Record|
mnuVic|Victories|)");
    EXPECT_EQ(described(control<QMenu>(mainWindow(), "filt2")), R"(mnuFiltNone1|No filter|
mnuBegin1|Beginner|
mnuOK1|OK|
mnuGood1|Good|
mnuProf1|Professional|
mnuWC1|World Class|
mnuWR1|World Record|
mnuVic1|Victories|)");
    for (const char* submenu : {"mdas", "filt2"})
        for (const QAction* action : control<QMenu>(mainWindow(), submenu).actions())
            EXPECT_FALSE(action->isCheckable());
}

TEST_F(PopupMenu, FunctionKeysCountWhateverElseIsHeld)
{
    const std::pair<Qt::Key, const char*> keys[] = {{Qt::Key_F1, "mnuAbout"}, {Qt::Key_F2, "mnuOpt"},
                                                    {Qt::Key_F3, "mnuFont"},  {Qt::Key_F5, "mnuRefresh"},
                                                    {Qt::Key_F7, "mnuStats"}, {Qt::Key_F8, "mnuLevsStats"},
                                                    {Qt::Key_F9, "mnuLinks"}, {Qt::Key_F12, "mnuChangeUser"}};
    for (const auto& [key, name] : keys) {
        EXPECT_EQ(nameOf(key), name);
        EXPECT_EQ(nameOf(Qt::SHIFT | key), name);
        EXPECT_EQ(nameOf(Qt::CTRL | key), name);
        EXPECT_EQ(nameOf(QKeyCombination(Qt::ControlModifier | Qt::AltModifier | Qt::ShiftModifier, key)), name);
    }
}

TEST_F(PopupMenu, LettersCountWithControlAlone)
{
    const std::pair<Qt::Key, const char*> keys[] = {{Qt::Key_B, "mnuBUGs"},
                                                    {Qt::Key_E, "mnuExport"},
                                                    {Qt::Key_H, "mnuHTML"},
                                                    {Qt::Key_R, "mnuUpTargets"},
                                                    {Qt::Key_T, "mnuTextExport"}};
    for (const auto& [key, name] : keys) {
        EXPECT_EQ(nameOf(Qt::CTRL | key), name);
        EXPECT_EQ(nameOf(key), "");
        EXPECT_EQ(nameOf(Qt::SHIFT | key), "");
        EXPECT_EQ(nameOf(Qt::ALT | key), "");
        EXPECT_EQ(nameOf(QKeyCombination(Qt::ControlModifier | Qt::ShiftModifier, key)), "");
        EXPECT_EQ(nameOf(QKeyCombination(Qt::ControlModifier | Qt::AltModifier, key)), "");
    }
}

TEST_F(PopupMenu, OtherKeysDoNothing)
{
    for (const Qt::Key key :
         {Qt::Key_F4, Qt::Key_F6, Qt::Key_F10, Qt::Key_F11, Qt::Key_A, Qt::Key_Escape, Qt::Key_unknown})
        for (const auto modifier : {Qt::NoModifier, Qt::ControlModifier, Qt::ShiftModifier})
            EXPECT_EQ(nameOf(QKeyCombination(modifier, key)), "") << key;
}

TEST_F(PopupMenu, KeysOpenTheirWindows)
{
    startLoggedIn();
    for (const auto& row : allWindows()) {
        if (row.key.key() == Qt::Key_unknown) continue;
        withKey(row.className, row.key, [](QWidget&) {});
        // Any further modifier: function keys still count, letters do not.
        const QKeyCombination shifted(row.key.keyboardModifiers() | Qt::ShiftModifier, row.key.key());
        const bool isLetter = row.key.key() <= Qt::Key_Z;
        const auto press = [&] { QTest::keyClick(&list(), shifted.key(), shifted.keyboardModifiers()); };
        EXPECT_EQ(kavo::test::withWindow(row.className, press, [](QWidget&) {}), !isLetter) << row.className;
    }
}

TEST_F(PopupMenu, RefreshWorksInTheTableAndInTheWindow)
{
    startLoggedIn();
    std::filesystem::remove(folder / "Marek/bugs.dat");
    EXPECT_TRUE(reloads(list(), Qt::Key_F5));
    EXPECT_TRUE(reloads(list(), Qt::SHIFT | Qt::Key_F5));
    EXPECT_TRUE(reloads(mainWindow(), Qt::Key_F5));
    EXPECT_FALSE(reloads(list(), QKeyCombination(Qt::ControlModifier | Qt::ShiftModifier, Qt::Key_R)));
    EXPECT_FALSE(reloads(list(), Qt::Key_F6));
}

TEST_F(PopupMenu, OpensAtThePressOfTheRightButtonOnly)
{
    startLoggedIn();
    const QPoint at(50, 50);
    QTest::mousePress(list().viewport(), Qt::LeftButton, {}, at);
    QTest::mousePress(list().viewport(), Qt::MiddleButton, {}, at);
    EXPECT_FALSE(menu().isVisible());
    QTest::mousePress(list().viewport(), Qt::RightButton, {}, at);
    EXPECT_TRUE(menu().isVisible());
    EXPECT_EQ(menu().pos(), list().viewport()->mapToGlobal(at));
    menu().close();
}

TEST_F(PopupMenu, DoubleClickDoesWhatTheLevelsStatisticEntryDoes)
{
    startLoggedIn();
    for (const auto& row : allWindows()) {
        if (std::string(row.entry) != "mnuLevsStats") continue;
        const auto doubleClick = [this] { QTest::mouseDClick(list().viewport(), Qt::LeftButton, {}, QPoint(50, 50)); };
        EXPECT_TRUE(kavo::test::withWindow(row.className, doubleClick, [](QWidget&) {}));
    }
}

}  // namespace
