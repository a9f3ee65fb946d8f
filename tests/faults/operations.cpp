// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/faults/operations.h"

#include "base/text_file.h"
#include "forms/event_guard.h"
#include "tests/faults/canned_transfer.h"
#include "tests/support/all_windows.h"
#include "tests/support/recording_desktop.h"
#include "updater/targets_updater_window.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QResizeEvent>
#include <QSpinBox>
#include <QTest>
#include <QTreeView>

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#ifndef _WIN32
#include <unistd.h>
#endif

namespace fs = std::filesystem;
using namespace std::chrono_literals;

namespace kavo::test {

namespace {

constexpr QLatin1StringView kTeam("Night Riders");
constexpr QLatin1StringView kBugTime("05, 00:11:11");

/// Runs `action` on a control of a window, if the window has it.
template <typename Control, typename Action>
void onControl(const QWidget& window, const QString& name, Action action)
{
    if (auto* control = window.findChild<Control*>(name))
        action(*control);
    else
        say("missing", name);
}

void press(const QWidget& window, const QString& name)
{
    onControl<QPushButton>(window, name, [](QPushButton& button) { button.click(); });
}

void type(const QWidget& window, const QString& name, const QString& text)
{
    onControl<QLineEdit>(window, name, [&text](QLineEdit& box) { box.setText(text); });
}

/// Lets whoever traces the process see where an operation begins: a file that is nowhere is looked for.
void leaveMark([[maybe_unused]] const std::string& name)
{
#ifndef _WIN32
    static_cast<void>(::access(("/kavo-operation/" + name).c_str(), F_OK));
#endif
}

}  // namespace

enum class Needs { Nothing, Login, MainWindow };

struct Operations::Operation
{
    const char* name;
    Needs needs;
    void (Operations::*run)();
};

const Operations::Operation* Operations::find(const std::string& name)
{
    static constexpr std::array kOperations = {
        Operation{"start", Needs::MainWindow, &Operations::nothing},
        Operation{"login-new", Needs::Login, &Operations::logInAsNew},
        Operation{"login-other", Needs::Login, &Operations::logInAsOther},
        Operation{"login-known", Needs::Login, &Operations::logInAsKnown},
        Operation{"change-user", Needs::MainWindow, &Operations::changeUser},
        Operation{"windows", Needs::MainWindow, &Operations::openAllWindows},
        Operation{"options-save", Needs::MainWindow, &Operations::saveOptions},
        Operation{"options-clear", Needs::MainWindow, &Operations::clearPreviousResults},
        Operation{"view-open", Needs::MainWindow, &Operations::openView},
        Operation{"view-save", Needs::MainWindow, &Operations::saveColours},
        Operation{"view-default", Needs::MainWindow, &Operations::restoreDefaultColours},
        Operation{"view-set", Needs::MainWindow, &Operations::setScheme},
        Operation{"view-scheme", Needs::MainWindow, &Operations::saveScheme},
        Operation{"view-font", Needs::MainWindow, &Operations::setFontSize},
        Operation{"bugs-add", Needs::MainWindow, &Operations::addBugTime},
        Operation{"bugs-remove", Needs::MainWindow, &Operations::removeBugTimes},
        Operation{"rename", Needs::MainWindow, &Operations::renameTeam},
        Operation{"resize", Needs::MainWindow, &Operations::resizeWindow},
        Operation{"time-resizing", Needs::MainWindow, &Operations::timeResizing},
        Operation{"update-targets", Needs::Nothing, &Operations::updateTargets},
        Operation{"export-text", Needs::MainWindow, &Operations::exportText},
        Operation{"export-text-open", Needs::MainWindow, &Operations::exportAndOpenText},
        Operation{"export-html", Needs::MainWindow, &Operations::exportHtml},
        Operation{"template-save", Needs::MainWindow, &Operations::saveTemplate},
        Operation{"wait", Needs::Nothing, &Operations::waitForInput},
        Operation{"remove-user-folder", Needs::Nothing, &Operations::removeUserFolder},
        Operation{"remove-program-folder", Needs::Nothing, &Operations::removeProgramFolder},
    };
    const auto* found = std::find_if(kOperations.begin(), kOperations.end(),
                                     [&name](const Operation& operation) { return operation.name == name; });
    return found == kOperations.end() ? nullptr : found;
}

Operations::Operations(Program& program, RecordingPrompts& prompts, OperationFiles files)
    : m_program(program), m_prompts(prompts), m_files(std::move(files))
{
    QObject::connect(&m_watch, &QTimer::timeout, &m_watch, [this] { closeUnexpectedWindow(); });
    m_watch.start(5ms);
}

bool Operations::run(const std::string& name)
{
    const Operation* operation = find(name);
    if (operation == nullptr) return false;
    const bool hasLogin = operation->needs != Needs::Login || m_program.loginWindow().isVisible();
    const bool hasMain = operation->needs != Needs::MainWindow || mainWindow().isVisible();
    leaveMark(name);
    say("begin", QString::fromStdString(name));
    if (hasLogin && hasMain) {
        guarded([this, operation] { (this->*operation->run)(); });
        QApplication::processEvents();
        say("done", QString::fromStdString(name));
    } else {
        say("not reached", QString::fromStdString(name));
    }
    return true;
}

void Operations::trigger(const char* entry)
{
    onControl<QAction>(mainWindow(), QLatin1StringView(entry), [](QAction& action) { action.trigger(); });
}

void Operations::withWindow(const char* className, const Look& look)
{
    const auto& windows = allWindows();
    const auto row = std::find_if(windows.begin(), windows.end(), [className](const WindowRow& window) {
        return std::string_view(window.className) == className;
    });
    m_expected = QLatin1StringView(className);
    const auto lookAtExpected = [this, &look](QWidget& window) {
        m_opened = &window;
        look(window);
    };
    if (!test::withWindow(m_program.mainWindow(), *row, lookAtExpected)) say("not opened", m_expected);
    m_expected.clear();
    m_opened = nullptr;
}

/// A loading may open the Options dialog, which would wait for ever; also one that the same dialog has caused.
void Operations::closeUnexpectedWindow()
{
    QWidget* modal = QApplication::activeModalWidget();
    if (modal == nullptr || modal == m_opened || (m_opened == nullptr && modal->objectName() == m_expected)) return;
    say("closed", modal->objectName());
    modal->close();
}

void Operations::logIn(const QString& nick)
{
    onControl<QComboBox>(m_program.loginWindow(), "Combo1", [&nick](QComboBox& box) { box.setEditText(nick); });
    press(m_program.loginWindow(), "cmdOK");
}

void Operations::changeUser()
{
    trigger("mnuChangeUser");
}

void Operations::openAllWindows()
{
    for (const WindowRow& row : allWindows())
        withWindow(row.className, [](QWidget& window) { QApplication::sendPostedEvents(&window); });
}

void Operations::saveOptions()
{
    withWindow("Form2", [](QWidget& window) {
        onControl<QRadioButton>(window, "Option3", [](QRadioButton& option) { option.click(); });
        onControl<QComboBox>(window, "Combo1", [](QComboBox& box) { box.setCurrentText("OK"); });
        press(window, "Command3");
    });
}

void Operations::clearPreviousResults()
{
    withWindow("Form2", [](QWidget& window) { press(window, "Command5"); });
}

void Operations::openView()
{
    withWindow("Form3", [](QWidget&) {});
}

void Operations::saveColours()
{
    withWindow("Form3", [](QWidget& window) {
        onControl<QWidget>(window, "lCol_0", [](QWidget& swatch) { QTest::mouseClick(&swatch, Qt::LeftButton); });
        press(window, "Command2");
    });
}

void Operations::restoreDefaultColours()
{
    withWindow("Form3", [](QWidget& window) { press(window, "Command3"); });
}

void Operations::setScheme()
{
    withWindow("Form3", [](QWidget& window) {
        onControl<QComboBox>(window, "cmbSheme", [](QComboBox& box) {
            if (box.findText("night") < 0) say("missing", "night");
            box.setCurrentText("night");
        });
        press(window, "Command5");
    });
}

void Operations::saveScheme()
{
    withWindow("Form3", [](QWidget& window) {
        type(window, "Text2", "mine");
        press(window, "Command6");
    });
}

void Operations::setFontSize()
{
    withWindow("Form3", [](QWidget& window) {
        onControl<QSpinBox>(window, "Text1", [](QSpinBox& box) { box.setValue(14); });
        press(window, "Command1");
    });
}

void Operations::addBugTime()
{
    m_prompts.line = kBugTime;
    withWindow("Form8", [](QWidget& window) {
        press(window, "Command1");
        press(window, "Command7");
    });
}

void Operations::removeBugTimes()
{
    withWindow("Form8", [](QWidget& window) {
        press(window, "Command3");
        press(window, "Command6");
        press(window, "Command7");
    });
}

void Operations::renameTeam()
{
    constexpr int kTeamColumn = 6;
    m_prompts.line = kTeam;
    onControl<QTreeView>(mainWindow(), "lv", [](QTreeView& list) { emit list.header()->sectionClicked(kTeamColumn); });
}

void Operations::resizeWindow()
{
    const QSize before = mainWindow().size();
    mainWindow().resize(before + QSize(-40, -60));
    QApplication::processEvents();
}

/// What one step of dragging costs beyond the painting: the event procedure alone, with another layout to
/// be kept each time.
void Operations::timeResizing()
{
    constexpr int kSteps = 500;
    constexpr double kPerMillisecond = 1e6;
    auto* list = mainWindow().findChild<QTreeView*>("lv");
    if (list == nullptr) return;
    std::vector<double> milliseconds;
    for (int step = 0; step < kSteps; ++step) {
        list->header()->resizeSection(0, 100 + step % 50);
        QResizeEvent resized(mainWindow().size(), mainWindow().size());
        QElapsedTimer clock;
        clock.start();
        QApplication::sendEvent(&mainWindow(), &resized);
        milliseconds.push_back(static_cast<double>(clock.nsecsElapsed()) / kPerMillisecond);
    }
    std::sort(milliseconds.begin(), milliseconds.end());
    double sum = 0;
    for (const double one : milliseconds) sum += one;
    say("resize step", QString("mean %1 median %2 longest %3")
                           .arg(sum / kSteps)
                           .arg(milliseconds.at(milliseconds.size() / 2))
                           .arg(milliseconds.back()));
}

void Operations::updateTargets()
{
    Session session;
    session.programFolder = m_files.programFolder;
    RecordingDesktop desktop;
    const SystemClock clock;
    const Services services{session, m_prompts, desktop, clock};
    auto transfer = std::make_unique<CannedTransfer>(QByteArray::fromStdString(readFile(m_files.page)));
    Form7 window(services, std::move(transfer), 0ms, nullptr);
    window.show();
    press(window, "Command2");
    const auto* update = window.findChild<QPushButton*>("Command2");
    if (!QTest::qWaitFor([update] { return update->isEnabled(); }, 15000)) say("unfinished", "update-targets");
}

void Operations::exportText()
{
    m_prompts.file = m_files.report;
    withWindow("Form9", [](QWidget& window) {
        press(window, "Command1");
        press(window, "Command2");
        press(window, "Command3");
    });
}

void Operations::exportAndOpenText()
{
    m_prompts.yesNo = Answer::Yes;
    exportText();
}

void Operations::exportHtml()
{
    m_prompts.file = m_files.report;
    withWindow("Form11", [](QWidget& window) {
        onControl<QPlainTextEdit>(window, "Text2", [](QPlainTextEdit& box) { box.setPlainText("%team%"); });
        onControl<QPlainTextEdit>(window, "Text3", [](QPlainTextEdit& box) { box.setPlainText("%record1%"); });
        press(window, "Command1");
        press(window, "Command4");
    });
}

void Operations::saveTemplate()
{
    m_prompts.file = m_files.report;
    withWindow("Form11", [](QWidget& window) {
        onControl<QPlainTextEdit>(window, "Text3", [](QPlainTextEdit& box) { box.setPlainText("%record1%"); });
        press(window, "Command2");
    });
}

void Operations::waitForInput()
{
    say("waiting", "");
    while (std::getchar() != EOF) {
    }
}

void Operations::removeUserFolder()
{
    fs::remove_all(m_files.programFolder / "Marek");
}

void Operations::removeProgramFolder()
{
    fs::remove_all(m_files.programFolder);
}

}  // namespace kavo::test
