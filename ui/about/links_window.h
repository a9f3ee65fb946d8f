// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "forms/secondary_window.h"

#include <memory>

class QListWidget;

namespace Ui {
class Form4;
}

/// "Links:": addresses on the web and what is found there.
///
/// | control  | meaning                                                      |
/// |----------|--------------------------------------------------------------|
/// | List1    | the addresses; a double click or Enter opens one             |
/// | List2    | what is found there, entry by entry                          |
/// | Label1   | a hint                                                       |
/// | Command2 | close the window                                             |
class Form4 final : public kavo::SecondaryWindow
{
    Q_OBJECT

public:
    Form4(const kavo::Services& services, QWidget* parent);
    ~Form4() override;

private:
    void wire();
    void Form_Load();
    void fillLists();
    static void select(QListWidget& list, int row);
    void List1_DblClick();
    void Command2_Click();

    std::unique_ptr<Ui::Form4> ui;
};
