// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/about/about_window.h"

#include "forms/window_painting.h"
#include "tests/support/patience.h"
#include "tests/support/recording_desktop.h"
#include "tests/support/trouble.h"
#include "tests/support/window_fixture.h"
#include "ui/about/links_window.h"
#include "ui/about/splash_window.h"

#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>

namespace {

using kavo::MessageIcon;
using kavo::test::kPatience;

constexpr QLatin1StringView kSharedTools("SOFTWARE\\Microsoft\\Shared Tools");

class AboutWindows : public kavo::test::ProgramTest
{
protected:
    AboutWindows() { session.programFolder = folder.path(); }

    template <typename Window>
    Window& open()
    {
        auto opened = std::make_unique<Window>(services, nullptr);
        Window& shown = *opened;
        window = std::move(opened);
        window->show();
        window->activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(window.get(), kPatience));
        return shown;
    }

    QString text(const char* label) { return control<QLabel>(*window, label).text(); }

    static QStringList entries(const QListWidget& list)
    {
        QStringList texts;
        for (int i = 0; i < list.count(); ++i) texts << list.item(i)->text();
        return texts;
    }

    static void doubleClickEntry(QListWidget& list, int row)
    {
        const QPoint middle = list.visualItemRect(list.item(row)).center();
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, middle);
        QTest::mouseDClick(list.viewport(), Qt::LeftButton, {}, middle);
    }

    void expectError(const std::string& report)
    {
        prompts.expectMessage({report, "NRL Kavo Timing", MessageIcon::Critical});
    }

    void waitForReport()
    {
        EXPECT_TRUE(QTest::qWaitFor([this] { return prompts.isDone(); }, kPatience));
    }

    kavo::Session session;
    kavo::test::RecordingDesktop desktop;
    kavo::SystemClock clock;
    kavo::Services services{session, prompts, desktop, clock};
    std::unique_ptr<QWidget> window;
};

TEST_F(AboutWindows, AboutShowsVersionAndHistory)
{
    folder.write("history.txt", "First line\r\n\r\nLast: \xE9 and \xD0\x96\r\n");
    open<frmAbout>();
    EXPECT_EQ(window->objectName(), "frmAbout");
    EXPECT_STREQ(window->metaObject()->className(), "frmAbout");
    EXPECT_EQ(window->windowTitle(), "About NRL Kavo Timing");
    EXPECT_EQ(text("lblTitle"), "Kavo Timing by Nurel");
    EXPECT_EQ(text("lblVersion"), "Version 2.1 build 73");
    EXPECT_EQ(control<QGroupBox>(*window, "Frame1").title(), "Version history");
    const auto& history = control<QPlainTextEdit>(*window, "Text1");
    EXPECT_EQ(history.toPlainText(), QString::fromUtf8("First line\n\nLast: é and Ж\n"));
    EXPECT_TRUE(history.isReadOnly());
    EXPECT_EQ(control<QPushButton>(*window, "cmdSysInfo").text(), "&System");
    for (const char* link : {"Label1", "Label2", "Label3"}) EXPECT_TRUE(text(link).startsWith("https://")) << link;
}

TEST_F(AboutWindows, AboutIsPaintedLikeEveryOtherWindow)
{
    const auto expectLinks = [this](const QColor& colour) {
        for (const char* link : {"Label1", "Label2", "Label3"})
            EXPECT_EQ(control<QLabel>(*window, link).palette().color(QPalette::WindowText), colour) << link;
    };
    open<frmAbout>();
    EXPECT_EQ(window->palette().color(QPalette::Window), QColor(255, 255, 255));
    expectLinks(QColor(0, 84, 180));
    folder.write("Marek/colors/colors.ini", " 0 \r\n 255 \r\n 65280 \r\n 16711680 \r\n");
    open<frmAbout>();
    EXPECT_EQ(window->palette().color(QPalette::Window), QColor(0, 0, 0));
    EXPECT_EQ(control<QLabel>(*window, "lblTitle").palette().color(QPalette::WindowText), QColor(0, 255, 0));
    expectLinks(QColor(125, 185, 255));  // not of the user's colours: they have to look like links
}

