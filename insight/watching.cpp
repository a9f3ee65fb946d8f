// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/watching.h"

#include "insight/progress.h"

#include <utility>

namespace kavo {

bool FileSettling::look(std::optional<std::string_view> content, std::chrono::milliseconds now)
{
    if (!content) {
        // The next thing that is found there has to prove itself, even if it is the same.
        m_seen = m_settled;
        m_seenSince = now;
        return false;
    }
    if (m_seen != *content) {
        m_seen = *content;
        m_seenSince = now;
        return false;
    }
    const bool isAtRest = now - m_seenSince >= kSettlingTime;
    if (m_seen == m_settled || !isAtRest || !content->ends_with('\n') || !isWholeStatisticsFile(*content)) return false;
    m_settled = m_seen;
    return true;
}

bool FileSettling::isMoving(std::chrono::milliseconds now) const
{
    return m_seen != m_settled && now - m_seenSince < kSettlingTime;
}

std::vector<std::string> ImprovementWatch::take(std::string_view text, const ResultsState& targets)
{
    StatisticsTimes now = parseStatisticsTimes(text);
    std::vector<std::string> lines;
    if (m_before) {
        for (const LevelChange& change : compareTimes(*m_before, now, targets).changes)
            if (isImprovement(change)) lines.push_back(describe(change, targets));
    }
    m_before = std::move(now);
    return lines;
}

}  // namespace kavo
