// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "insight/best_ever.h"
#include "insight/history_place.h"

#include <chrono>
#include <memory>

namespace kavo {

struct Session;

/// Remembers results while the windows go on, one file after the other, and works out what was best in all of them.
/// It says nothing, whatever happens: nobody has asked for it.
class ResultsKeeper final
{
public:
    /// `moment` is how long its end may wait for a file that is being remembered. What was best is not waited for.
    explicit ResultsKeeper(HistorySources sources, std::chrono::milliseconds moment = std::chrono::seconds(2));

    /// What is not remembered in a moment is left: it is there as a whole or not at all, and next time is soon enough.
    ~ResultsKeeper();
    ResultsKeeper(const ResultsKeeper&) = delete;
    ResultsKeeper& operator=(const ResultsKeeper&) = delete;

    /// Remembers the statistics file that was loaded last. Returns at once.
    void keep(const Session& session);

    /// The best over everything remembered of the session's user, as it was when it was last worked out; nothing
    /// before that.
    [[nodiscard]] std::shared_ptr<const BestEver> bestEver(const Session& session) const;

private:
    struct Work;

    HistorySources m_sources;
    std::chrono::milliseconds m_moment;
    std::shared_ptr<Work> m_work;  ///< shared with the thread, which may outlive this object
};

}  // namespace kavo
