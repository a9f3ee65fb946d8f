// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/updater/updater_window_fixture.h"

#include <QTreeView>

#include <vector>

namespace {

using kavo::MessageIcon;
using kavo::test::always;
using kavo::test::kTransferFailed;
using kavo::test::PageServer;
using kavo::test::response;
using kavo::test::sample;
using kavo::test::samplePage;
using kavo::test::sampleTargets;
using kavo::test::ShownStatus;
using kavo::test::targetsWithoutTimes;
using kavo::test::waitUntil;
using namespace std::chrono_literals;

class UpdaterWindow : public kavo::test::UpdaterWindowTest
{
};

TEST_F(UpdaterWindow, HasItsCaptionAndControls)
{
    window = std::make_unique<Form7>(services, nullptr);
    window->show();
    EXPECT_EQ(window->windowTitle(), "Targets-updater");
    EXPECT_EQ(window->objectName(), "Form7");
    EXPECT_STREQ(window->metaObject()->className(), "Form7");
    EXPECT_EQ(statusText(), "Update process:");
    EXPECT_EQ(control<QLabel>(*window, "Label2").text(), "You'd better to be connected 2 Internet");
    EXPECT_FALSE(bar().isVisible());
    EXPECT_EQ(update().text(), "Update!");
    EXPECT_EQ(closeButton().text(), "Close");
    EXPECT_TRUE(update().isDefault());
    EXPECT_EQ(window->focusWidget(), &update());
    EXPECT_EQ(timer1().interval(), 5000);
    EXPECT_FALSE(timer1().isActive());
    const auto* timer2 = window->findChild<QTimer*>("Timer2");
    EXPECT_EQ(timer2->interval(), 1000);
    EXPECT_FALSE(timer2->isActive());
}

TEST_F(UpdaterWindow, UpdatesTheTargetsInEightSteps)
{
    const std::string former = folder.read("targets.txt");
    const PageServer server(always(response(samplePage())));
    open();
    pressUpdate(server);
    EXPECT_TRUE(bar().isVisible());
    EXPECT_EQ(statusText(), "Connecting...");
    EXPECT_EQ(bar().value(), 1);
    EXPECT_FALSE(update().isEnabled());
    waitForEnd();
    // The request may be on its way, which is a step, before the window first waits for it.
    const int waitingFrom = status->shown().at(2).progress;
    EXPECT_TRUE(waitingFrom == 1 || waitingFrom == 2) << waitingFrom;
    const std::vector<ShownStatus> expected = {
        {"Update process:", 0},  {"Connecting...", 0},   {"Getting...", waitingFrom},
        {"Disconnecting...", 5}, {"Forming file...", 6}, {"Copying file...", 7},
        {"Finished!", 8}};
    EXPECT_EQ(status->shown(), expected);
    EXPECT_EQ(bar().maximum(), 8);
    EXPECT_EQ(bar().value(), 8);
    EXPECT_EQ(folder.read("targets.txt"), sampleTargets());
    EXPECT_EQ(folder.read("targets.bak"), former);
    EXPECT_EQ(folder.read("targets_old.txt"), sample("data/targets_old.txt"));
    EXPECT_EQ(server.requests(), QStringList("GET /records_kavo_wrs.php?mode=text HTTP/1.1"));
    EXPECT_FALSE(timer1().isActive());
}

TEST_F(UpdaterWindow, SecondRunStillTakesTheFirstPage)
{
    const PageServer first(always(response(samplePage())));
    const PageServer second(always(response(samplePage().replace("14,42", "99,99"))));
    open();
    pressUpdate(first);
    waitForEnd();
    pressUpdate(second);
    EXPECT_EQ(bar().value(), 1);
    waitForEnd();
    EXPECT_EQ(second.requests().size(), 1);
    EXPECT_EQ(folder.read("targets.txt"), sampleTargets());

    open();  // a new window starts with an empty page
    pressUpdate(second);
    waitForEnd();
    EXPECT_TRUE(folder.read("targets.txt").starts_with("00:99:99,"));
}

TEST_F(UpdaterWindow, TransferErrorIsToldAndTheParsingStillRuns)
{
    const std::string former = folder.read("targets.txt");
    const PageServer server(always(response("<td align=\"right\">12,34</td>", "404 Not Found")));
    open();
    prompts.expectMessage(kTransferFailed, [this] { EXPECT_EQ(statusText(), "Getting..."); });
    pressUpdate(server);
    waitForEnd();
    EXPECT_TRUE(prompts.isDone());
    EXPECT_EQ(statusText(), "Finished!");
    EXPECT_EQ(bar().value(), bar().maximum());
    EXPECT_EQ(folder.read("targets.txt"), targetsWithoutTimes());
    EXPECT_EQ(folder.read("targets.bak"), former);
}

TEST_F(UpdaterWindow, AfterAnErrorTheStateTellsWhereTheFormerTargetsAre)
{
    const auto tip = [this] { return control<QLabel>(*window, "Label1").toolTip(); };
    const PageServer bad(always(response("", "404 Not Found")));
    const PageServer good(always(response(samplePage())));
    open();
    EXPECT_EQ(tip(), "");
    prompts.expectMessage(kTransferFailed);
    pressUpdate(bad);
    waitForEnd();
    EXPECT_EQ(tip(), "The page did not come whole. The former targets are in targets.bak");
    pressUpdate(good);
    EXPECT_EQ(tip(), "");
    waitForEnd();
    EXPECT_EQ(tip(), "");
}

TEST_F(UpdaterWindow, ErrorAfterASuccessParsesWhatThereIs)
{
    const PageServer good(always(response(samplePage())));
    const PageServer bad(always("HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\n<td align=\"right\">99,99</td>"));
    open();
    pressUpdate(good);
    waitForEnd();
    prompts.expectMessage(kTransferFailed);
    pressUpdate(bad);
    waitForEnd();
    EXPECT_EQ(folder.read("targets.txt"), sampleTargets());
}

TEST_F(UpdaterWindow, PageWithoutMarkersIsWrittenAsItIs)
{
    const PageServer server(always(response("abcdefghijklmnopqrst")));
    open();
    pressUpdate(server);
    waitForEnd();
    EXPECT_TRUE(folder.read("targets.txt").starts_with("0nopqrst,00:15:23,"));
}

TEST_F(UpdaterWindow, MissingFixedTargetsEndTheUpdateBeforeTheTargets)
{
    const std::string former = folder.read("targets.txt");
    std::filesystem::remove(folder / "targets_old.txt");
    const PageServer server(always(response(samplePage())));
    open();
    prompts.expectMessage({"File not found: targets_old.txt", "NRL Kavo Timing", MessageIcon::Critical});
    pressUpdate(server);
    waitForEnd();
    EXPECT_TRUE(waitUntil([this] { return prompts.isDone(); }));
    EXPECT_EQ(statusText(), "Copying file...");
    EXPECT_EQ(folder.read("targets.txt"), former);
    EXPECT_FALSE(folder.has("targets.bak"));
    EXPECT_FALSE(timer1().isActive());
    folder.write("targets_old.txt", sample("data/targets_old.txt"));
    pressUpdate(server);
    waitForEnd();
    EXPECT_EQ(folder.read("targets.txt"), sampleTargets());
}

/// Answers with the start of a page, and never with its end.
void startOnly(QTcpSocket& socket, const QByteArray&)
{
    socket.write("HTTP/1.1 200 OK\r\nContent-Length: 100000\r\n\r\n" + QByteArray(2000, 'x'));
}

TEST_F(UpdaterWindow, ClosesAtOnceDuringADownload)
{
    const std::string former = folder.read("targets.txt");
    for (const bool byKey : {false, true}) {
        const PageServer server(startOnly);
        open();
        pressUpdate(server);
        ASSERT_TRUE(waitUntil([this] { return bar().value() == 3; }));
        EXPECT_EQ(statusText(), "Getting...");
        if (byKey) {
            QTest::keyPress(window.get(), Qt::Key_Escape);
            EXPECT_TRUE(window->isVisible());
            QTest::keyRelease(window.get(), Qt::Key_Escape);
        } else {
            click(closeButton());
        }
        EXPECT_FALSE(window->isVisible());
        EXPECT_TRUE(waitUntil([&server] { return server.disconnections() == 1; }));
        // Nothing is under way that could still write the targets.
        EXPECT_FALSE(transfer->stillExecuting());
        EXPECT_FALSE(timer1().isActive());
        EXPECT_EQ(folder.read("targets.txt"), former);
        EXPECT_FALSE(folder.has("targets.bak"));
    }
}

TEST_F(UpdaterWindow, NulsAndOddBytesArePartOfThePage)
{
    QByteArray page = samplePage();
    page.prepend(QByteArray("\0\xFF\xFE\x80", 4)).replace("14,42", QByteArray("1\0,\xE9\xE9", 5));
    const PageServer server(always(response(page)));
    open();
    pressUpdate(server);
    waitForEnd();
    EXPECT_TRUE(folder.read("targets.txt").starts_with(std::string("00:1\0:\xE9\xE9,", 9)));
}

TEST_F(UpdaterWindow, WithoutACurrentUserItDoesNotOpen)
{
    std::filesystem::remove(folder / "curUser.dat");
    EXPECT_THROW(Form7(services, nullptr), kavo::RunTimeError);
}

/// Runs `look` in the updater once the main window has opened it.
void whenOpened(const std::function<void(QWidget&)>& look)
{
    auto* timer = new QTimer(qApp);
    QObject::connect(timer, &QTimer::timeout, [timer, look] {
        QWidget* modal = QApplication::activeModalWidget();
        if (modal == nullptr) return;
        timer->deleteLater();
        timer->stop();
        look(*modal);
    });
    timer->start(1ms);
}

TEST_F(UpdaterWindow, MainWindowOpensItModallyAndAlwaysReloads)
{
    startLoggedIn();
    auto& list = control<QTreeView>(mainWindow(), "lv");
    whenOpened([this](QWidget& updater) {
        EXPECT_EQ(updater.objectName(), "Form7");
        EXPECT_TRUE(updater.isModal());
        folder.write("Marek/names.dat", "Renamed\r\nOther\r\nTeam\r\n");
        click(control<QPushButton>(updater, "Command1"));
    });
    QTest::keyClick(&list, Qt::Key_R, Qt::ControlModifier);
    EXPECT_EQ(list.model()->headerData(1, Qt::Horizontal).toString(), "Renamed");
}

TEST_F(UpdaterWindow, ProgramFetchesFromTheHostItWasTold)
{
    const PageServer server(always(response(samplePage())));
    startLoggedIn();
    program->useRecordsHost(server.url("/").toString().toStdString());
    whenOpened([](QWidget& updater) {
        updater.findChild<QTimer*>("Timer1")->setInterval(0ms);
        click(control<QPushButton>(updater, "Command2"));
        const auto& label = control<QLabel>(updater, "Label1");
        EXPECT_TRUE(waitUntil([&label] { return label.text() == "Finished!"; }));
        updater.close();
    });
    mainWindow().mnuUpTargets_Click();
    EXPECT_EQ(server.requests().size(), 1);
    EXPECT_EQ(folder.read("targets.txt"), sampleTargets());
}

}  // namespace
