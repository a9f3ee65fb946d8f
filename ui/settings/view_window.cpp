// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/settings/view_window.h"

#include "base/run_time_error.h"
#include "base/text.h"
#include "core/colour_schemes.h"
#include "core/session.h"
#include "core/settings.h"
#include "forms/event_guard.h"
#include "forms/prompts.h"
#include "forms/screen_text.h"
#include "forms/window_painting.h"
#include "ui/settings/swatch.h"
#include "ui_view_window.h"

#include <QKeyEvent>

using kavo::ColourLine;
using kavo::toScreen;

namespace {

constexpr int kBytes = Qt::UserRole;  ///< of a scheme's name, as its file has it

}  // namespace

Form3::Form3(const kavo::Services& services, QWidget* parent)
    : SecondaryWindow(services, parent), ui(std::make_unique<Ui::Form3>())
{
    ui->setupUi(this);
    m_swatches = {ui->lCol_0,  ui->lCol_1,  ui->lCol_2,  ui->lCol_3, ui->Label10,
                  ui->Label11, ui->Label12, ui->Label13, ui->Label14};
    ui->lCol_0->setFocus();
    wire();
    Form_Load();
}

Form3::~Form3() = default;

void Form3::wire()
{
    for (int index = 0; index < kavo::kWindowColours; ++index)
        kavo::on(m_swatches.at(static_cast<std::size_t>(index)), &kavo::Swatch::clicked, this,
                 [this, index] { lCol_Click(index); });
    kavo::on(ui->Label10, &kavo::Swatch::clicked, this, &Form3::Label10_Click);             // World Record
    kavo::on(ui->Label11, &kavo::Swatch::clicked, this, &Form3::Label11_Click);             // World Class
    kavo::on(ui->Label12, &kavo::Swatch::clicked, this, &Form3::Label12_Click);             // Professional
    kavo::on(ui->Label13, &kavo::Swatch::clicked, this, &Form3::Label13_Click);             // Good
    kavo::on(ui->Label14, &kavo::Swatch::clicked, this, &Form3::Label14_Click);             // OK
    kavo::on(ui->Command1, &QPushButton::clicked, this, &Form3::Command1_Click);            // apply the font size
    kavo::on(ui->Command2, &QPushButton::clicked, this, &Form3::Command2_Click);            // save
    kavo::on(ui->Command3, &QPushButton::clicked, this, &Form3::Command3_Click);            // default colours
    kavo::on(ui->Command4, &QPushButton::clicked, this, &Form3::close);                     // close
    kavo::on(ui->Command5, &QPushButton::clicked, this, &Form3::Command5_Click);            // set the scheme
    kavo::on(ui->Command6, &QPushButton::clicked, this, &Form3::Command6_Click);            // save a scheme
    kavo::on(ui->cmbSheme, &QComboBox::currentIndexChanged, this, &Form3::cmbSheme_Click);  // schemes
    ui->Text1->installEventFilter(this);
    ui->Text2->installEventFilter(this);
}

void Form3::Form_Load()
{
    m_userFolder = currentUserFolder();
    fillSchemes();
    m_colours = kavo::readColoursToEdit(m_userFolder);
    applyColours();
    showColours();
    upgradeColours();
}

void Form3::reopen()
{
    const QSignalBlocker quiet(ui->cmbSheme);
    ui->cmbSheme->setCurrentIndex(-1);
    ui->Command5->setEnabled(false);
    ui->Text1->setValue(static_cast<int>(kavo::kDesignedFontSize));
    ui->Text2->clear();
    Form_Load();
}

void Form3::fillSchemes()
{
    const QSignalBlocker quiet(ui->cmbSheme);
    const QString chosen = ui->cmbSheme->currentText();
    ui->cmbSheme->clear();
    for (const std::string& name : kavo::listSchemes(m_userFolder))
        ui->cmbSheme->addItem(toScreen(name), QByteArray::fromStdString(name));
    ui->cmbSheme->setCurrentIndex(
        chosen.isEmpty() ? -1 : ui->cmbSheme->findText(chosen, Qt::MatchExactly | Qt::MatchCaseSensitive));
}

