// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/grade_tip.h"

#include <cmath>
#include <limits>

namespace kavo {

namespace {

/// A number of hundredths as seconds: 67 is "0.67".
std::string secondsText(double hundredths)
{
    const auto whole = std::lround(hundredths);
    return std::to_string(whole / 100) + "." + twoDigits(static_cast<double>(whole % 100));
}

std::string inBrackets(const std::string& target)
{
    return isTimeOfLevel(target) ? " (" + target + ")" : "";
}

}  // namespace

std::string gradeTip(const ResultsState& state, int row, std::string_view time, std::string_view grade)
{
    std::string tip(grade);
    const auto category = categoryNamed(grade);
    if (!category || !isTimeOfLevel(time)) return tip;  // no other text can be reckoned with
    if (*category == TargetCategory::WorldRecord) return tip + inBrackets(state.TargetWR[row]);
    const Grade* nearest = nullptr;
    double least = std::numeric_limits<double>::infinity();
    for (const Grade& better : grades()) {
        if (better.category == *category) break;
        const std::string& target = (state.*better.targets)[row];
        const double gap = HundredthsOf(time) - HundredthsOf(target);
        if (!isTimeOfLevel(target) || gap <= 0 || gap >= least) continue;
        nearest = &better;
        least = gap;
    }
    if (nearest == nullptr) return tip;
    const std::string& target = (state.*nearest->targets)[row];
    return tip + ". " + secondsText(least) + " s to " + std::string(nearest->name) + inBrackets(target);
}

}  // namespace kavo
