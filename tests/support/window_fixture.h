// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "app/application.h"
#include "app/program.h"
#include "tests/support/all_windows.h"
#include "tests/support/patience.h"
#include "tests/support/program_folder_fixture.h"
#include "tests/support/scripted_prompts.h"

#include <QTest>
#include <QTimer>
#include <QTreeView>
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <utility>

namespace kavo::test {

/// A program on a copy of the demo folder, its boxes answered by a script.
class ProgramTest : public testing::Test
{
protected:
    ProgramTest()
    {
        copyDemo(folder);
        application().setPrompts(prompts);
    }

    ~ProgramTest() override
    {
        program.reset();
        application().restorePrompts();
        // A program that was ended leaves the wish to quit behind, which would end every later event loop.
        QTimer::singleShot(0, qApp, &QCoreApplication::quit);
        QCoreApplication::exec();
    }

    static Application& application() { return *static_cast<Application*>(qApp); }

    /// Shows the login window, or the main window when auto-login is on.
    void start()
    {
        program = std::make_unique<Program>(folder.path(), prompts);
        program->start();
    }

    /// Starts with auto-login, as the demo's user.
    void startLoggedIn()
    {
        folder.write("autolog.dat", " 1 \r\n");
        start();
    }

    [[nodiscard]] Form1& mainWindow() { return program->mainWindow(); }
    [[nodiscard]] frmLogin& loginWindow() { return program->loginWindow(); }

    /// A control of a window by its name; fails the test when there is none.
    template <typename Control>
    static Control& control(const QWidget& window, const char* name)
    {
        auto* found = window.findChild<Control*>(QLatin1StringView(name));
        if (found == nullptr) throw std::runtime_error(std::string("no control ") + name);
        return *found;
    }

    /// The results table; rows count from 1, columns from 0.
    [[nodiscard]] QTreeView& list() { return control<QTreeView>(mainWindow(), "lv"); }
    [[nodiscard]] QModelIndex index(int row, int column) { return list().model()->index(row - 1, column); }
    [[nodiscard]] QString cell(int row, int column) { return index(row, column).data().toString(); }
    [[nodiscard]] QString header(int column) { return list().model()->headerData(column, Qt::Horizontal).toString(); }

    /// Expects the standard error report.
    void expectError(const std::string& text) { prompts.expectMessage({.text = text, .icon = MessageIcon::Critical}); }

    /// Opens a window by its key in the main window, runs `look` on it and closes it.
    void withKey(const char* className, QKeyCombination key, const std::function<void(QWidget&)>& look)
    {
        const auto press = [&] { QTest::keyClick(&list(), key.key(), key.keyboardModifiers()); };
        EXPECT_TRUE(withWindow(className, press, look)) << className << " did not open";
    }

    static void click(QWidget& button)
    {
        // Beside its text an option takes no click, however wide it is.
        const int width = std::min(button.width(), button.sizeHint().width());
        QTest::mouseClick(&button, Qt::LeftButton, {}, {width / 2, button.height() / 2});
    }

    /// Runs the event loop until the program quits; returns its exit status, 7 when it never does.
    static int runUntilQuit()
    {
        QTimer watchdog;
        watchdog.setSingleShot(true);
        QObject::connect(&watchdog, &QTimer::timeout, qApp, [] { QCoreApplication::exit(7); });
        watchdog.start(kPatience);
        return QCoreApplication::exec();
    }

    /// Runs `action` on the next modal window, as soon as that is there.
    static void onModalWindow(std::function<void(QWidget&)> action)
    {
        constexpr int kOftenEnough = 5;  // ms
        auto* watch = new QTimer(qApp);
        QObject::connect(watch, &QTimer::timeout, qApp, [watch, action = std::move(action)] {
            QWidget* window = QApplication::activeModalWidget();
            if (window == nullptr || !window->isVisible()) return;
            watch->deleteLater();
            watch->stop();
            action(*window);
        });
        watch->start(kOftenEnough);
    }

    TemporaryFolder folder;
    ScriptedPrompts prompts;
    std::unique_ptr<Program> program;
};

}  // namespace kavo::test
