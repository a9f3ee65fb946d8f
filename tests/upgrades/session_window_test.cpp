// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/settings.h"
#include "core/users.h"
#include "core/window_layout.h"
#include "forms/screen_text.h"
#include "forms/twips.h"
#include "tests/support/patience.h"
#include "tests/support/window_fixture.h"
#include "tests/upgrades/released_version.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>

namespace {

using kavo::Answer;
using kavo::test::ReleasedVersion;
using kavo::test::withWindow;

const QString kNewNick = "Zed";

/// A session of the present program in the program folder of a released version: every user logs in, and
/// saves or exports in every window that does; then somebody new comes along.
class UpgradeSession : public kavo::test::ProgramTest, public testing::WithParamInterface<ReleasedVersion>
{
protected:
    UpgradeSession()
    {
        std::filesystem::remove_all(folder.path());
        GetParam().copyTo(folder);
        std::filesystem::create_directories(folder / "exports");
    }

    [[nodiscard]] QString inFolder(const QString& name) const { return kavo::pathToScreen(folder.path()) + "/" + name; }

    static void press(const QWidget& window, const char* name) { click(control<QPushButton>(window, name)); }

    void logIn(const QString& nick)
    {
        auto& box = control<QComboBox>(loginWindow(), "Combo1");
        box.lineEdit()->setText(nick);
        click(control<QPushButton>(loginWindow(), "cmdOK"));
        EXPECT_EQ(mainWindow().windowTitle(), "Kavo Timing 2.1  User: " + nick);
        EXPECT_EQ(list().model()->rowCount(), 55);
        waitForItsPlace(nick);
    }

    /// A window manager moves a shown window in its own time, and no user is quicker than that.
    void waitForItsPlace(const QString& nick)
    {
        const std::string file = kavo::fromScreen(nick) + "/view.dat";
        if (!folder.has(file)) return;
        const int left = kavo::toPixels(kavo::parseLayoutValues(folder.read(file)).at(0));
        EXPECT_TRUE(QTest::qWaitFor([&] { return mainWindow().pos().x() == left; }, kavo::test::kPatience));
    }

    /// A nick without a folder: the Options dialog opens by itself.
    void logInForTheFirstTime(const QString& nick)
    {
        prompts.expectMessage({.text = "New user: " + kavo::fromScreen(nick)});
        const auto firstRun = [](QWidget& options) {
            control<QLineEdit>(options, "Text1").setText("game/stats.txt");
            press(options, "Command3");
        };
        EXPECT_TRUE(withWindow(
            "Form2", [&] { logIn(nick); }, firstRun));
    }

    void saveOptions()
    {
        withKey("Form2", Qt::Key_F2, [](QWidget& options) { press(options, "Command3"); });
    }

    void saveColours()
    {
        withKey("Form3", Qt::Key_F3, [](QWidget& view) {
            press(view, "Command2");
            control<QLineEdit>(view, "Text2").setText("As it was");
            press(view, "Command6");
            control<QSpinBox>(view, "Text1").setValue(9);
            press(view, "Command1");
            auto& schemes = control<QComboBox>(view, "cmbSheme");
            schemes.setCurrentIndex(schemes.findText("As it was"));
            press(view, "Command5");
        });
    }

    void addBugTime()
    {
        prompts.expectLine({QString::fromUtf8(kavo::messages::kAddBugTimeTitle.data()),
                            QString::fromUtf8(kavo::messages::kAddBugTimePrompt.data()),
                            QString::fromUtf8(kavo::messages::kBugTimePreset.data())},
                           QString("54, 03:00:01"));
        withKey("Form8", Qt::CTRL | Qt::Key_B, [](QWidget& bugTimes) {
            press(bugTimes, "Command1");
            press(bugTimes, "Command7");
        });
    }

    void renameTeam()
    {
        prompts.expectLine({"Change team name", "Input team name:", header(6)}, QString::fromUtf8("Пыль"));
        emit list().header()->sectionClicked(6);
    }

    void exportText(const QString& nick)
    {
        withKey("Form9", Qt::CTRL | Qt::Key_T, [this, &nick](QWidget& window) {
            prompts.expectFileToSave({"Form9"}, inFolder("exports/" + nick + ".txt"));
            press(window, "Command1");
            prompts.expectYesNo(
                {.text = std::string(kavo::messages::kExported), .title = std::string(kavo::messages::kExportedTitle)},
                Answer::No);
            press(window, "Command2");
            press(window, "Command3");
        });
    }

    void exportHtml(const QString& nick)
    {
        const QStringList templates = {"*Kavo Timing Template (*.ett)", "All files (*)"};
        withKey("Form11", Qt::CTRL | Qt::Key_H, [&](QWidget& window) {
            prompts.expectFileToOpen({"Form11", {.filters = templates, .startAt = templateFolder}},
                                     inFolder("own.ett"));
            press(window, "Command5");
            prompts.expectFileToSave({"Form11", {.filters = templates, .startAt = kavo::pathToScreen(folder.path())}},
                                     inFolder("exports/saved.ett"));
            press(window, "Command2");
            templateFolder = inFolder("exports");
            control<QLineEdit>(window, "Text1").setText(inFolder("exports/" + nick + ".html"));
            prompts.expectMessage({.text = std::string(kavo::messages::kOk)});
            press(window, "Command4");
        });
    }

    void useEveryWindow(const QString& nick)
    {
        saveOptions();
        saveColours();
        addBugTime();
        renameTeam();
        QTest::keyClick(&list(), Qt::Key_F5);
        exportText(nick);
        exportHtml(nick);
        EXPECT_TRUE(prompts.isDone());
    }

    QString templateFolder;  ///< where the last template was; none at first

    void changeUser()
    {
        QTest::keyClick(&list(), Qt::Key_F12);
        EXPECT_TRUE(loginWindow().isVisible());
    }

    /// Everything that the session left, as far as it is the same on every machine.
    [[nodiscard]] std::map<std::string, std::string> filesLeft()
    {
        auto files = kavo::test::filesOf(folder.path());
        files.erase("kavo-timing.lock");                        // of the running program
        files.erase(kavo::fromScreen(kNewNick) + "/view.dat");  // the designed layout, by the fonts and the screen
        for (auto& [name, bytes] : files)
            if (name.ends_with("/view.dat")) bytes = withoutHeight(bytes);
        return files;
    }

    /// Line 3 of `view.dat` follows the screen's height.
    static std::string withoutHeight(std::string text)
    {
        const std::size_t second = text.find("\r\n") + 2;
        const std::size_t third = text.find("\r\n", second) + 2;
        return text.replace(third, text.find("\r\n", third) - third, " HEIGHT ");
    }
};

TEST_P(UpgradeSession, LeavesEveryFileAsThatVersionDid)
{
    start();
    for (const std::string& nick : kavo::readUsers(folder.path())) {
        logIn(kavo::toScreen(nick));
        useEveryWindow(kavo::toScreen(nick));
        changeUser();
    }
    logInForTheFirstTime(kNewNick);
    useEveryWindow(kNewNick);
    mainWindow().close();
    program.reset();
    GetParam().expectAllAsLeft("session", filesLeft());
}

INSTANTIATE_TEST_SUITE_P(From, UpgradeSession, testing::ValuesIn(kavo::test::releasedVersions()),
                         kavo::test::testNameOf);

}  // namespace
