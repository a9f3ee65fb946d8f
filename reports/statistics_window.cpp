// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/statistics_window.h"

#include "core/session.h"
#include "forms/event_guard.h"
#include "forms/screen_text.h"
#include "reports/statistics.h"
#include "ui_statistics_window.h"

#include <algorithm>

using kavo::Side;

Form6::Form6(const kavo::Services& services, QWidget* parent)
    : SecondaryWindow(services, parent), ui(std::make_unique<Ui::Form6>())
{
    ui->setupUi(this);
    wire();
    Form_Load();
}

Form6::~Form6() = default;

void Form6::wire()
{
    kavo::on(ui->Option1, &QRadioButton::toggled, this, &Form6::Option1_Click);  // player 1
    kavo::on(ui->Option2, &QRadioButton::toggled, this, &Form6::Option2_Click);  // player 2
    kavo::on(ui->Option3, &QRadioButton::toggled, this, &Form6::Option3_Click);  // team
    kavo::on(ui->Command1, &QPushButton::clicked, this, &Form6::close);          // close
}

void Form6::Form_Load()
{
    show(Side::Player1);
    fitText();
    spreadBars();
    ui->Option1->setText(kavo::captionToScreen(session().state.Player1Name));
    ui->Option2->setText(kavo::captionToScreen(session().state.Player2Name));
    ui->Option3->setText(kavo::captionToScreen(session().state.TeamName));
    allowToCutNames();
    applyColours();
}

// Option1, Option2, Option3: whose figures
void Form6::Option1_Click(bool isChosen)
{
    if (isChosen) show(Side::Player1);
}

void Form6::Option2_Click(bool isChosen)
{
    if (isChosen) show(Side::Player2);
}

void Form6::Option3_Click(bool isChosen)
{
    if (isChosen) show(Side::Team);
}

void Form6::show(Side side)
{
    const auto figures = kavo::statisticsFigures(session().state, side);
    const std::array bars = {ui->ProgressBar1, ui->ProgressBar2, ui->ProgressBar3, ui->ProgressBar4,
                             ui->ProgressBar5, ui->ProgressBar6, ui->ProgressBar7};
    const std::array numbers = {ui->Number1, ui->Number2, ui->Number3, ui->Number4,
                                ui->Number5, ui->Number6, ui->Number7};
    for (std::size_t i = 0; i < bars.size(); ++i) {
        QProgressBar& bar = *bars.at(i);
        const QString number = QString::number(figures.at(i));
        bar.setValue(std::clamp(figures.at(i), bar.minimum(), bar.maximum()));
        bar.setToolTip(number);
        numbers.at(i)->setText(number);
    }
    ui->Text1->setPlainText(kavo::toScreen(kavo::statisticsText(session().state, side)));
}

/// A long name must not make the window wider than the screen.
void Form6::allowToCutNames()
{
    constexpr int kShortest = 20;  // average characters
    for (QRadioButton* option : {ui->Option1, ui->Option2, ui->Option3})
        option->setMinimumWidth(
            std::min(option->sizeHint().width(), kShortest * option->fontMetrics().averageCharWidth()));
}

/// The first TAB stop lies behind the longest label, so that the numbers stand in one column.
void Form6::fitText()
{
    const QFontMetrics metrics(ui->Text1->font());
    const int stop = metrics.horizontalAdvance("World Records:  ");
    ui->Text1->setTabStopDistance(stop);
    constexpr int kLines = 9;  // and a margin
    ui->Text1->setMinimumSize(stop + metrics.horizontalAdvance("0000000"), kLines * metrics.lineSpacing());
}

/// The bars stand at equal distances, however long the labels under them are, unless the screen is too narrow for that.
void Form6::spreadBars()
{
    const std::array labels = {ui->Label1, ui->Label2, ui->Label3, ui->Label4, ui->Label5, ui->Label6, ui->Label7};
    int widest = 0;
    for (const QLabel* label : labels) widest = std::max(widest, label->sizeHint().width());
    for (int column = 0; column < kavo::kStatisticsBars; ++column)
        ui->barLayout->addItem(new QSpacerItem(widest, 0, QSizePolicy::Preferred, QSizePolicy::Minimum), 0, column);
}
