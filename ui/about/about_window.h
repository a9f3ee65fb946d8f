// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "forms/secondary_window.h"

#include <memory>

namespace Ui {
class frmAbout;
}

namespace kavo {
class LinkLabel;
}

/// "About NRL Kavo Timing": version, history and addresses. Stays open beside the main window.
///
/// | control        | meaning                                            |
/// |----------------|----------------------------------------------------|
/// | lblTitle       | name and author                                    |
/// | lblVersion     | "Version " major "." minor " build " revision      |
/// | Frame1, Text1  | the version history                                |
/// | Label1         | a link, opened by a double click                   |
/// | Label2, Label3 | links, opened by a click                           |
/// | cmdSysInfo     | start the desktop's system-information program     |
/// | cmdOK          | close the window                                   |
class frmAbout final : public kavo::SecondaryWindow
{
    Q_OBJECT

public:
    frmAbout(const kavo::Services& services, QWidget* parent);
    ~frmAbout() override;

private:
    void wire();
    void Form_Load();
    void cmdOK_Click();
    void cmdSysInfo_Click();
    void Label1_DblClick();
    void Label2_Click();
    void Label3_Click();

    void showHistory();
    void followLink(const kavo::LinkLabel& label);
    void StartSysInfo();
    [[nodiscard]] QStringList systemInformationCommand() const;

    std::unique_ptr<Ui::frmAbout> ui;
};
