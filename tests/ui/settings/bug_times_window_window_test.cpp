// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/patience.h"
#include "tests/support/window_fixture.h"

#include <QGroupBox>
#include <QListWidget>
#include <QPushButton>

namespace {

using kavo::Message;
using kavo::test::kPatience;

const kavo::LineQuestion kQuestion = {
    "Adding bug-time",
    "Input your bug in this way: xx, yy:yy:yy, where xx is number of level (53, 07) and yy:yy:yy is your time "
    "(00:19:05, 01:35:12).",
    "xx, yy:yy:yy"};

class BugTimesWindow : public kavo::test::ProgramTest
{
protected:
    static constexpr const char* kFile = "Marek/bugs.dat";

    void look(const std::function<void(QWidget&)>& script)
    {
        if (!program) startLoggedIn();
        withKey("Form8", Qt::CTRL | Qt::Key_B, script);
    }

    static QListWidget& entries(const QWidget& window, const char* name) { return control<QListWidget>(window, name); }
    static QPushButton& button(const QWidget& window, const char* name) { return control<QPushButton>(window, name); }
    static void press(const QWidget& window, const char* name) { click(button(window, name)); }

    static QStringList texts(const QWidget& window, const char* name)
    {
        QStringList all;
        for (int row = 0; row < entries(window, name).count(); ++row) all << entries(window, name).item(row)->text();
        return all;
    }

    static void clickEntry(const QWidget& window, const char* name, int row)
    {
        auto& box = entries(window, name);
        QTest::mouseClick(box.viewport(), Qt::LeftButton, {}, box.visualItemRect(box.item(row)).center());
    }
};

TEST_F(BugTimesWindow, NamesThePlayersAndShowsTheEntries)
{
    folder.write("Marek/names.dat", "Tom & Jerry\r\nAnna\r\nTeam\r\n");
    folder.write(kFile, "PLAYER1\r\n07, 00:19:05\r\n01, 00:00:01\r\nplayer2\r\n12, 00:41:30\n");
    look([](const QWidget& window) {
        EXPECT_EQ(control<QGroupBox>(window, "Frame1").title(), "List of bug-times for Tom && Jerry");
        EXPECT_EQ(control<QGroupBox>(window, "Frame2").title(), "List of bug-times for Anna");
        EXPECT_EQ(texts(window, "List1"), QStringList({"07, 00:19:05", "01, 00:00:01"}));
        EXPECT_EQ(texts(window, "List2"), QStringList({"12, 00:41:30"}));
        const std::pair<const char*, QString> captions[] = {
            {"Command1", "Ad&d"},   {"Command2", "Remove"}, {"Command3", "Clear"}, {"Command4", "&Add"},
            {"Command5", "Remove"}, {"Command6", "Clear"},  {"Command7", "&Save"}, {"Command8", "Cancel"}};
        for (const auto& [name, text] : captions) EXPECT_EQ(button(window, name).text(), text);
        EXPECT_FALSE(button(window, "Command2").isEnabled());
        EXPECT_FALSE(button(window, "Command5").isEnabled());
    });
}

TEST_F(BugTimesWindow, OtherFilesHoldNoEntries)
{
    folder.write(kFile, "Something else\r\n07, 00:19:05\r\n");
    look([](const QWidget& window) {
        EXPECT_EQ(entries(window, "List1").count(), 0);
        EXPECT_EQ(entries(window, "List2").count(), 0);
    });
}

TEST_F(BugTimesWindow, FileThatBreaksOffIsReportedAndNotOpenedForSaving)
{
    startLoggedIn();
    folder.write(kFile, "Player1\r\n07, 00:19:05\r\n");
    expectError("Input past end of file: bugs.dat");
    QTest::keyClick(&list(), Qt::Key_B, Qt::ControlModifier);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_EQ(folder.read(kFile), "Player1\r\n07, 00:19:05\r\n");
}

TEST_F(BugTimesWindow, AddsWhatPassesTheLenientCheck)
{
    std::filesystem::remove(folder / kFile);
    look([this](const QWidget& window) {
        for (const char* good : {"53, 00:19:05", "07, 01:35:12", "53xx00:19:05", "99, 00:19:05", "-1,  1:+2: 3"}) {
            prompts.expectLine(kQuestion, QLatin1StringView(good));
            press(window, "Command1");
        }
        EXPECT_EQ(texts(window, "List1"),
                  QStringList({"53, 00:19:05", "07, 01:35:12", "53xx00:19:05", "99, 00:19:05", "-1,  1:+2: 3"}));
        prompts.expectLine(kQuestion, QString("12, 00:41:30"));
        press(window, "Command4");
        EXPECT_EQ(texts(window, "List2"), QStringList({"12, 00:41:30"}));
    });
    EXPECT_FALSE(folder.has(kFile));  // nothing is written before Save
}

TEST_F(BugTimesWindow, RejectsWhatDoesNotPass)
{
    look([this](const QWidget& window) {
        const std::optional<QString> answers[] = {QString("7, 01:35:12"), QString("53, ab:19:05"),
                                                  QString("53, 00:19:055"), QString("xx, yy:yy:yy"), std::nullopt};
        for (const auto& answer : answers) {
            prompts.expectLine(kQuestion, answer);
            prompts.expectMessage(Message{.text = "Not correct!", .title = "NRL Kavo Timing"});
            press(window, "Command1");
        }
        EXPECT_EQ(entries(window, "List1").count(), 1);
    });
}

TEST_F(BugTimesWindow, RemovesTheSelectedEntryAndOnlyThat)
{
    folder.write(kFile, "Player1\r\n01, 00:00:01\r\n02, 00:00:02\r\n03, 00:00:03\r\nPlayer2\r\n");
    look([](const QWidget& window) {
        clickEntry(window, "List1", 1);
        EXPECT_TRUE(button(window, "Command2").isEnabled());
        EXPECT_FALSE(button(window, "Command5").isEnabled());
        press(window, "Command2");
        EXPECT_EQ(texts(window, "List1"), QStringList({"01, 00:00:01", "03, 00:00:03"}));
        // Still enabled, but nothing is selected: a second press removes nothing.
        EXPECT_TRUE(button(window, "Command2").isEnabled());
        press(window, "Command2");
        EXPECT_EQ(texts(window, "List1"), QStringList({"01, 00:00:01", "03, 00:00:03"}));
        clickEntry(window, "List1", 0);
        press(window, "Command2");
        EXPECT_EQ(texts(window, "List1"), QStringList({"03, 00:00:03"}));
    });
}

TEST_F(BugTimesWindow, EntriesAreChosenByKeyboardToo)
{
    look([](QWidget& window) {
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitFor([&window] { return window.isActiveWindow(); }, kPatience));
        auto& box = entries(window, "List2");
        box.setFocus();
        ASSERT_TRUE(box.hasFocus());
        QTest::keyClick(&box, Qt::Key_Space);
        EXPECT_TRUE(button(window, "Command5").isEnabled());
        QTest::keyClick(&button(window, "Command5"), Qt::Key_Space);
        EXPECT_EQ(box.count(), 0);
        press(window, "Command5");
    });
}

