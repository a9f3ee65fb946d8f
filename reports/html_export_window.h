// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "forms/secondary_window.h"
#include "reports/html_export.h"
#include "reports/section_box.h"
#include "reports/template_file.h"

#include <filesystem>
#include <memory>

namespace Ui {
class Form11;
}

/// "eXtended HTML Export": writes a report in the form of a template of four sections.
///
/// | control                        | meaning                                                     |
/// |--------------------------------|-------------------------------------------------------------|
/// | Text2, Text3, Text4, Text5     | the sections: beginning, loop, total time, ending           |
/// | Combo3, Combo1, Combo2, Combo4 | placeholders that make sense in them                        |
/// | Command7, Command9, Command6, Command8 | insert the chosen placeholder                       |
/// | Text1, Command1                | path of the report, and a dialog to choose it               |
/// | Command5, Command2             | load and save the sections                                  |
/// | Command4                       | write the report                                            |
/// | Command3                       | close; no key does                                          |
class Form11 final : public kavo::SecondaryWindow
{
    Q_OBJECT

public:
    /// `reports` outlives the window: one that broke off in an earlier window counts.
    Form11(const kavo::Services& services, kavo::HtmlReports& reports, QWidget* parent);
    ~Form11() override;

protected:
    [[nodiscard]] bool closesOnEscape() const override { return false; }

private:
    void wire();
    void useFixedFont();
    void Combo1_Click();
    void Combo2_Click();
    void Combo3_Click();
    void Combo4_Click();
    void Command6_Click();
    void Command7_Click();
    void Command8_Click();
    void Command9_Click();
    void Command1_Click();
    void Command2_Click();
    void Command4_Click();
    void Command5_Click();
    [[nodiscard]] std::filesystem::path typedPath(const QString& text) const;
    [[nodiscard]] std::filesystem::path templateFolder() const;
    [[nodiscard]] kavo::TemplateSections sections() const;

    std::unique_ptr<Ui::Form11> ui;
    kavo::HtmlReports& m_reports;
    kavo::SectionBox m_beginning;
    kavo::SectionBox m_loop;
    kavo::SectionBox m_total;
    kavo::SectionBox m_ending;
};
