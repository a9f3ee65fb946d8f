// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/level_statistics_window.h"

#include "core/session.h"
#include "forms/event_guard.h"
#include "forms/screen_text.h"
#include "ui_level_statistics_window.h"

#include <algorithm>

using kavo::toScreen;

namespace {

constexpr int kTotalTimeItem = kavo::kTotalsRow - 1;

/// A tool-tip that shows a name as it is, markup included.
QString plainToolTip(const QString& name)
{
    return Qt::mightBeRichText(name) ? name.toHtmlEscaped() : name;
}

}  // namespace

Form10::Form10(const kavo::Services& services, QWidget* parent)
    : SecondaryWindow(services, parent), ui(std::make_unique<Ui::Form10>())
{
    ui->setupUi(this);
    m_bars = {{{ui->Label2_0, ui->pgb_0, ui->Label1_0},
               {ui->Label2_1, ui->pgb_1, ui->Label1_1},
               {ui->Label2_2, ui->pgb_2, ui->Label1_2},
               {ui->Label2_3, ui->pgb_3, ui->Label1_3},
               {ui->Label2_4, ui->pgb_4, ui->Label1_4},
               {ui->Label2_5, ui->pgb_5, ui->Label1_5},
               {ui->Label2_6, ui->pgb_6, ui->Label1_6}}};
    wire();
    Form_Load();
}

Form10::~Form10() = default;

void Form10::wire()
{
    kavo::on(ui->Combo1, &QComboBox::currentIndexChanged, this, &Form10::Combo1_Click);  // level
    kavo::on(ui->Command1, &QPushButton::clicked, this, &Form10::Command1_Click);        // next
    kavo::on(ui->Command2, &QPushButton::clicked, this, &Form10::Command2_Click);        // previous
    kavo::on(ui->Command3, &QPushButton::clicked, this, &Form10::Command3_Click);        // first
    kavo::on(ui->Command4, &QPushButton::clicked, this, &Form10::Command4_Click);        // whole set
    kavo::on(ui->Command5, &QPushButton::clicked, this, &Form10::close);                 // close
}

void Form10::Form_Load()
{
    nameBars();
    applyColours();
    fillCombo();
    ui->Combo1->setCurrentIndex(std::clamp(session().table.selectedRow() - 1, 0, kTotalTimeItem));
}

void Form10::nameBars()
{
    for (const int bar : {kavo::kPlayer1Bar, kavo::kPlayer2Bar}) {
        const QString name = toScreen(kavo::barName(session().state, bar), kavo::kLongestCaption);
        const Bar& controls = m_bars.at(static_cast<std::size_t>(bar));
        controls.name->setText(name);
        controls.bar->setAccessibleName(name);
        controls.bar->setToolTip(plainToolTip(name));
        controls.time->setToolTip(plainToolTip(name));
    }
}

void Form10::fillCombo()
{
    QStringList names;
    for (int level = 1; level <= kavo::kLevels; ++level)
        names << toScreen(kavo::listedLevelName(session().table.text(level, kavo::Column::Level)),
                          kavo::kLongestCaption);
    // No item is chosen yet, so that choosing the first one shows it.
    const QSignalBlocker blocker(ui->Combo1);
    ui->Combo1->addItems(names << "Total Time");
    ui->Combo1->setCurrentIndex(-1);
}

// Combo1: the level
void Form10::Combo1_Click()
{
    ShowLevel(ui->Combo1->currentIndex() + 1);
}

// Command1 to Command4: through the levels
void Form10::Command1_Click()  // ->
{
    const int shown = ui->Combo1->currentIndex();
    if (shown < kTotalTimeItem) ui->Combo1->setCurrentIndex(shown + 1);
}

void Form10::Command2_Click()  // <-
{
    // Not from the second level to the first, on purpose: "<---" goes there.
    const int shown = ui->Combo1->currentIndex();
    if (shown > 1) ui->Combo1->setCurrentIndex(shown - 1);
}

void Form10::Command3_Click()  // <---
{
    ui->Combo1->setCurrentIndex(0);
}

void Form10::Command4_Click()  // --->
{
    ui->Combo1->setCurrentIndex(kTotalTimeItem);
}

void Form10::ShowLevel(int level)
{
    const kavo::LevelBars shown = kavo::barsOfLevel(session(), level);
    for (std::size_t i = 0; i < m_bars.size(); ++i) {
        m_bars.at(i).bar->setMaximum(shown.maximum);
        m_bars.at(i).bar->setValue(shown.bars.at(i).length);
        m_bars.at(i).time->setText(toScreen(shown.bars.at(i).time, kavo::kLongestCaption));
    }
    m_places.AutoSwap(shown);
    placeBars();
}

void Form10::placeBars()
{
    QGridLayout& grid = *ui->timesLayout;
    for (const Bar& bar : m_bars)
        for (QWidget* control : std::initializer_list<QWidget*>{bar.name, bar.bar, bar.time})
            grid.removeWidget(control);
    for (int i = 0; i < kavo::kLevelBars; ++i) {
        const Bar& bar = m_bars.at(static_cast<std::size_t>(i));
        const int row = m_places.of(i);
        grid.addWidget(bar.name, row, 0);
        grid.addWidget(bar.bar, row, 1);
        grid.addWidget(bar.time, row, 2);
    }
}
