// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/results_keeper.h"

#include "base/file_name.h"
#include "core/session.h"
#include "insight/history_store.h"

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

void remember(const Wish& wish) noexcept
{
    try {
        HistoryStore history(historyFolder(historyRoot(wish.sources), wish.userFolder));
        static_cast<void>(rememberFile(history, locateTyped(wish.programFolder, wish.statsPath), std::time(nullptr)));
    } catch (const std::exception&) {
        // No word on purpose: the user wants to see a table, and the command line tells what is wrong.
    }
}

}  // namespace

/// What there is to do, and whether a thread is at it.
struct ResultsKeeper::Work
{
    std::mutex mutex;
    std::condition_variable ended;
    std::optional<Wish> wish;  ///< the latest: those before it have the same file, or one that is no longer shown
    bool isRunning = false;

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
};

ResultsKeeper::ResultsKeeper(HistorySources sources, std::chrono::milliseconds moment)
    : m_sources(std::move(sources)), m_moment(moment), m_work(std::make_shared<Work>())
{
}

ResultsKeeper::~ResultsKeeper()
{
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
            while (const auto wish = work->take()) remember(*wish);
        }).detach();
        m_work->isRunning = true;
    } catch (const std::system_error&) {
        m_work->wish.reset();  // no thread to be had
    }
}

}  // namespace kavo
