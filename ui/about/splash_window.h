// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDialog>

#include <memory>

namespace Ui {
class frmSplash;
}

/// The splash window, in front while the main window loads. A key or a click closes it.
///
/// | control        | meaning                                          |
/// |----------------|--------------------------------------------------|
/// | Frame1         | holds the rest                                   |
/// | imgLogo        | the logo                                         |
/// | lblProductName | the application's title                          |
/// | lblVersion     | "Version " major "." minor " build " revision    |
/// | Label1, Label2 | the author lines                                 |
class frmSplash final : public QDialog
{
    Q_OBJECT

public:
    frmSplash();
    ~frmSplash() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    void Form_Load();
    void Form_KeyPress();
    void Frame1_Click();

    std::unique_ptr<Ui::frmSplash> ui;
};
