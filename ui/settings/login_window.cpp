// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/settings/login_window.h"

#include "core/session.h"
#include "core/users.h"
#include "forms/event_guard.h"
#include "forms/prompts.h"
#include "forms/screen_text.h"
#include "ui_login_window.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QScreen>

#include <algorithm>

using kavo::fromScreen;

namespace {

constexpr int kDesignedTop = 160;           // pixels
constexpr std::size_t kMostNicks = 10'000;  // listed; any other can be typed

QString onScreen(const std::string& nick)
{
    return kavo::toScreen(nick, kavo::kLongestCaption);
}

std::vector<std::string> readNicks(const std::filesystem::path& programFolder)
{
    std::vector<std::string> nicks = kavo::readUsers(programFolder);
    nicks.resize(std::min(nicks.size(), kMostNicks));
    return nicks;
}

/// The first nick that is shown as that text.
std::optional<std::string> shownAs(const QString& text, const std::vector<std::string>& nicks)
{
    const auto shown =
        std::find_if(nicks.begin(), nicks.end(), [&text](const std::string& nick) { return onScreen(nick) == text; });
    return shown == nicks.end() ? std::nullopt : std::optional(*shown);
}

}  // namespace

frmLogin::frmLogin(const kavo::Services& services, kavo::Navigator& navigator)
    : m_services(services), m_navigator(navigator)
{
    setObjectName("frmLogin");
    setWindowFlag(Qt::WindowStaysOnTopHint);
}

frmLogin::~frmLogin() = default;

void frmLogin::makeControls()
{
    if (ui) return;
    ui = std::make_unique<Ui::frmLogin>();
    ui->setupUi(this);
    ui->Combo1->lineEdit()->setAccessibleName(ui->Combo1->accessibleName());
    wire();
    Combo1_Change();
}

void frmLogin::wire()
{
    kavo::on(ui->Combo1, &QComboBox::currentTextChanged, this, &frmLogin::Combo1_Change);  // nick
    kavo::on(ui->cmdOK, &QPushButton::clicked, this, &frmLogin::cmdOK_Click);              // log in
    kavo::on(ui->cmdCancel, &QPushButton::clicked, this, &frmLogin::cmdCancel_Click);      // end the program
}

void frmLogin::Form_Load()
{
    try {
        if (const auto nick = nickWithoutControls()) {
            logIn(*nick, true);
            return;
        }
        fillControls();
        // A nick that could not be logged in with OK waits for the user, whose files stay as they are.
        if (ui->Check1->isChecked() && kavo::isNickForAutoLogin(nick())) {
            cmdOK_Click();
            return;
        }
    } catch (...) {
        // A broken login file must not leave the program running without a window.
        if (!ui) kavo::guarded([this] { fillControls(); });
        present();
        throw;
    }
    present();
}

/// The nick of a start that shows no login window: its controls are then made when it is first shown, if ever.
std::optional<std::string> frmLogin::nickWithoutControls() const
{
    if (ui) return std::nullopt;
    const auto& folder = m_services.session.programFolder;
    try {
        const std::vector<std::string> known = readNicks(folder);
        const auto current = kavo::readCurrentUserIfThere(folder);
        if (!current || kavo::readAutoLogin(folder) != kavo::kAutoLogin) return std::nullopt;
        const std::string nick = shownAs(onScreen(*current), known).value_or(*current);
        return kavo::isNickForAutoLogin(nick) ? std::optional(nick) : std::nullopt;
    } catch (const std::exception&) {
        return std::nullopt;  // the controls are filled from the same files, and the error told then
    }
}

void frmLogin::fillControls()
{
    makeControls();
    const auto& folder = m_services.session.programFolder;
    m_knownNicks = readNicks(folder);
    ui->Combo1->clear();
    for (const std::string& known : m_knownNicks) ui->Combo1->addItem(onScreen(known));
    ui->Combo1->setCurrentIndex(-1);
    ui->Combo1->clearEditText();
    ui->Check1->setChecked(false);
    if (const auto current = kavo::readCurrentUserIfThere(folder)) {
        ui->Combo1->setEditText(onScreen(*current));
        m_knownNicks.push_back(*current);
    }
    ui->Check1->setChecked(kavo::readAutoLogin(folder) == kavo::kAutoLogin);
}

void frmLogin::present()
{
    adjustSize();
    centreHorizontally();
    show();
    activateWindow();
    ui->Combo1->setFocus();
    ui->Combo1->lineEdit()->selectAll();  // typing another nick replaces it
}

void frmLogin::offer(const QString& nick, bool autoLogin)
{
    makeControls();
    ui->Combo1->setEditText(nick);
    ui->Check1->setChecked(autoLogin);
}

void frmLogin::centreHorizontally()
{
    const QRect area = screen()->geometry();
    move(area.left() + area.width() / 2 - width() / 2, area.top() + kDesignedTop);
}

std::string frmLogin::nick() const
{
    const QString text = ui->Combo1->currentText();
    return shownAs(text, m_knownNicks).value_or(fromScreen(text));
}

// Combo1: the nick
void frmLogin::Combo1_Change()
{
    // The tool-tip speaks of twelve characters; ten are what the folders have always been limited to.
    ui->cmdOK->setEnabled(kavo::isNickAllowed(nick()));
}

// cmdOK: log in
void frmLogin::cmdOK_Click()
{
    logIn(nick(), ui->Check1->isChecked());
}

void frmLogin::logIn(const std::string& nick, bool autoLogin)
{
    const auto& folder = m_services.session.programFolder;
    kavo::writeAutoLogin(folder, autoLogin);
    if (kavo::createUserIfNew(folder, nick))
        m_services.prompts.tell(this, {std::string(kavo::messages::kNewUser) + nick});
    kavo::writeCurrentUser(folder, nick);
    m_navigator.showMain();
}

// cmdCancel: end the program
void frmLogin::cmdCancel_Click()
{
    m_navigator.quit();
}

void frmLogin::Form_KeyPress(int key)
{
    if (key == Qt::Key_Escape) cmdCancel_Click();
}

void frmLogin::keyPressEvent(QKeyEvent* event)
{
    Form_KeyPress(event->key());
    if (event->key() != Qt::Key_Escape) QDialog::keyPressEvent(event);
}

void frmLogin::closeEvent(QCloseEvent* event)
{
    QDialog::closeEvent(event);
    m_navigator.quit();
}
