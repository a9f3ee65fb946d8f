// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "forms/secondary_window.h"

#include <chrono>
#include <memory>
#include <string>
#include <utility>

class QTimer;

namespace Ui {
class Form7;
}

namespace kavo {
class Transfer;
}

/// "Targets-updater": downloads the world-records page and rewrites `targets.txt` from it.
///
/// | control  | meaning                                                            |
/// |----------|--------------------------------------------------------------------|
/// | Label1   | where the update stands                                            |
/// | Label2   | a hint that it needs the internet                                  |
/// | pgb      | eight steps: the start, three states of the transfer, its end,     |
/// |          | times cut, records formed, file copied                             |
/// | Command2 | start the update                                                   |
/// | Command1 | close the window                                                   |
/// | inet1    | the transfer                                                       |
/// | Timer1   | runs the parsing once, five seconds after the download             |
/// | Timer2   | unused                                                             |
class Form7 final : public kavo::SecondaryWindow
{
    Q_OBJECT

public:
    Form7(const kavo::Services& services, QWidget* parent);

    /// With another transfer, and another time between download and parsing.
    Form7(const kavo::Services& services, std::unique_ptr<kavo::Transfer> transfer,
          std::chrono::milliseconds parsingDelay, QWidget* parent);
    ~Form7() override;

    /// Another host of the page, or its base address; an empty text is the default one.
    void useRecordsHost(std::string host) { m_recordsHost = std::move(host); }

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void wire();
    void Form_Load();
    void Command1_Click();
    void Command2_Click();
    void inet1_StateChanged(int state);
    void Timer1_Timer();

    void showWaiting();
    void collectPage();
    void endDownload();
    void showStatus(const QString& text);
    void takeProgressStep();

    std::unique_ptr<Ui::Form7> ui;
    std::unique_ptr<kavo::Transfer> inet1;
    QTimer* Timer1;
    QTimer* Timer2;
    std::string m_recordsHost;
    bool m_hasFailed = false;  ///< the latest transfer has
    std::string m_page;        ///< everything received since the window was opened
};