TEST_F(AboutWindows, FirstLinkOpensByADoubleClickTheOthersByAClick)
{
    open<frmAbout>();
    auto& first = control<QLabel>(*window, "Label1");
    QTest::mouseClick(&first, Qt::LeftButton);
    EXPECT_EQ(desktop.opened, QStringList());
    QTest::mouseDClick(&first, Qt::LeftButton);
    EXPECT_EQ(desktop.opened, QStringList(text("Label1")));
    desktop.opened.clear();
    for (const char* name : {"Label2", "Label3"}) {
        auto& link = control<QLabel>(*window, name);
        QTest::mouseClick(&link, Qt::RightButton);
        QTest::mousePress(&link, Qt::LeftButton);
        QTest::mouseRelease(&link, Qt::LeftButton, {}, QPoint(5, 500));
        EXPECT_EQ(desktop.opened, QStringList()) << "let go elsewhere";
        QTest::mouseClick(&link, Qt::LeftButton);
        EXPECT_EQ(desktop.opened, QStringList(link.text()));
        desktop.opened.clear();
    }
}

TEST_F(AboutWindows, LinksAreReachedAndOpenedByKey)
{
    open<frmAbout>();
    auto& first = control<QLabel>(*window, "Label1");
    control<QPlainTextEdit>(*window, "Text1").setFocus();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_TRUE(first.hasFocus());
    EXPECT_EQ(first.frameShape(), QFrame::Box);
    QTest::keyClick(&first, Qt::Key_Return);
    QTest::keyClick(&first, Qt::Key_Tab);
    EXPECT_EQ(first.frameShape(), QFrame::NoFrame);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    EXPECT_EQ(desktop.opened, QStringList({text("Label1"), text("Label2")}));
    EXPECT_TRUE(window->isVisible());
}

TEST_F(AboutWindows, AboutWithoutItsHistoryReportsThatAndStays)
{
    std::filesystem::remove(folder / "history.txt");
    expectError("File not found: history.txt");
    open<frmAbout>();
    waitForReport();
    EXPECT_EQ(text("lblVersion"), "Version 2.1 build 73");
    click(control<QPushButton>(*window, "cmdOK"));
    EXPECT_FALSE(window->isVisible());
}

#ifndef Q_OS_WIN
TEST_F(AboutWindows, PipesInPlaceOfTheirFilesAreReportedAtOnce)
{
    for (const char* name : {"history.txt", "links.txt"}) {
        std::filesystem::remove(folder / name);
        kavo::test::makePipe((folder / name).string());
    }
    expectError("Path/File access error: history.txt");
    open<frmAbout>();
    waitForReport();
    expectError("Path/File access error: links.txt");
    open<Form4>();
    waitForReport();
}
#endif

TEST_F(AboutWindows, HistoryIsShownAsFarAsABoxCanShowIt)
{
    const std::string line = std::string(98, 'x') + "\r\n";
    std::string history;
    while (history.size() < 1'000'000) history += line;  // 10,000 lines
    folder.write("history.txt", history);
    open<frmAbout>();
    EXPECT_EQ(control<QPlainTextEdit>(*window, "Text1").toPlainText().size(), 990'000);
    folder.write("history.txt", history + history);
    open<frmAbout>();
    const QString shown = control<QPlainTextEdit>(*window, "Text1").toPlainText();
    EXPECT_EQ(shown.size(), 990'001);
    EXPECT_TRUE(shown.endsWith(QString::fromUtf8("x\n…")));
}

TEST_F(AboutWindows, HistoryOfOneEndlessLineIsCutThere)
{
    folder.write("history.txt", "first\r\n" + std::string(3'000'000, 'x'));
    open<frmAbout>();
    EXPECT_EQ(control<QPlainTextEdit>(*window, "Text1").toPlainText(),
              "first\n" + QString(4096, 'x') + QString::fromUtf8("…"));
    folder.write("history.txt", std::string(4097, 'x') + "\r\nlast");
    open<frmAbout>();
    EXPECT_EQ(control<QPlainTextEdit>(*window, "Text1").toPlainText(),
              QString(4096, 'x') + QString::fromUtf8("…\nlast"));
}

TEST_F(AboutWindows, AboutWithoutACurrentUserShowsItsHistory)
{
    std::filesystem::remove(folder / "curUser.dat");
    folder.write("history.txt", "First line\r\n");
    expectError("File not found: curUser.dat");
    open<frmAbout>();
    waitForReport();
    EXPECT_EQ(control<QPlainTextEdit>(*window, "Text1").toPlainText(), "First line\n");
}

TEST_F(AboutWindows, SystemInformationComesFromTheRegistryFirst)
{
    desktop.programs = {{"hardinfo", "/usr/bin/hardinfo"}};
    folder.write("MSINFO32.EXE", "");
    const QString shared = kSharedTools;
    desktop.registry[shared + "\\MSINFO|PATH"] = "C:\\info.exe";
    desktop.registry[shared + " Location|MSINFO"] = "elsewhere";
    open<frmAbout>();
    click(control<QPushButton>(*window, "cmdSysInfo"));
    EXPECT_EQ(desktop.started, QStringList("C:\\info.exe"));
}

TEST_F(AboutWindows, SystemInformationIsLookedForInTheSecondFolderOnlyWhenItIsThere)
{
    // The registry's folder and the program's name are joined by a backslash, here part of a file's name.
    const QString inFolder = QString::fromStdString((folder / "tools").string());
    desktop.registry[kSharedTools + " Location|MSINFO"] = inFolder;
    open<frmAbout>();
    prompts.expectMessage({"System Information Is Unavailable At This Time"});
    click(control<QPushButton>(*window, "cmdSysInfo"));
    EXPECT_EQ(desktop.started, QStringList());
    folder.write("tools\\MSINFO32.EXE", "");
    click(control<QPushButton>(*window, "cmdSysInfo"));
    EXPECT_EQ(desktop.started, QStringList(inFolder + "\\MSINFO32.EXE"));
}

TEST_F(AboutWindows, SystemInformationIsTheFirstKnownProgramOnThePath)
{
    desktop.programs = {{"gnome-system-monitor", "/usr/bin/gnome-system-monitor"},
                        {"gnome-control-center", "/usr/bin/gnome-control-center"}};
    open<frmAbout>();
    QTest::keyClick(window.get(), Qt::Key_S, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return !desktop.started.isEmpty(); }, kPatience));
    EXPECT_EQ(desktop.started, QStringList("/usr/bin/gnome-control-center info-overview"));
    desktop.startsPrograms = false;
    prompts.expectMessage({"System Information Is Unavailable At This Time"});
    click(control<QPushButton>(*window, "cmdSysInfo"));
}

