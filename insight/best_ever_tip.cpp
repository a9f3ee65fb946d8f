// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/best_ever_tip.h"

#include "insight/exact_time.h"
#include "insight/state_name.h"
#include "reports/report_dates.h"

namespace kavo {

std::string bestEverTip(const BestEver& best, int level, std::string_view time)
{
    const BestEverLevel& kept = best[level];
    const auto bestValue = exactTime(kept.time);
    const auto value = exactTime(time);
    const bool isComparable = value || time == kSkipped;
    if (!bestValue || !isComparable || (value && *value <= *bestValue)) return {};
    const auto moment = momentOfState(kept.since);
    return "Best ever: " + kept.time + (moment ? " (" + datesOf(*moment).date + ")" : "");
}

}  // namespace kavo
