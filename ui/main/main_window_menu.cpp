// What the entries of the main window's menu do.

#include "core/users.h"
#include "forms/screen_text.h"
#include "ui/main/main_window.h"
#include "ui/settings/bug_times_window.h"
#include "ui/settings/options_window.h"
#include "ui/settings/view_window.h"

void Form1::mnuUpTargets_Click() {}

void Form1::mnuBUGs_Click()
{
    Form8 window(m_services, this);
    connect(&window, &Form8::saved, this, &Form1::reload);
    window.exec();
}

void Form1::mnuOpt_Click()
{
    Form2 window(m_services, this);
    connect(&window, &Form2::saved, this, &Form1::reload);
    window.exec();
}

void Form1::mnuFont_Click()
{
    Form3 window(m_services, this);
    connect(&window, &Form3::saved, this, &Form1::reload);
    connect(&window, &Form3::fontSizeChosen, this, &Form1::setFontSize);
    window.exec();
}

void Form1::mnuStats_Click() {}

void Form1::mnuLevsStats_Click() {}

void Form1::mnuHTML_Click() {}

void Form1::mnuExport_Click() {}

void Form1::mnuTextExport_Click() {}

void Form1::mnuLinks_Click() {}

void Form1::mnuAbout_Click() {}

void Form1::mnuRefresh_Click()
{
    reload();
}

void Form1::mnuChangeUser_Click()
{
    const kavo::Session& session = m_services.session;
    const bool autoLogin = kavo::readAutoLogin(session.programFolder) == kavo::kAutoLogin;
    kavo::suspendAutoLogin(session.programFolder);
    m_navigator.showLogin(kavo::toScreen(session.UserName), autoLogin);
    close();
}
