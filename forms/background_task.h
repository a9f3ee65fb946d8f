// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QFutureWatcher>
#include <QObject>

#include <chrono>
#include <functional>
#include <stop_token>
#include <thread>

namespace kavo {

/// Runs what would keep a window waiting on a thread of its own, one task at a time, with the wait cursor over
/// the program's windows. They go on answering: a task works on copies.
class BackgroundTask final : public QObject
{
    Q_OBJECT

public:
    /// Throws nothing, and returns soon after `stop` has been asked for.
    using Task = std::function<void(std::stop_token stop)>;

    /// `moment` is how long its end may wait for that of a task.
    explicit BackgroundTask(std::chrono::milliseconds moment = std::chrono::seconds(2));

    /// Cancels the task and waits for its end. A task that does not return in a moment is left to itself: the
    /// program's end never hangs.
    ~BackgroundTask() override;

    /// Does nothing while another one runs, cancelled or not, or when the system has no thread for it. Returns
    /// whether the task has been started.
    bool start(Task task);

    /// Asks the task to stop, and takes the wait cursor back at once.
    void cancel();

    /// Whether there is a task that nobody has cancelled.
    [[nodiscard]] bool isAwaited() const { return m_isAwaited; }

signals:
    /// The task has returned, cancelled or not.
    void ended();

private:
    void finish();
    void setAwaited(bool isAwaited);

    std::chrono::milliseconds m_moment;
    std::jthread m_thread;
    QFutureWatcher<void> m_watcher;
    bool m_isAwaited = false;
};

}  // namespace kavo