void Form3::upgradeColours()
{
    try {
        kavo::upgradeColours(m_userFolder);
    } catch (const std::exception& error) {
        // The window is of use without it: nothing else writes at opening.
        services().prompts.tell(this, {.text = kavo::inWords(error), .icon = kavo::MessageIcon::Critical});
    }
}

void Form3::showColours()
{
    for (std::size_t line = 0; line < m_swatches.size(); ++line)
        kavo::paintSwatch(*m_swatches.at(line), m_colours.*kavo::kColourLines.at(line));
}

// lCol, Label10 to Label14: pick a colour
void Form3::pickColour(ColourLine which)
{
    const auto line = static_cast<std::size_t>(which);
    kavo::Colour& colour = m_colours.*kavo::kColourLines.at(line);
    const QColor current = kavo::toQColor(colour);
    const QColor chosen = services().prompts.askColour(this, current);
    if (chosen == current) return;
    colour = kavo::fromQColor(chosen);
    kavo::paintSwatch(*m_swatches.at(line), colour);
}

void Form3::lCol_Click(int index)
{
    pickColour(static_cast<ColourLine>(index));
}

void Form3::Label10_Click()  // World Record
{
    pickColour(ColourLine::WorldRecord);
}

void Form3::Label11_Click()  // World Class
{
    pickColour(ColourLine::WorldClass);
}

void Form3::Label12_Click()  // Professional
{
    pickColour(ColourLine::Professional);
}

void Form3::Label13_Click()  // Good
{
    pickColour(ColourLine::Good);
}

void Form3::Label14_Click()  // OK
{
    pickColour(ColourLine::OK);
}

// Command2, Command3: write the colours in force
void Form3::saveAndReload(const kavo::ColourSet& colours)
{
    kavo::saveColours(m_userFolder, colours);
    emit saved();
    reopen();
}

void Form3::Command2_Click()  // Save
{
    saveAndReload(m_colours);
}

void Form3::Command3_Click()  // Default
{
    saveAndReload({});
}

// cmbSheme, Command5, Text2, Command6: schemes
void Form3::cmbSheme_Click()
{
    ui->Command5->setEnabled(true);
}

void Form3::Command5_Click()  // Set
{
    const std::string name = schemeAt(ui->cmbSheme->currentIndex());
    if (name.empty()) return;
    kavo::setScheme(m_userFolder, name);
    Form_Load();
}

void Form3::Command6_Click()  // Save
{
    const std::string name = kavo::fromScreen(ui->Text2->text());
    kavo::saveScheme(m_userFolder, name, m_colours);
    fillSchemes();
    for (int item = 0; item < ui->cmbSheme->count(); ++item)
        if (kavo::equalIgnoringCase(schemeAt(item), name)) ui->cmbSheme->setCurrentIndex(item);
}

/// Name of a scheme in the list, as its file has it.
std::string Form3::schemeAt(int item) const
{
    return ui->cmbSheme->itemData(item, kBytes).toByteArray().toStdString();
}

// Text1, Command1: font size of the results table
void Form3::Command1_Click()
{
    const double points = ui->Text1->value();
    emit fontSizeChosen(points);
    ui->Text1->selectAll();
    kavo::saveFontSize(m_userFolder, points);
}

bool Form3::eventFilter(QObject* watched, QEvent* event)
{
    const bool isBox = watched == ui->Text1 || watched == ui->Text2;
    if (!isBox || event->type() != QEvent::KeyPress) return SecondaryWindow::eventFilter(watched, event);
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key != Qt::Key_Return && key != Qt::Key_Enter) return SecondaryWindow::eventFilter(watched, event);
    // Enter in a box presses the button beside it, not the window's default one, which saves the colours.
    if (watched == ui->Text1) ui->Text1->interpretText();
    kavo::guarded([this, watched] {
        if (watched == ui->Text1) Command1_Click();
        if (watched == ui->Text2 && !ui->Text2->text().isEmpty()) Command6_Click();
    });
    return true;
}