TEST_F(AboutWindows, LinksShowPairsSideBySide)
{
    folder.write("links.txt", "https://a.example/\r\nFirst\r\nhttps://b.example/\r\nSecond\r\n");
    open<Form4>();
    EXPECT_EQ(window->windowTitle(), "Links:");
    EXPECT_EQ(window->objectName(), "Form4");
    EXPECT_EQ(text("Label1"), "Dbl-Click to follow link");
    EXPECT_EQ(control<QPushButton>(*window, "Command2").text(), "Close");
    auto& addresses = control<QListWidget>(*window, "List1");
    auto& descriptions = control<QListWidget>(*window, "List2");
    EXPECT_EQ(entries(addresses), QStringList({"https://a.example/", "https://b.example/"}));
    EXPECT_EQ(entries(descriptions), QStringList({"First", "Second"}));
    doubleClickEntry(addresses, 1);
    EXPECT_EQ(desktop.opened, QStringList("https://b.example/"));
    EXPECT_EQ(descriptions.currentRow(), 1);
    doubleClickEntry(descriptions, 0);
    EXPECT_EQ(desktop.opened.size(), 1) << "descriptions lead nowhere";
    EXPECT_EQ(addresses.currentRow(), 0);
    addresses.setFocus();
    QTest::keyClick(&addresses, Qt::Key_Return);
    EXPECT_EQ(desktop.opened, QStringList({"https://b.example/", "https://a.example/"}));
    EXPECT_TRUE(window->isVisible());
    click(control<QPushButton>(*window, "Command2"));
    EXPECT_FALSE(window->isVisible());
}

TEST_F(AboutWindows, OddLinksAreShownAsFarAsTheyGoAndReported)
{
    folder.write("links.txt", "https://a.example/\r\nFirst\r\nhttps://b.example/\r\n");
    expectError("Input past end of file: links.txt");
    open<Form4>();
    waitForReport();
    EXPECT_TRUE(window->isVisible());
    auto& addresses = control<QListWidget>(*window, "List1");
    EXPECT_EQ(entries(addresses), QStringList({"https://a.example/", "https://b.example/"}));
    EXPECT_EQ(entries(control<QListWidget>(*window, "List2")), QStringList("First"));
    doubleClickEntry(addresses, 1);
    EXPECT_EQ(desktop.opened, QStringList("https://b.example/"));
}

TEST_F(AboutWindows, MissingLinksAreReported)
{
    std::filesystem::remove(folder / "links.txt");
    expectError("File not found: links.txt");
    open<Form4>();
    waitForReport();
    EXPECT_EQ(control<QListWidget>(*window, "List1").count(), 0);
}

