// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/application.h"

#include "base/run_time_error.h"
#include "core/version.h"
#include "forms/focus_style.h"
#include "forms/screen_text.h"
#include "ui/about/logo.h"

namespace kavo {

Application::Application(int& argc, char** argv) : QApplication(argc, argv)
{
    setApplicationName("kavo-timing");
    setApplicationDisplayName({});
    setApplicationVersion(toScreen(kProductVersion));
    setDesktopFileName("kavo-timing");
    setStyle(new FocusStyle);
    setWindowIcon(logo());
    // Between the login and the main window there is a moment without any window.
    setQuitOnLastWindowClosed(false);
}

bool Application::notify(QObject* receiver, QEvent* event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception& error) {
        report(error);
        return true;
    }
}

void Application::report(const std::exception& error)
{
    m_prompts->tell(activeWindow(), {.text = inWords(error), .icon = MessageIcon::Critical});
}

}  // namespace kavo
