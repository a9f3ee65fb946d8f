// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "app/results_keeper.h"
#include "base/file_lock.h"
#include "core/session.h"
#include "forms/desktop.h"
#include "forms/services.h"
#include "ui/about/splash_window.h"
#include "ui/main/main_window.h"
#include "ui/navigator.h"
#include "ui/settings/login_window.h"

#include <filesystem>
#include <memory>
#include <optional>

namespace kavo {

class SystemClock final : public Clock
{
public:
    [[nodiscard]] QDateTime now() const override { return QDateTime::currentDateTime(); }
};

/// One run of the program on a program folder: owns the session and the first windows.
class Program final : public QObject, public Navigator
{
    Q_OBJECT

public:
    Program(const std::filesystem::path& programFolder, Prompts& prompts);
    ~Program() override;

    /// Loads the login window, which logs in at once when auto-login is on.
    void start();

    /// Another host for the world-records page; an empty text is the default one.
    void useRecordsHost(const std::string& host) { m_mainWindow->useRecordsHost(host); }

    /// From now on results are remembered: after a loading, and not before there is something to see.
    void rememberResults(const HistorySources& sources);

    void showMain() override;
    void showLogin(const QString& nick, bool autoLogin) override;
    void quit() override;

    [[nodiscard]] Form1& mainWindow() { return *m_mainWindow; }
    [[nodiscard]] frmLogin& loginWindow() { return *m_login; }

private:
    [[nodiscard]] bool isOnlyInstance();
    void keepResults();

    Session m_session;
    SystemDesktop m_desktop;
    SystemClock m_clock;
    std::optional<FileLock> m_lock;  ///< of the program folder, from the first login on
    std::unique_ptr<frmLogin> m_login;
    std::unique_ptr<Form1> m_mainWindow;
    std::unique_ptr<frmSplash> m_splash;
    std::optional<ResultsKeeper> m_keeper;
};

}  // namespace kavo
