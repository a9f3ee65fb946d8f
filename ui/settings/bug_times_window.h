// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/bug_times.h"
#include "forms/secondary_window.h"

#include <memory>

class QListWidget;
class QPushButton;

namespace Ui {
class Form8;
}

/// "BUGs": times reached through a bug of a level, entered by hand for each player.
///
/// | control                      | meaning                                        |
/// |------------------------------|------------------------------------------------|
/// | List1                        | entries of player 1 (Frame1 names the player)  |
/// | Command1, Command2, Command3 | add, remove and clear entries of player 1      |
/// | List2                        | entries of player 2 (Frame2 names the player)  |
/// | Command4, Command5, Command6 | add, remove and clear entries of player 2      |
/// | Command7                     | write the file and reload; the window stays    |
/// | Command8                     | close without saving                           |
class Form8 final : public kavo::SecondaryWindow
{
    Q_OBJECT

public:
    /// Throws RunTimeError(InputPastEnd) when the file is not complete: saving over it would lose entries.
    Form8(const kavo::Services& services, QWidget* parent);
    ~Form8() override;

signals:
    void saved();

private:
    void wire();
    void Form_Load();
    void List1_Click();
    void List2_Click();
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Command4_Click();
    void Command5_Click();
    void Command6_Click();
    void Command7_Click();
    void addEntry(QListWidget& list);

    std::unique_ptr<Ui::Form8> ui;
};
