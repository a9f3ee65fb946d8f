// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QCoreApplication>
#include <QTimer>

#include <chrono>
#include <functional>

namespace kavo::test {

/// Runs the event loop until `hasCome`, which is asked after every event: nothing sleeps. False when it has
/// not come within `atMost`.
inline bool waitUntil(const std::function<bool()>& hasCome, std::chrono::milliseconds atMost = std::chrono::seconds(15))
{
    QTimer watchdog;
    watchdog.setSingleShot(true);
    watchdog.start(atMost);
    while (!hasCome() && watchdog.isActive()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return hasCome();
}

}  // namespace kavo::test
