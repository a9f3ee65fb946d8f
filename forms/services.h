// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDateTime>

namespace kavo {

class Desktop;
class Prompts;
struct Session;

/// The time of day, for reports.
class Clock
{
public:
    virtual ~Clock() = default;
    [[nodiscard]] virtual QDateTime now() const = 0;
};

/// What every window is given: the session and the world around the program. Made in app/.
struct Services
{
    Session& session;
    Prompts& prompts;
    Desktop& desktop;
    const Clock& clock;
};

}  // namespace kavo
