// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/background_task.h"

#include <QCursor>
#include <QDeadlineTimer>
#include <QGuiApplication>
#include <QPromise>
#include <QThread>

#include <system_error>
#include <utility>

namespace kavo {

BackgroundTask::BackgroundTask(std::chrono::milliseconds moment) : m_moment(moment)
{
    connect(&m_watcher, &QFutureWatcherBase::finished, this, &BackgroundTask::finish);
}

BackgroundTask::~BackgroundTask()
{
    cancel();
    if (!m_thread.joinable()) return;
    const QFuture<void> future = m_watcher.future();
    for (const QDeadlineTimer end(m_moment); !future.isFinished() && !end.hasExpired();) QThread::msleep(1);
    if (!future.isFinished()) m_thread.detach();
}

bool BackgroundTask::start(Task task)
{
    if (m_thread.joinable()) return false;
    QPromise<void> promise;
    QFuture<void> future = promise.future();
    try {
        // What the thread holds is its own: it may outlive this object.
        m_thread = std::jthread([task = std::move(task), promise = std::move(promise)](std::stop_token stop) mutable {
            promise.start();
            task(std::move(stop));
            promise.finish();
        });
    } catch (const std::system_error&) {
        return false;
    }
    setAwaited(true);
    m_watcher.setFuture(future);
    return true;
}

void BackgroundTask::cancel()
{
    setAwaited(false);
    m_thread.request_stop();
}

void BackgroundTask::finish()
{
    m_thread.join();
    setAwaited(false);
    emit ended();
}

void BackgroundTask::setAwaited(bool isAwaited)
{
    if (isAwaited == m_isAwaited) return;
    m_isAwaited = isAwaited;
    if (isAwaited)
        QGuiApplication::setOverrideCursor(Qt::WaitCursor);
    else
        QGuiApplication::restoreOverrideCursor();
}

}  // namespace kavo
