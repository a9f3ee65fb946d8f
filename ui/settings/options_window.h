// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/settings.h"
#include "forms/secondary_window.h"

#include <exception>
#include <memory>
#include <optional>

class QLineEdit;

namespace Ui {
class Form2;
}

/// "Options": where the game's stats.txt lies and what its results are compared with.
///
/// | control  | meaning                                                        |
/// |----------|----------------------------------------------------------------|
/// | Text1    | path of the game's statistics file; Command1 browses for it    |
/// | Option1  | compare with the previous results; Command5 clears those       |
/// | Option2  | compare with another file: Text2; Command2 browses for it      |
/// | Option3  | compare with the targets of the grade in Combo1                |
/// | Command3 | save and reload                                                |
/// | Command4 | close without saving                                           |
class Form2 final : public kavo::SecondaryWindow
{
    Q_OBJECT

public:
    Form2(const kavo::Services& services, QWidget* parent);
    ~Form2() override;

signals:
    /// The settings have been written; the window has closed.
    void saved();

protected:
    void closeRequested() override;

private:
    void wire();
    void Form_Load();
    void Clearing();
    void Option1_Click();
    void Option2_Click();
    void Option3_Click();
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Command4_Click();
    void Command5_Click();
    void browse(QLineEdit& box);
    [[nodiscard]] QString startOfBrowsing(const QString& typed) const;
    void readSettings();
    void showSettings();
    void showUnreadSettings();
    void keepFirstResults(const kavo::Settings& settings);
    [[nodiscard]] kavo::Settings settingsOfControls() const;
    [[nodiscard]] double fontSize() const;

    std::unique_ptr<Ui::Form2> ui;
    QString m_designedPath;            ///< what the path boxes hold before a path has been chosen
    kavo::Settings m_shown;            ///< what the controls were filled with, byte for byte
    std::optional<double> m_fontSize;  ///< that stands in the settings file
    std::exception_ptr m_unread;       ///< why the settings could not be read, if so
};
