// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/colour_set.h"
#include "forms/secondary_window.h"

#include <array>
#include <filesystem>
#include <memory>
#include <string>

namespace kavo {
class Swatch;
}

namespace Ui {
class Form3;
}

/// "View": the nine colours, colour schemes, and the font size of the results table.
///
/// | control            | meaning                                                    |
/// |--------------------|------------------------------------------------------------|
/// | lCol_0 to lCol_3   | the window colours; a click picks another                  |
/// | Label10 to Label14 | the grades' colours, likewise                              |
/// | Command3           | back to the default colours                                |
/// | Command2           | save the colours                                           |
/// | cmbSheme, Command5 | choose a scheme and put it in force                        |
/// | Text2, Command6    | save the colours shown as a scheme of that name            |
/// | Text1, Command1    | font size of the results table, and apply it               |
/// | Command4           | close                                                      |
class Form3 final : public kavo::SecondaryWindow
{
    Q_OBJECT

public:
    Form3(const kavo::Services& services, QWidget* parent);
    ~Form3() override;

signals:
    /// The colours in force have been written.
    void saved();

    /// The results table is to be shown in this size (points).
    void fontSizeChosen(double points);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void wire();
    void Form_Load();
    void reopen();
    void lCol_Click(int index);
    void Label10_Click();
    void Label11_Click();
    void Label12_Click();
    void Label13_Click();
    void Label14_Click();
    void Command1_Click();
    void Command2_Click();
    void Command3_Click();
    void Command5_Click();
    void Command6_Click();
    void cmbSheme_Click();
    void fillSchemes();
    [[nodiscard]] std::string schemeAt(int item) const;
    void upgradeColours();
    void showColours();
    void pickColour(kavo::ColourLine which);
    void saveAndReload(const kavo::ColourSet& colours);

    std::unique_ptr<Ui::Form3> ui;
    std::array<kavo::Swatch*, kavo::kColours> m_swatches{};  ///< by line of the colour file
    std::filesystem::path m_userFolder;
    kavo::ColourSet m_colours;  ///< as picked, saved or not
};
