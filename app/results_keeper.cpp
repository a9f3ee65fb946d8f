// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/results_keeper.h"

#include "base/file_name.h"
#include "core/session.h"
#include "insight/growing_best.h"
#include "insight/history_store.h"

#include <atomic>
#include <condition_variable>
#include <ctime>
#include <exception>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>

namespace kavo {

namespace {

/// Copies of what the session may change at any moment.
struct Wish
{
    HistorySources sources;
    std::filesystem::path programFolder;
    std::filesystem::path userFolder;
    std::string statsPath;
};

void remember(const Wish& wish, HistoryStore& history) noexcept
{
    try {
        static_cast<void>(rememberFile(history, locateTyped(wish.programFolder, wish.statsPath), std::time(nullptr)));
    } catch (const std::exception&) {
        // No word on purpose: the user wants to see a table, and the command line tells what is wrong.
    }
}

/// What was best, and of whose results.
struct UsersBest
{
    std::filesystem::path userFolder;
    std::shared_ptr<const BestEver> best;
};

}  // namespace

/// What there is to do, whether a thread is at it, and what has come of it.
struct ResultsKeeper::Work
{
    std::mutex mutex;
    std::condition_variable ended;
    std::optional<Wish> wish;  ///< the latest: those before it have the same file, or one that is no longer shown
    bool isRunning = false;
    UsersBest latest;
    std::atomic<bool> mayGoOn = true;  ///< with what nobody will see any more
    GrowingBest growing;               ///< the running thread's alone

    std::optional<Wish> take()
    {
        const std::lock_guard lock(mutex);
        auto next = std::exchange(wish, std::nullopt);
        if (!next) {
            isRunning = false;
            ended.notify_all();
        }
        return next;
    }

    void fulfil(const Wish& next) noexcept
    {
        try {
            HistoryStore history(historyFolder(historyRoot(next.sources), next.userFolder));
            remember(next, history);
            if (!growing.follow(history, [this] { return mayGoOn.load(); })) return;
            auto best = std::make_shared<const BestEver>(growing.best());
            const std::lock_guard lock(mutex);
            latest = {next.userFolder, std::move(best)};
        } catch (const std::exception&) {
            // As above: there is a table without it.
        }
    }
};

ResultsKeeper::ResultsKeeper(HistorySources sources, std::chrono::milliseconds moment)
    : m_sources(std::move(sources)), m_moment(moment), m_work(std::make_shared<Work>())
{
}

ResultsKeeper::~ResultsKeeper()
{
    m_work->mayGoOn = false;
    std::unique_lock lock(m_work->mutex);
    m_work->ended.wait_for(lock, m_moment, [this] { return !m_work->isRunning; });
}

void ResultsKeeper::keep(const Session& session)
{
    const std::lock_guard lock(m_work->mutex);
    m_work->wish = Wish{m_sources, session.programFolder, session.userFolder, session.StatsPath};
    if (m_work->isRunning) return;
    try {
        std::thread([work = m_work] {
            while (const auto wish = work->take()) work->fulfil(*wish);
        }).detach();
        m_work->isRunning = true;
    } catch (const std::system_error&) {
        m_work->wish.reset();  // no thread to be had
    }
}

std::shared_ptr<const BestEver> ResultsKeeper::bestEver(const Session& session) const
{
    const std::lock_guard lock(m_work->mutex);
    return m_work->latest.userFolder == session.userFolder ? m_work->latest.best : nullptr;
}

}  // namespace kavo
