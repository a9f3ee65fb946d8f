// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/settings/options_window.h"

#include "base/file_name.h"
#include "base/run_time_error.h"
#include "base/text_file.h"
#include "core/session.h"
#include "forms/event_guard.h"
#include "forms/prompts.h"
#include "forms/screen_text.h"
#include "ui_options_window.h"

#include <QDir>
#include <QLineEdit>

using kavo::CompareMethod;
using kavo::fromScreen;
using kavo::toScreen;

namespace {

/// None in a file that ends too early.
std::optional<double> fontSizeIn(std::string_view settings)
{
    try {
        return kavo::parseSettings(settings).fontSize;
    } catch (const kavo::RunTimeError&) {
        return std::nullopt;
    }
}

}  // namespace

Form2::Form2(const kavo::Services& services, QWidget* parent)
    : SecondaryWindow(services, parent), ui(std::make_unique<Ui::Form2>())
{
    ui->setupUi(this);
    m_designedPath = ui->Text1->text();
    ui->Combo1->setCurrentIndex(-1);  // no grade until one is chosen
    // Of the list, too, so that it counts for the list's width.
    ui->Combo1->setPlaceholderText("choose a grade");
    ui->Combo1->lineEdit()->setPlaceholderText(ui->Combo1->placeholderText());
    ui->Combo1->lineEdit()->setAccessibleName(ui->Combo1->accessibleName());
    ui->Text1->setFocus();
    wire();
    Form_Load();
}

Form2::~Form2() = default;

void Form2::wire()
{
    kavo::on(ui->Command1, &QPushButton::clicked, this, &Form2::Command1_Click);  // browse for the game's file
    kavo::on(ui->Command2, &QPushButton::clicked, this, &Form2::Command2_Click);  // browse for another file
    kavo::on(ui->Command3, &QPushButton::clicked, this, &Form2::Command3_Click);  // save
    kavo::on(ui->Command4, &QPushButton::clicked, this, &Form2::Command4_Click);  // close
    kavo::on(ui->Command5, &QPushButton::clicked, this, &Form2::Command5_Click);  // clear the previous results
    kavo::on(ui->Option1, &QRadioButton::toggled, this, &Form2::Option1_Click);   // with previous results
    kavo::on(ui->Option2, &QRadioButton::toggled, this, &Form2::Option2_Click);   // with another file
    kavo::on(ui->Option3, &QRadioButton::toggled, this, &Form2::Option3_Click);   // with targets
}

void Form2::Form_Load()
{
    m_shown = settingsOfControls();
    try {
        readSettings();
        applyColours();
    } catch (const std::exception&) {
        // Whatever cannot be read keeps its designed value: this is the window that mends settings.
    }
}

void Form2::readSettings()
{
    m_unread = nullptr;
    try {
        if (const auto text = kavo::readFileIfThere(kavo::settingsFile(currentUserFolder()))) {
            m_shown = kavo::parseSettingsLeniently(*text, m_shown);
            m_fontSize = fontSizeIn(*text);
        }
        showSettings();
    } catch (const std::exception&) {
        m_unread = std::current_exception();
        throw;
    }
}

/// Settings that could not be read when the window opened, and can be now, are shown before they are overwritten:
/// what stands in the window is not what the user has chosen. What still cannot be read is written anew.
void Form2::showUnreadSettings()
{
    const std::exception_ptr failure = m_unread;
    if (!failure) return;
    try {
        readSettings();
    } catch (const std::exception&) {
        return;
    }
    std::rethrow_exception(failure);
}

void Form2::showSettings()
{
    ui->Text1->setText(toScreen(m_shown.statsPath));
    if (m_shown.compareMethod == static_cast<int>(CompareMethod::AnotherFile)) ui->Option2->setChecked(true);
    if (m_shown.compareMethod == static_cast<int>(CompareMethod::Targets)) ui->Option3->setChecked(true);
    ui->Text2->setText(toScreen(m_shown.otherPath));
    ui->Combo1->setEditText(toScreen(m_shown.category));
    // Tab goes to the chosen method. The toolkit sees to that only once one of them has had the focus.
    for (QRadioButton* option : {ui->Option1, ui->Option2, ui->Option3})
        option->setFocusPolicy(option->isChecked() ? Qt::StrongFocus : Qt::ClickFocus);
}

