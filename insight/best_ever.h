// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/level_time.h"
#include "insight/history_store.h"
#include "insight/statistics_times.h"

#include <string>
#include <string_view>

namespace kavo {

/// The best time of a level over all remembered states.
struct BestEverLevel
{
    std::string name;            ///< as in the latest state
    std::string time{kSkipped};  ///< "SKIPPED" when the level was never driven
    std::string driver;          ///< of that time
    std::string since;           ///< name of the first state that has it; empty without a time
};

using BestEver = OneBased<BestEverLevel, kLevels>;

/// Takes a state in, later than those before it. Only texts that are times count: what cannot be measured
/// beats nothing.
void takeState(BestEver& best, const StatisticsTimes& times, std::string_view state);

/// Takes a remembered state in, later than those before it. One that is no whole statistics file (somebody has
/// changed it or taken it away) is passed over.
void takeRemembered(BestEver& best, const HistoryStore& history, std::string_view state);

/// The best of everything remembered.
[[nodiscard]] BestEver bestEverOf(const HistoryStore& history);

/// The same as the content of a statistics file, for totals and comparisons.
[[nodiscard]] StatisticsTimes timesOf(const BestEver& best);

/// A statistics file with these times, which the program reads like one of the game's and can compare
/// with. A level's name may hold neither the word that begins a level, which is written in small letters there, nor
/// the end of a line, which becomes a blank.
[[nodiscard]] std::string formatBestEver(const BestEver& best);

}  // namespace kavo
