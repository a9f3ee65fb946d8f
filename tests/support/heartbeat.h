// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QElapsedTimer>
#include <QFile>
#include <QTimer>

#include <algorithm>
#include <chrono>

namespace kavo::test {

/// Below it nobody notices that the event loop was deaf. Windows does not tell for how long it had no processor for a
/// thread, so there a pause may be longer.
#ifdef _WIN32
inline constexpr std::chrono::milliseconds kLongestPause(1000);
#else
inline constexpr std::chrono::milliseconds kLongestPause(100);
#endif

/// Notes how long the event loop of this thread has been deaf at most. The time for which the system had no
/// processor for the thread is left out: a busy machine is not the program's doing.
class Heartbeat final
{
public:
    Heartbeat()
    {
        constexpr std::chrono::milliseconds kBeat(2);
        QObject::connect(&m_timer, &QTimer::timeout, [this] { beat(); });
        m_timer.start(kBeat);
        m_sinceBeat.start();
        m_waited = waitedForProcessor();
    }

    /// The longest time without a beat so far.
    [[nodiscard]] std::chrono::milliseconds longestPause()
    {
        beat();
        return std::chrono::duration_cast<std::chrono::milliseconds>(m_longest);
    }

private:
    void beat()
    {
        const auto waited = waitedForProcessor();
        m_longest = std::max(m_longest, std::chrono::nanoseconds(m_sinceBeat.nsecsElapsed()) - (waited - m_waited));
        m_waited = waited;
        m_sinceBeat.start();
    }

    /// Second number of the scheduler's figures; 0 on a system without them.
    static std::chrono::nanoseconds waitedForProcessor()
    {
        QFile figures("/proc/thread-self/schedstat");
        if (!figures.open(QIODevice::ReadOnly)) return {};
        return std::chrono::nanoseconds(figures.readAll().split(' ').value(1).toLongLong());
    }

    QTimer m_timer;
    QElapsedTimer m_sinceBeat;
    std::chrono::nanoseconds m_waited{};
    std::chrono::nanoseconds m_longest{};
};

}  // namespace kavo::test