TEST_F(BugTimesWindow, ClearEmptiesOneList)
{
    look([](const QWidget& window) {
        press(window, "Command3");
        EXPECT_EQ(entries(window, "List1").count(), 0);
        EXPECT_EQ(entries(window, "List2").count(), 1);
        press(window, "Command6");
        press(window, "Command6");
        EXPECT_EQ(entries(window, "List2").count(), 0);
    });
}

TEST_F(BugTimesWindow, SaveWritesReloadsAndStays)
{
    look([this](const QWidget& window) {
        EXPECT_EQ(cell(7, 1), "00:19:05");
        prompts.expectLine(kQuestion, QString("07, 00:00:09"));
        press(window, "Command1");
        press(window, "Command7");
        EXPECT_TRUE(window.isVisible());
        EXPECT_EQ(folder.read(kFile), "Player1\r\n07, 00:19:05\r\n07, 00:00:09\r\nPlayer2\r\n12, 00:41:30\r\n");
        EXPECT_EQ(cell(7, 1), "00:00:09");  // the later entry
        press(window, "Command3");
        press(window, "Command7");
        EXPECT_EQ(folder.read(kFile), "Player1\r\nPlayer2\r\n12, 00:41:30\r\n");
    });
    EXPECT_TRUE(mainWindow().isVisible());
}

TEST_F(BugTimesWindow, SaveWithoutEntriesDeletesTheFile)
{
    look([this](const QWidget& window) {
        press(window, "Command3");
        press(window, "Command6");
        press(window, "Command7");
        EXPECT_FALSE(folder.has(kFile));
        press(window, "Command7");
    });
    look([](const QWidget& window) { EXPECT_EQ(entries(window, "List1").count(), 0); });
}

TEST_F(BugTimesWindow, LevelThatDoesNotExistIsReportedByTheLoading)
{
    look([this](const QWidget& window) {
        prompts.expectLine(kQuestion, QString("55, 00:00:09"));
        press(window, "Command1");
        expectError("Subscript out of range: bugs.dat");
        press(window, "Command7");
        EXPECT_TRUE(window.isVisible());
        EXPECT_EQ(list().model()->rowCount(), 0);
        clickEntry(window, "List1", 1);
        press(window, "Command2");
        press(window, "Command7");
        EXPECT_EQ(list().model()->rowCount(), 55);
    });
}

TEST_F(BugTimesWindow, BytesOfOtherCodePagesAreWrittenBackUnchanged)
{
    folder.write(kFile, "Player1\r\n07\xE9 00:19:05\r\nPlayer2\r\n");
    look([](const QWidget& window) {
        EXPECT_EQ(texts(window, "List1"), QStringList({QString::fromUtf8("07é 00:19:05")}));
        press(window, "Command7");
    });
    EXPECT_EQ(folder.read(kFile), "Player1\r\n07\xE9 00:19:05\r\nPlayer2\r\n");
}

TEST_F(BugTimesWindow, CancelDiscardsEverything)
{
    const std::string before = folder.read(kFile);
    look([](const QWidget& window) {
        press(window, "Command3");
        press(window, "Command8");
        EXPECT_FALSE(window.isVisible());
    });
    EXPECT_EQ(folder.read(kFile), before);
}

TEST_F(BugTimesWindow, FailedSaveIsToldOnceAndLosesNothing)
{
    std::filesystem::remove(folder / kFile);
    folder.write("Marek/bugs.dat/in the way", "");
    look([this](const QWidget& window) {
        prompts.expectLine(kQuestion, QString("07, 00:00:09"));
        press(window, "Command1");
        expectError("Path/File access error: bugs.dat");
        press(window, "Command7");
        EXPECT_TRUE(window.isVisible());
        EXPECT_EQ(texts(window, "List1"), QStringList({"07, 00:00:09"}));
    });
    EXPECT_TRUE(folder.has("Marek/bugs.dat/in the way"));
}

}  // namespace