kavo::Settings Form2::settingsOfControls() const
{
    CompareMethod method = CompareMethod::PreviousResults;
    if (ui->Option2->isChecked()) method = CompareMethod::AnotherFile;
    if (ui->Option3->isChecked()) method = CompareMethod::Targets;
    return {.statsPath = fromScreen(ui->Text1->text(), m_shown.statsPath),
            .compareMethod = static_cast<int>(method),
            .otherPath = fromScreen(ui->Text2->text(), m_shown.otherPath),
            .category = fromScreen(ui->Combo1->currentText(), m_shown.category),
            .fontSize = fontSize()};
}

/// The table's. A loading that has ended before it read the settings knows none: then the one in their file stays.
double Form2::fontSize() const
{
    return session().hasSettings ? session().fontSize : m_fontSize.value_or(session().fontSize);
}

// Option1, Option2, Option3: the compare method; only the controls of the chosen one are enabled
void Form2::Clearing()
{
    ui->Text2->setEnabled(false);
    ui->Command2->setEnabled(false);
    ui->Combo1->setEnabled(false);
}

void Form2::Option1_Click()
{
    if (ui->Option1->isChecked()) Clearing();
}

void Form2::Option2_Click()
{
    if (!ui->Option2->isChecked()) return;
    Clearing();
    ui->Text2->setEnabled(true);
    ui->Command2->setEnabled(true);
}

void Form2::Option3_Click()
{
    if (!ui->Option3->isChecked()) return;
    Clearing();
    ui->Combo1->setEnabled(true);
}

// Command1, Command2: browse for a statistics file
void Form2::browse(QLineEdit& box)
{
    const QString chosen = services().prompts.askFileToOpen(this, {.startAt = startOfBrowsing(box.text())});
    if (!chosen.isEmpty()) box.setText(chosen);
}

/// The folder of the path that a box holds; the home folder as long as it holds none.
QString Form2::startOfBrowsing(const QString& typed) const
{
    const auto folder = kavo::locateTyped(session().programFolder, fromScreen(typed)).parent_path();
    const bool isChosen = !typed.isEmpty() && typed != m_designedPath && kavo::folderExists(folder);
    return isChosen ? kavo::pathToScreen(folder) : QDir::homePath();
}

void Form2::Command1_Click()
{
    browse(*ui->Text1);
}

void Form2::Command2_Click()
{
    browse(*ui->Text2);
}

// Command3: save and reload
void Form2::Command3_Click()
{
    showUnreadSettings();
    const kavo::Settings settings = settingsOfControls();
    kavo::saveSettings(currentUserFolder(), settings);
    keepFirstResults(settings);
    close();
    emit saved();
}

void Form2::keepFirstResults(const kavo::Settings& settings)
{
    try {
        kavo::keepFirstResults(currentUserFolder(), kavo::locateTyped(session().programFolder, settings.statsPath));
    } catch (const std::exception&) {
        // The settings are written by now; the window stays, with the path to be mended at hand.
        ui->Text1->setFocus();
        ui->Text1->selectAll();
        throw;
    }
}

// Command4: close without saving
void Form2::Command4_Click()
{
    close();
    if (parentWidget() == nullptr) return;
    parentWidget()->raise();
    parentWidget()->activateWindow();
}

void Form2::closeRequested()
{
    Command4_Click();
}

// Command5: forget the previous results
void Form2::Command5_Click()
{
    try {
        kavo::deleteFile(kavo::previousResultsFile(currentUserFolder()));
    } catch (const std::exception&) {
        // The message is shown whether or not anything was deleted.
    }
    services().prompts.tell(this, {.text = std::string(kavo::messages::kPreviousResultsCleared),
                                   .title = std::string(kavo::messages::kPreviousResultsClearedTitle)});
    ui->Option1->setFocus();
}
