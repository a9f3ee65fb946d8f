#include "app/program.h"

#include "forms/screen_text.h"

#include <QApplication>

namespace kavo {

Program::Program(const std::filesystem::path& programFolder, Prompts& prompts)
    : m_lock(pathToScreen(programFolder / "kavo-timing.lock"))
{
    m_session.programFolder = programFolder;
    m_lock.setStaleLockTime(0);
    const Services services{m_session, prompts, m_desktop, m_clock};
    m_login = std::make_unique<frmLogin>(services, *this);
    m_mainWindow = std::make_unique<Form1>(services, *this);
    connect(m_mainWindow.get(), &Form1::closed, this, [this] {
        if (!m_login->isVisible()) quit();
    });
}

Program::~Program() = default;

void Program::start()
{
    m_login->Form_Load();
}

bool Program::isOnlyInstance()
{
    // A folder that cannot be written has no lock, and no settings that two programs could mix up.
    return m_lock.isLocked() || m_lock.tryLock(0) || m_lock.error() != QLockFile::LockFailedError;
}

void Program::showMain()
{
    if (!isOnlyInstance()) {
        quit();
        return;
    }
    m_splash = std::make_unique<frmSplash>();
    m_splash->show();
    m_login->hide();
    QApplication::processEvents();
    // A box that the loading shows must not lie behind the splash.
    connect(m_mainWindow.get(), &Form1::aboutToPrompt, m_splash.get(), &QWidget::close);
    m_splash->raise();
    m_mainWindow->open();
    QApplication::processEvents();
    m_splash->close();
}

void Program::showLogin(const QString& nick, bool autoLogin)
{
    m_login->Form_Load();
    m_login->offer(nick, autoLogin);
}

void Program::quit()
{
    QApplication::quit();
}

}  // namespace kavo
