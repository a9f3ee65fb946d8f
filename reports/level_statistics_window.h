// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "forms/secondary_window.h"
#include "reports/level_statistics.h"

#include <array>
#include <memory>

class QLabel;
class QProgressBar;

namespace Ui {
class Form10;
}

/// "Levels' statistics": one level as seven bars, the fastest time on top.
///
/// | control              | meaning                                                       |
/// |----------------------|---------------------------------------------------------------|
/// | Label2_0 to Label2_6 | the five grades and the two players                           |
/// | pgb_0 to pgb_6       | their times as bars                                           |
/// | Label1_0 to Label1_6 | their times                                                   |
/// | Combo1               | the level; the last item is the whole set                     |
/// | Command1, Command2   | next level, previous level (not from the second to the first) |
/// | Command3, Command4   | first level, whole set                                        |
/// | Command5             | close                                                         |
class Form10 final : public kavo::SecondaryWindow
{
    Q_OBJECT

public:
    Form10(const kavo::Services& services, QWidget* parent);
    ~Form10() override;

private:
    /// The controls of one time. They keep their index wherever they stand.
    struct Bar
    {
        QLabel* name;
        QProgressBar* bar;
        QLabel* time;
    };

    void wire();
    void Form_Load();
    void Combo1_Click();
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Command4_Click();
    void nameBars();
    void fillCombo();
    void ShowLevel(int level);
    void placeBars();

    std::unique_ptr<Ui::Form10> ui;
    std::array<Bar, kavo::kLevelBars> m_bars{};
    kavo::BarPlaces m_places;
};
