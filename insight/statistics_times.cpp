// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/statistics_times.h"

#include "base/run_time_error.h"
#include "core/counted_time.h"

#include <utility>

namespace kavo {

StatisticsTimes parseStatisticsTimes(std::string_view text)
{
    StatisticsTimes times;
    StatisticsReader reader(text);
    for (int level = 1; level <= kLevels; ++level) {
        LevelRecord& record = times[level];
        record.name = reader.header();
        if (auto best = reader.bestTime()) {
            record.time = std::move(best->time);
            record.driver = std::move(best->driver);
        }
    }
    return times;
}

bool isWholeStatisticsFile(std::string_view text)
{
    if (!isStatisticsFile(text)) return false;
    try {
        static_cast<void>(parseStatisticsTimes(text));
        return true;
    } catch (const RunTimeError&) {
        return false;
    }
}

std::string_view playerOf(const StatisticsTimes& times)
{
    for (int level = 1; level <= kLevels; ++level)
        if (times[level].time != kSkipped) return times[level].driver;
    return {};
}

TargetCategory shownGrade(const ResultsState& targets, int level, std::string_view time)
{
    // Not compared with targets: a skipped level is a Beginner's, whatever stands there.
    return time == kSkipped ? TargetCategory::Beginner : gradeReached(targets, level, time).category;
}

std::string shownTotal(const StatisticsTimes& times)
{
    std::string total(kNoTime);
    for (int level = 1; level <= kLevels; ++level) total = AddTime(total, countedTime(times[level].time));
    return FormatTotal(total);
}

Hundredths exactTotal(const StatisticsTimes& times)
{
    Hundredths total = 0;
    for (int level = 1; level <= kLevels; ++level) total += countedHundredths(times[level].time);
    return total;
}

}  // namespace kavo
