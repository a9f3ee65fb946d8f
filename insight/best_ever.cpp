// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/best_ever.h"

#include "base/run_time_error.h"
#include "base/text.h"
#include "core/level_time.h"

namespace kavo {

namespace {

constexpr std::string_view kLevelWord = "Level";

/// Has the words by which statistics files are known, in letters that begin no level.
constexpr std::string_view kHeading =
    "Best times ever of one player on every level, from the first one over the steppes to the last\r\n\r\n";

/// A level's name that is read back as it is written.
std::string writableName(std::string_view name)
{
    std::string text = replaceAll(name, kLineEnd, " ");
    // A small letter may complete the word with what stands before it: "LeveLevel" gives "Levelevel".
    while (text.find(kLevelWord) != std::string::npos) text = replaceAll(text, kLevelWord, "level");
    return text;
}

}  // namespace

void takeState(BestEver& best, const StatisticsTimes& times, std::string_view state)
{
    for (int level = 1; level <= kLevels; ++level) {
        BestEverLevel& kept = best[level];
        const LevelRecord& record = times[level];
        kept.name = record.name;
        const auto value = exactTime(record.time);
        const auto keptValue = exactTime(kept.time);
        if (!value || (keptValue && *keptValue <= *value)) continue;
        kept.time = record.time;
        kept.driver = record.driver;
        kept.since = state;
    }
}

void takeRemembered(BestEver& best, const HistoryStore& history, std::string_view state)
{
    try {
        const std::string text = history.read(state);
        if (isStatisticsFile(text)) takeState(best, parseStatisticsTimes(text), state);
    } catch (const RunTimeError&) {
        // Not what was remembered.
    }
}

BestEver bestEverOf(const HistoryStore& history)
{
    BestEver best;
    for (const RememberedState& state : history.states()) takeRemembered(best, history, state.name);
    return best;
}

StatisticsTimes timesOf(const BestEver& best)
{
    StatisticsTimes times;
    for (int level = 1; level <= kLevels; ++level)
        times[level] = {best[level].name, best[level].time, best[level].driver};
    return times;
}

std::string formatBestEver(const BestEver& best)
{
    std::string text(kHeading);
    for (int level = 1; level <= kLevels; ++level) {
        text.append("Level ").append(writableName(best[level].name)).append(kLineEnd);
        if (best[level].time == kSkipped) continue;  // the next header right behind this one says so
        text.append(best[level].time);
        if (!best[level].driver.empty()) text.append(" ").append(best[level].driver);
        text.append(kLineEnd).append(kLineEnd);
    }
    // Behind a last level without a time two empty lines are needed to say that there is none.
    return text.append(kLineEnd).append(kLineEnd);
}

}  // namespace kavo
