// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <stop_token>

namespace kavo::test {

/// Holds a thread up at a certain place until the test lets it go on.
class Gate final
{
public:
    /// For the thread: waits until the gate is open or `stop` is asked for.
    void pass(const std::stop_token& stop = {})
    {
        std::unique_lock lock(m_mutex);
        ++m_arrivals;
        m_change.notify_all();
        // It asks for the stop: to be called back by it deadlocks at times with the compiler's library for Windows.
        constexpr std::chrono::milliseconds kOften(1);
        while (!m_isOpen && !stop.stop_requested()) m_change.wait_for(lock, kOften);
    }

    /// For the test: waits until somebody stands before the gate, or has gone through it.
    void waitForArrival()
    {
        std::unique_lock lock(m_mutex);
        m_change.wait(lock, [this] { return m_arrivals > 0; });
    }

    void open()
    {
        const std::lock_guard lock(m_mutex);
        m_isOpen = true;
        m_change.notify_all();
    }

    [[nodiscard]] int arrivals()
    {
        const std::lock_guard lock(m_mutex);
        return m_arrivals;
    }

private:
    std::mutex m_mutex;
    std::condition_variable m_change;
    int m_arrivals = 0;
    bool m_isOpen = false;
};

}  // namespace kavo::test