TEST_F(AboutWindows, EmptyLinksOpenNothing)
{
    folder.write("links.txt", "");
    open<Form4>();
    QTest::keyClick(&control<QListWidget>(*window, "List1"), Qt::Key_Return);
    EXPECT_EQ(desktop.opened, QStringList());
}

TEST_F(AboutWindows, EscapeClosesThemAtItsRelease)
{
    for (const bool isAbout : {true, false}) {
        isAbout ? static_cast<void>(open<frmAbout>()) : static_cast<void>(open<Form4>());
        QTest::keyPress(window.get(), Qt::Key_Escape);
        EXPECT_TRUE(window->isVisible());
        QTest::keyRelease(window.get(), Qt::Key_Escape);
        EXPECT_FALSE(window->isVisible());
    }
}

TEST_F(AboutWindows, SplashShowsLogoTitleAndVersion)
{
    window = std::make_unique<frmSplash>();
    window->show();
    EXPECT_EQ(window->objectName(), "frmSplash");
    EXPECT_EQ(text("lblProductName"), "NRL Kavo Timing");
    EXPECT_EQ(text("lblVersion"), "Version 2.1 build 73");
    const QPixmap logo = control<QLabel>(*window, "imgLogo").pixmap();
    EXPECT_EQ(logo.deviceIndependentSize(), QSizeF(128, 128));
    EXPECT_NE(logo.toImage().pixelColor(64, 128 * 36 / 64).alpha(), 0) << "the middle of the dial";
    EXPECT_FALSE(control<QGroupBox>(*window, "Frame1").isHidden());
}

TEST_F(AboutWindows, TitlesStandOutInEveryFont)
{
    const QFont usual = QApplication::font();
    for (const int points : {8, 12, 20, 30}) {
        QFont font = usual;
        font.setPointSize(points);
        QApplication::setFont(font);
        open<frmAbout>();
        const auto isLarger = [this](const char* title, const char* text) {
            return control<QLabel>(*window, title).sizeHint().height() >
                   control<QLabel>(*window, text).sizeHint().height();
        };
        EXPECT_TRUE(isLarger("lblTitle", "lblVersion")) << points;
        window = std::make_unique<frmSplash>();
        EXPECT_TRUE(isLarger("lblProductName", "lblVersion")) << points;
    }
    QApplication::setFont(usual);
}

TEST_F(AboutWindows, SplashClosesByAKeyOrAClick)
{
    window = std::make_unique<frmSplash>();
    window->show();
    QTest::keyClick(window.get(), Qt::Key_A);
    EXPECT_FALSE(window->isVisible());
    window->show();
    QTest::mouseClick(&control<QGroupBox>(*window, "Frame1"), Qt::LeftButton);
    EXPECT_FALSE(window->isVisible());
}

TEST_F(AboutWindows, LogoIsCrispInEverySize)
{
    const QIcon icon = QApplication::windowIcon();
    for (const int size : {16, 24, 32, 48, 64, 128, 256, 512}) {
        const QImage image = icon.pixmap(QSize(size, size), 1.0).toImage();
        ASSERT_EQ(image.size(), QSize(size, size));
        int seen = 0;
        int halfSeen = 0;
        for (int y = 0; y < size; ++y)
            for (int x = 0; x < size; ++x) {
                const int alpha = image.pixelColor(x, y).alpha();
                seen += alpha > 0;
                halfSeen += alpha > 0 && alpha < 255;
            }
        EXPECT_GT(seen, size * size / 3) << size;
        // Only the edges are blended: a picture made larger from a smaller one would be blurred everywhere.
        EXPECT_LT(halfSeen, 14 * size) << size;
    }
}

TEST_F(AboutWindows, AboutStaysOpenBesideTheMainWindowAndThereIsOne)
{
    startLoggedIn();
    const auto aboutWindows = [] {
        int count = 0;
        for (const QWidget* shown : QApplication::topLevelWidgets())
            count += shown->isVisible() && shown->objectName() == "frmAbout";
        return count;
    };
    mainWindow().mnuAbout_Click();
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    mainWindow().mnuAbout_Click();
    EXPECT_EQ(aboutWindows(), 1);
    mainWindow().mnuRefresh_Click();
    EXPECT_EQ(aboutWindows(), 1) << "a reload leaves it alone";
    mainWindow().close();
    EXPECT_EQ(aboutWindows(), 0);
}

}  // namespace
