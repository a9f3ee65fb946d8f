// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/html_export_window.h"

#include "base/file_name.h"
#include "base/text_file.h"
#include "core/program_folder.h"
#include "core/session.h"
#include "forms/event_guard.h"
#include "forms/prompts.h"
#include "forms/screen_text.h"
#include "reports/html_export.h"
#include "ui_html_export_window.h"

#include <QFontDatabase>

using kavo::fromScreen;
using kavo::messages::kFailed;
using kavo::messages::kOk;

namespace {

const QString kAllFiles = QStringLiteral("All files (*)");

/// The star in front belongs to the name.
QStringList templateFilters()
{
    return {"*Kavo Timing Template (*.ett)", kAllFiles};
}

std::unique_ptr<Ui::Form11> designed(QDialog* window)
{
    auto ui = std::make_unique<Ui::Form11>();
    ui->setupUi(window);
    return ui;
}

}  // namespace

Form11::Form11(const kavo::Services& services, kavo::HtmlReports& reports, QWidget* parent)
    : SecondaryWindow(services, parent),
      ui(designed(this)),
      m_reports(reports),
      m_beginning(*ui->Text2),
      m_loop(*ui->Text3),
      m_total(*ui->Text4),
      m_ending(*ui->Text5)
{
    useFixedFont();
    wire();
    applyColours();
}

Form11::~Form11() = default;

void Form11::wire()
{
    kavo::on(ui->Combo1, &QComboBox::activated, this, &Form11::Combo1_Click);      // for the loop
    kavo::on(ui->Combo2, &QComboBox::activated, this, &Form11::Combo2_Click);      // for the total
    kavo::on(ui->Combo3, &QComboBox::activated, this, &Form11::Combo3_Click);      // for the beginning
    kavo::on(ui->Combo4, &QComboBox::activated, this, &Form11::Combo4_Click);      // for the ending
    kavo::on(ui->Command1, &QPushButton::clicked, this, &Form11::Command1_Click);  // browse
    kavo::on(ui->Command2, &QPushButton::clicked, this, &Form11::Command2_Click);  // save the template
    kavo::on(ui->Command3, &QPushButton::clicked, this, &Form11::close);           // close
    kavo::on(ui->Command4, &QPushButton::clicked, this, &Form11::Command4_Click);  // export
    kavo::on(ui->Command5, &QPushButton::clicked, this, &Form11::Command5_Click);  // load a template
    kavo::on(ui->Command6, &QPushButton::clicked, this, &Form11::Command6_Click);  // into the total
    kavo::on(ui->Command7, &QPushButton::clicked, this, &Form11::Command7_Click);  // into the beginning
    kavo::on(ui->Command8, &QPushButton::clicked, this, &Form11::Command8_Click);  // into the ending
    kavo::on(ui->Command9, &QPushButton::clicked, this, &Form11::Command9_Click);  // into the loop
}

void Form11::useFixedFont()
{
    const QFont font = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    for (QPlainTextEdit* box : {ui->Text2, ui->Text3, ui->Text4, ui->Text5}) box->setFont(font);
}

// Combo3, Combo1, Combo2, Combo4: a chosen placeholder waits for its Insert button
void Form11::Combo1_Click()
{
    ui->Command9->setFocus();
}

void Form11::Combo2_Click()
{
    ui->Command6->setFocus();
}

void Form11::Combo3_Click()
{
    ui->Command7->setFocus();
}

void Form11::Combo4_Click()
{
    ui->Command8->setFocus();
}

// Command7, Command9, Command6, Command8: insert it
void Form11::Command6_Click()
{
    m_total.insert(ui->Combo2->currentText());
}

void Form11::Command7_Click()
{
    m_beginning.insert(ui->Combo3->currentText());
}

void Form11::Command8_Click()
{
    m_ending.insert(ui->Combo4->currentText());
}

void Form11::Command9_Click()
{
    m_loop.insert(ui->Combo1->currentText());
}

// Command1: choose the path of the report
void Form11::Command1_Click()
{
    const QString chosen = services().prompts.askFileToSave(
        this, {.filters = {"HTML (*.html)", "HTM (*.htm)", kAllFiles}, .startAt = ui->Text1->text()});
    if (!chosen.isEmpty()) ui->Text1->setText(chosen);
}

// Command2: save the sections
void Form11::Command2_Click()
{
    const QString chosen = services().prompts.askFileToSave(
        this, {.filters = templateFilters(), .startAt = kavo::pathToScreen(session().lastTemplateFolder)});
    if (chosen.isEmpty()) return;
    kavo::replaceFile(typedPath(chosen), kavo::formatTemplate(sections()));
    session().lastTemplateFolder = typedPath(chosen).parent_path();
}

// Command5: load them
void Form11::Command5_Click()
{
    const QString chosen = services().prompts.askFileToOpen(
        this, {.filters = templateFilters(), .startAt = kavo::pathToScreen(templateFolder())});
    const auto path = chosen.isEmpty() ? std::filesystem::path() : typedPath(chosen);
    if (!chosen.isEmpty()) session().lastTemplateFolder = path.parent_path();
    const kavo::TemplateSections loaded = kavo::loadTemplateFile(sections(), path);
    m_beginning.setBytes(loaded.beginning);
    m_loop.setBytes(loaded.loop);
    m_total.setBytes(loaded.total);
    m_ending.setBytes(loaded.ending);
}

// Command4: write the report
void Form11::Command4_Click()
{
    std::string_view outcome = kOk;
    try {
        m_reports.write(session(), sections(), services().clock.now().toSecsSinceEpoch(), typedPath(ui->Text1->text()));
    } catch (const std::exception&) {
        outcome = kFailed;  // whatever it was: the box says no more
    }
    services().prompts.tell(this, {.text = std::string(outcome)});
}

/// Where templates are looked for: where the last one was, at first where the supplied ones are.
std::filesystem::path Form11::templateFolder() const
{
    if (kavo::folderExists(session().lastTemplateFolder)) return session().lastTemplateFolder;
    return kavo::findSuppliedFolder(session().programFolder, kavo::executableFolder(), "templates");
}

std::filesystem::path Form11::typedPath(const QString& text) const
{
    return kavo::locateTyped(session().programFolder, fromScreen(text));
}

kavo::TemplateSections Form11::sections() const
{
    return {m_beginning.bytes(), m_loop.bytes(), m_total.bytes(), m_ending.bytes()};
}
