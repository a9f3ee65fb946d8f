// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "forms/secondary_window.h"

#include <filesystem>
#include <memory>

namespace Ui {
class Form9;
}

/// "TextFile Export": writes the results as a text report and offers to open it.
///
/// | control  | meaning                                             |
/// |----------|-----------------------------------------------------|
/// | Text1    | path of the report                                  |
/// | Command1 | choose it                                           |
/// | Command2 | write the report; enabled once a path was chosen    |
/// | Command3 | delete the launcher (tmp.bat) and close             |
class Form9 final : public kavo::SecondaryWindow
{
    Q_OBJECT

public:
    Form9(const kavo::Services& services, QWidget* parent);
    ~Form9() override;

protected:
    void closeRequested() override;

private:
    void wire();
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void enableExport(bool isEnabled);
    [[nodiscard]] std::filesystem::path launcher() const;
    void openReport(const std::filesystem::path& report);

    std::unique_ptr<Ui::Form9> ui;
};
