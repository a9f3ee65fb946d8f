// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/results_state.h"
#include "forms/secondary_window.h"

#include <memory>

namespace Ui {
class Form6;
}

/// "Statistics": how many levels of a player or of the team reach each grade, and the victories.
///
/// | control                        | meaning                                              |
/// |--------------------------------|------------------------------------------------------|
/// | Option1, Option2, Option3      | whose figures: player 1, player 2, the team          |
/// | ProgressBar1 to ProgressBar7   | Beginner to World Record, victories; a unit a level  |
/// | Label1 to Label7               | their captions                                       |
/// | Number1 to Number7             | their values, above them                             |
/// | Text1                          | the figures as text                                  |
/// | Command1                       | close                                                |
class Form6 final : public kavo::SecondaryWindow
{
    Q_OBJECT

public:
    Form6(const kavo::Services& services, QWidget* parent);
    ~Form6() override;

private:
    void wire();
    void Form_Load();
    void Option1_Click(bool isChosen);
    void Option2_Click(bool isChosen);
    void Option3_Click(bool isChosen);
    void show(kavo::Side side);
    void fitText();
    void spreadBars();
    void allowToCutNames();

    std::unique_ptr<Ui::Form6> ui;
};
