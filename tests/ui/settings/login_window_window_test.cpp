// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/run_time_error.h"
#include "forms/screen_text.h"
#include "tests/support/trouble.h"
#include "tests/support/window_fixture.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QTimer>

namespace {

using kavo::toScreen;

class LoginWindow : public kavo::test::ProgramTest
{
protected:
    QComboBox& nick() { return control<QComboBox>(loginWindow(), "Combo1"); }
    QPushButton& ok() { return control<QPushButton>(loginWindow(), "cmdOK"); }
    QCheckBox& autoLogin() { return control<QCheckBox>(loginWindow(), "Check1"); }

    /// As typed; QTest has no keys for other letters than ASCII's, which are pasted.
    void type(const QString& text)
    {
        nick().lineEdit()->selectAll();
        QTest::keyClick(nick().lineEdit(), Qt::Key_Delete);
        if (text == QString::fromLatin1(text.toLatin1()))
            QTest::keyClicks(nick().lineEdit(), text);
        else
            nick().lineEdit()->insert(text);
    }

    void removeLoginFiles()
    {
        for (const char* name : {"users.dat", "curUser.dat", "autolog.dat"}) std::filesystem::remove(folder / name);
    }
};

TEST_F(LoginWindow, HasItsCaptionControlsAndTooltip)
{
    start();
    EXPECT_TRUE(loginWindow().isVisible());
    EXPECT_EQ(loginWindow().windowTitle(), "Login");
    EXPECT_EQ(loginWindow().objectName(), "frmLogin");
    EXPECT_EQ(nick().toolTip(), QString::fromUtf8("Не более 12 символов"));
    EXPECT_EQ(ok().text(), "OK");
    EXPECT_EQ(control<QPushButton>(loginWindow(), "cmdCancel").text(), "Cancel");
    EXPECT_EQ(autoLogin().text(), "Auto-login");
    EXPECT_TRUE(loginWindow().windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    EXPECT_FALSE(mainWindow().isVisible());
}

TEST_F(LoginWindow, ListsEveryLineOfTheUsersFile)
{
    folder.write("users.dat", "bob\r\n\r\nbob\r\n Anna\n");
    folder.write("curUser.dat", "Anna\r\n");
    start();
    QStringList items;
    for (int i = 0; i < nick().count(); ++i) items << nick().itemText(i);
    EXPECT_EQ(items, QStringList({"bob", "", "bob", " Anna"}));
    EXPECT_EQ(nick().currentText(), "Anna");
}

TEST_F(LoginWindow, OffersTheLastNickToBeTypedOver)
{
    start();
    EXPECT_EQ(nick().lineEdit()->selectedText(), "Marek");
    EXPECT_EQ(loginWindow().focusWidget(), &nick());
}

TEST_F(LoginWindow, FirstStartMakesTheUser)
{
    removeLoginFiles();
    start();
    EXPECT_EQ(nick().count(), 0);
    EXPECT_EQ(nick().currentText(), "");
    EXPECT_FALSE(ok().isEnabled());
    type("Marek");
    EXPECT_TRUE(ok().isEnabled());
    std::filesystem::remove_all(folder / "Marek");
    std::filesystem::create_directories(folder / "other");
    prompts.expectMessage({"New user: Marek"}, [this] {
        EXPECT_EQ(folder.read("users.dat"), "Marek\r\n");
        EXPECT_EQ(folder.read("autolog.dat"), " 0 \r\n");
        EXPECT_FALSE(folder.has("curUser.dat"));
        folder.write("Marek/data.ini", "\r\n 3 \r\n\r\nGood\r\n");
    });
    click(ok());
    EXPECT_EQ(folder.read("curUser.dat"), "Marek\r\n");
    EXPECT_TRUE(mainWindow().isVisible());
    EXPECT_FALSE(loginWindow().isVisible());
}

TEST_F(LoginWindow, AllowsTenCharactersButNotElevenAndNotBlanksAlone)
{
    start();
    const struct
    {
        QString text;
        bool isAllowed;
    } cases[] = {
        {"abcdefghij", true},
        {"abcdefghijk", false},
        {"", false},
        {"   ", false},
        {" bob", true},
        {QString::fromUtf8("Жаннажанна"), true},
        {QString::fromUtf8("Жаннажаннаж"), false},
    };
    for (const auto& [text, isAllowed] : cases) {
        type(text);
        EXPECT_EQ(ok().isEnabled(), isAllowed) << qPrintable(text);
    }
}

TEST_F(LoginWindow, LeadingBlankBelongsToTheFolder)
{
    start();
    type(" bob");
    prompts.expectMessage({"New user:  bob"}, [this] { folder.write(" bob/data.ini", "\r\n 3 \r\n\r\nGood\r\n"); });
    click(ok());
    EXPECT_EQ(folder.read("curUser.dat"), " bob\r\n");
    EXPECT_EQ(mainWindow().windowTitle(), "Kavo Timing 2.1  User:  bob");
}

TEST_F(LoginWindow, FolderWithoutAFileCountsAsNewButMakesNoUser)
{
    const std::string users = folder.read("users.dat");
    std::filesystem::create_directories(folder / "ghost");
    start();
    type("ghost");
    // data.ini is missing, so the loading asks for the settings; nothing else is shown.
    folder.write("ghost/sub/file", "");
    onModalWindow([](QWidget& options) {
        EXPECT_EQ(options.objectName(), "Form2");
        options.close();
    });
    click(ok());
    EXPECT_EQ(folder.read("users.dat"), users);
    EXPECT_EQ(folder.read("curUser.dat"), "ghost\r\n");
}

TEST_F(LoginWindow, NickThatLeadsOutOfTheProgramFolderWritesNothingThere)
{
    start();
    type("../evil");
    prompts.expectMessage({.text = "Path not found: evil", .icon = kavo::MessageIcon::Critical});
    click(ok());
    EXPECT_FALSE(std::filesystem::exists(folder.path().parent_path() / "evil"));
    EXPECT_EQ(folder.read("curUser.dat"), "../evil\r\n");
    EXPECT_EQ(mainWindow().windowTitle(), "Kavo Timing");
}

TEST_F(LoginWindow, AutoLoginOpensTheMainWindowWithoutAsking)
{
    startLoggedIn();
    EXPECT_FALSE(loginWindow().isVisible());
    EXPECT_TRUE(mainWindow().isVisible());
    EXPECT_EQ(mainWindow().windowTitle(), "Kavo Timing 2.1  User: Marek");
    EXPECT_EQ(folder.read("autolog.dat"), " 1 \r\n");
}

TEST_F(LoginWindow, AutoLoginLeavesTheFilesAloneAndMakesNoControlsThatNobodySees)
{
    folder.write("autolog.dat", " 1 \r\n");
    const auto longAgo = std::chrono::floor<std::chrono::seconds>(std::filesystem::file_time_type::clock::now()) -
                         std::chrono::hours(1000);
    for (const char* name : {"autolog.dat", "curUser.dat"}) std::filesystem::last_write_time(folder / name, longAgo);
    start();
    EXPECT_TRUE(mainWindow().isVisible());
    EXPECT_EQ(loginWindow().findChild<QComboBox*>(), nullptr);
    for (const char* name : {"autolog.dat", "curUser.dat"})
        EXPECT_EQ(std::filesystem::last_write_time(folder / name), longAgo) << name;
    QTest::keyClick(&control<QWidget>(mainWindow(), "lv"), Qt::Key_F12);
    EXPECT_TRUE(nick().isVisible());
}

TEST_F(LoginWindow, AutoLoginTakesTheFirstUserThatIsShownLikeTheLastOne)
{
    folder.write("users.dat", "Ren\xE9\r\nRen\xC3\xA9\r\n");
    folder.write("curUser.dat", "Ren\xC3\xA9\r\n");
    folder.write("autolog.dat", " 1 \r\n");
    for (const char* user : {"Ren\xE9", "Ren\xC3\xA9"})
        folder.write(std::string(user) + "/data.ini", "\r\n 3 \r\n\r\nGood\r\n");
    start();
    EXPECT_TRUE(mainWindow().isVisible());
    EXPECT_EQ(folder.read("curUser.dat"), "Ren\xE9\r\n");
}

#ifndef _WIN32  // where no process makes its disk small

TEST_F(LoginWindow, AutoLoginThatFailsLeavesTheFilledWindowThere)
{
    folder.write("autolog.dat", "1\r\n");
    const kavo::test::SmallDisk full(0);
    EXPECT_THROW(start(), kavo::RunTimeError);
    EXPECT_TRUE(loginWindow().isVisible());
    EXPECT_EQ(nick().currentText(), "Marek");
    EXPECT_TRUE(autoLogin().isChecked());
    EXPECT_TRUE(ok().isEnabled());
}

#endif

TEST_F(LoginWindow, OnlyTheNumberOneMeansAutoLogin)
{
    folder.write("autolog.dat", " 2 \r\n");
    start();
    EXPECT_TRUE(loginWindow().isVisible());
    EXPECT_FALSE(autoLogin().isChecked());
}

TEST_F(LoginWindow, BrokenLoginFileIsReportedAndLeavesTheWindowThere)
{
    folder.write("curUser.dat", "");
    folder.write("autolog.dat", " 1 \r\n");
    EXPECT_THROW(start(), kavo::RunTimeError);
    EXPECT_TRUE(loginWindow().isVisible());
}

TEST_F(LoginWindow, ChangeUserOffersTheNickAndTheAutoLoginChoice)
{
    startLoggedIn();
    QTest::keyClick(&control<QWidget>(mainWindow(), "lv"), Qt::Key_F12);
    EXPECT_TRUE(loginWindow().isVisible());
    EXPECT_FALSE(mainWindow().isVisible());
    EXPECT_EQ(folder.read("autolog.dat"), "0\r\n");
    EXPECT_EQ(nick().currentText(), "Marek");
    EXPECT_TRUE(autoLogin().isChecked());
    nick().setCurrentIndex(1);
    click(ok());
    EXPECT_EQ(folder.read("autolog.dat"), " 1 \r\n");
    EXPECT_EQ(mainWindow().windowTitle(), QString::fromUtf8("Kavo Timing 2.1  User: Жанна"));
}

TEST_F(LoginWindow, EscapeAndCancelEndTheProgramWithoutWriting)
{
    for (const bool byKey : {true, false}) {
        std::filesystem::remove(folder / "autolog.dat");
        start();
        QSignalSpy quits(qApp, &QCoreApplication::aboutToQuit);
        QTimer::singleShot(0, &loginWindow(), [this, byKey] {
            if (byKey)
                QTest::keyClick(nick().lineEdit(), Qt::Key_Escape);
            else
                click(control<QPushButton>(loginWindow(), "cmdCancel"));
        });
        EXPECT_EQ(runUntilQuit(), 0);
        EXPECT_FALSE(folder.has("autolog.dat"));
    }
}

TEST_F(LoginWindow, AutoLoginWithANickThatOkRefusesWaitsForTheUser)
{
    for (const char* nick : {"", "   ", "01234567890", "..", "a/b"}) {
        const std::string current = std::string(nick) + "\r\n";
        folder.write("curUser.dat", current);
        folder.write("autolog.dat", " 1 \r\n");
        const std::string users = folder.read("users.dat");
        start();
        EXPECT_TRUE(loginWindow().isVisible()) << nick;
        EXPECT_FALSE(mainWindow().isVisible()) << nick;
        EXPECT_TRUE(autoLogin().isChecked()) << nick;
        EXPECT_EQ(folder.read("curUser.dat"), current);
        EXPECT_EQ(folder.read("autolog.dat"), " 1 \r\n");
        EXPECT_EQ(folder.read("users.dat"), users);
        EXPECT_FALSE(folder.has("colors")) << nick;
        program.reset();
    }
}

TEST_F(LoginWindow, ListsNoMoreNicksThanAnybodyScrolls)
{
    std::string users;
    for (int i = 0; i < 20'000; ++i) users += "bob\r\n";
    folder.write("users.dat", users);
    start();
    EXPECT_EQ(nick().count(), 10'000);
    type("Marek");
    click(ok());
    EXPECT_TRUE(mainWindow().isVisible());
    EXPECT_EQ(folder.read("users.dat"), users);
}

}  // namespace
