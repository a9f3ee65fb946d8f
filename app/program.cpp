// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/program.h"

#include "base/file_name.h"
#include "insight/best_ever_tip.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QScopeGuard>
#include <QWindow>

#include <chrono>
#include <cstdio>

namespace kavo {

namespace {

/// Lets a window come to the screen before something keeps the event loop waiting. Not every desktop tells
/// when it is there.
void letAppear(const QWidget& window)
{
    using namespace std::chrono_literals;
    const QDeadlineTimer patience(200ms);
    do QApplication::processEvents();
    while (!window.windowHandle()->isExposed() && !patience.hasExpired());
    QApplication::processEvents();  // paints it
}

}  // namespace

Program::Program(const std::filesystem::path& programFolder, Prompts& prompts)
{
    m_session.programFolder = programFolder;
    const Services services{m_session, prompts, m_desktop, m_clock};
    m_login = std::make_unique<frmLogin>(services, *this);
    m_mainWindow = std::make_unique<Form1>(services, *this);
    connect(m_mainWindow.get(), &Form1::closed, this, [this] {
        if (!m_login->isVisible()) quit();
    });
}

Program::~Program() = default;

void Program::start()
{
    m_login->Form_Load();
}

void Program::rememberResults(const HistorySources& sources)
{
    m_keeper.emplace(sources);
    m_mainWindow->tellOfTimes([this](int level, std::string_view time) {
        const auto best = m_keeper->bestEver(m_session);
        return best ? bestEverTip(*best, level, time) : std::string();
    });
    connect(m_mainWindow.get(), &Form1::painted, this, &Program::keepResults);
    // Behind what the window has to do for itself.
    connect(m_mainWindow.get(), &Form1::loaded, this, &Program::keepResults, Qt::QueuedConnection);
}

void Program::keepResults()
{
    if (m_mainWindow->isLoaded() && m_mainWindow->isPainted()) m_keeper->keep(m_session);
}

bool Program::isOnlyInstance()
{
    const bool isHeld = m_lock && m_lock->state() == FileLock::State::Held;
    if (!isHeld) m_lock.emplace(m_session.programFolder / "kavo-timing.lock");
    // Where there is no lock to be had the program runs: nobody may be locked out.
    return m_lock->state() != FileLock::State::Busy;
}

void Program::showMain()
{
    if (!isOnlyInstance()) {
        const std::string folder = textOf(m_session.programFolder);
        static_cast<void>(std::fprintf(stderr, "kavo-timing: already running on %s\n", folder.c_str()));
        quit();
        return;
    }
    m_splash = std::make_unique<frmSplash>();
    const auto closeSplash = qScopeGuard([this] { m_splash->close(); });
    m_splash->show();
    m_login->hide();
    letAppear(*m_splash);
    // A box that the loading shows must not lie behind the splash.
    connect(m_mainWindow.get(), &Form1::aboutToPrompt, m_splash.get(), &QWidget::close);
    m_splash->raise();
    m_mainWindow->open();
    QApplication::processEvents();
}

void Program::showLogin(const QString& nick, bool autoLogin)
{
    m_login->Form_Load();
    m_login->offer(nick, autoLogin);
}

void Program::quit()
{
    QApplication::quit();
}

}  // namespace kavo
