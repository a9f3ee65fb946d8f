// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>

namespace kavo {

/// How the login window and the main window reach each other. Implemented in app/.
class Navigator
{
public:
    virtual ~Navigator() = default;

    /// After a login: splash, main window (which loads everything), and the login window gone.
    virtual void showMain() = 0;

    /// Back to the login window with this nick and auto-login choice.
    virtual void showLogin(const QString& nick, bool autoLogin) = 0;

    /// Ends the program.
    virtual void quit() = 0;
};

}  // namespace kavo
