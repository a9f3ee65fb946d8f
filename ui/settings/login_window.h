// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "forms/services.h"
#include "ui/navigator.h"

#include <QDialog>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Ui {
class frmLogin;
}

/// "Login": the first window; chooses the user.
///
/// | control     | meaning                                             |
/// |-------------|-----------------------------------------------------|
/// | lblLabels_0 | "Nick:"                                             |
/// | Combo1      | the nick: typed, or picked from the users there are |
/// | cmdOK       | log in                                              |
/// | cmdCancel   | end the program                                     |
/// | Check1      | log in without asking at the next start             |
class frmLogin final : public QDialog
{
    Q_OBJECT

public:
    frmLogin(const kavo::Services& services, kavo::Navigator& navigator);
    ~frmLogin() override;

    /// Fills the controls from the login files; logs in at once when auto-login is on, and is shown
    /// otherwise.
    void Form_Load();

    /// The nick and the choice to begin with, after the main window was left.
    void offer(const QString& nick, bool autoLogin);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void makeControls();
    void wire();
    void Combo1_Change();
    void cmdOK_Click();
    void cmdCancel_Click();
    void Form_KeyPress(int key);
    void logIn(const std::string& nick, bool autoLogin);
    [[nodiscard]] std::optional<std::string> nickWithoutControls() const;
    void fillControls();
    void present();
    void centreHorizontally();
    [[nodiscard]] std::string nick() const;

    std::unique_ptr<Ui::frmLogin> ui;  ///< from the moment that the window is needed
    kavo::Services m_services;
    kavo::Navigator& m_navigator;
    std::vector<std::string> m_knownNicks;  ///< bytes behind the texts that the list shows
};
