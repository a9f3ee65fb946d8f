// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/level_statistics.h"

#include "base/text.h"
#include "core/level_time.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace kavo {

namespace {

std::string timeOfBar(const Session& session, int level, int bar)
{
    if (bar == kPlayer1Bar) return session.table.text(level, Column::Time1);
    if (bar == kPlayer2Bar) return session.table.text(level, Column::Time2);
    return (session.state.*gradeOf(static_cast<TargetCategory>(bar)).targets)[level];
}

int lengthOf(std::string_view time)
{
    return static_cast<int>(std::lround(numberOf(MilSec(time))));
}

}  // namespace

std::string MilSec(std::string_view time)
{
    return decimal(HundredthsOf(time));
}

std::string MaxTime(const Session& session, int level)
{
    const std::string& slowestTarget = session.state.TargetOK[level];
    const std::string& time1 = session.table.text(level, Column::Time1);
    const std::string& time2 = session.table.text(level, Column::Time2);
    // Both are compared with the target and not with each other, on purpose: when both are slower, the
    // second player's time is the scale even if the first one's is slower still.
    if (time2 > slowestTarget) return time2;
    if (time1 > slowestTarget) return time1;
    return slowestTarget;
}

std::string barName(const ResultsState& state, int bar)
{
    if (bar == kPlayer1Bar) return state.Player1Name;
    if (bar == kPlayer2Bar) return state.Player2Name;
    return std::string(gradeOf(static_cast<TargetCategory>(bar)).name);
}

LevelBars barsOfLevel(const Session& session, int level)
{
    LevelBars result;
    result.maximum = std::max(1, lengthOf(MaxTime(session, level)));
    for (int bar = 0; bar < kLevelBars; ++bar) {
        LevelBar& shown = result.bars.at(static_cast<std::size_t>(bar));
        shown.time = timeOfBar(session, level, bar);
        shown.length = std::clamp(lengthOf(shown.time), 0, result.maximum);
    }
    return result;
}

std::string listedLevelName(std::string_view levelText)
{
    const std::size_t length = countCharacters(levelText);
    return std::string(firstCharacters(levelText, length > 0 ? length - 1 : 0));
}

void BarPlaces::SwapTop(int a, int b)
{
    std::swap(m_places.at(static_cast<std::size_t>(a)), m_places.at(static_cast<std::size_t>(b)));
}

void BarPlaces::AutoSwap(const LevelBars& level)
{
    const auto timeOf = [&level](int bar) -> const std::string& {
        return level.bars.at(static_cast<std::size_t>(bar)).time;
    };
    // This very order of exchanges decides how bars with the same time end up among each other.
    for (int pass = 0; pass < kLevelBars; ++pass)
        for (int a = 0; a < kLevelBars; ++a)
            for (int b = 0; b < kLevelBars; ++b)
                if (of(a) < of(b) && timeOf(a) > timeOf(b)) SwapTop(a, b);
}

}  // namespace kavo
