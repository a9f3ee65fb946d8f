// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/time_scale.h"

namespace kavo {

std::optional<TimeScale> timeScaleOf(const ResultsState& targets, int level)
{
    TimeScale scale{};
    auto place = scale.rbegin();
    for (const Grade& grade : grades()) {
        if (grade.targets == nullptr) continue;
        const auto target = exactTime((targets.*grade.targets)[level]);
        if (!target) return std::nullopt;
        *place++ = *target;
    }
    if (scale.front() <= scale.back()) return std::nullopt;
    return scale;
}

double placeOn(const TimeScale& scale, Hundredths time)
{
    return static_cast<double>(scale.front() - time) / static_cast<double>(scale.front() - scale.back());
}

}  // namespace kavo
