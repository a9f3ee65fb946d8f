// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/grade_tip.h"

#include <cctype>
#include <cmath>

namespace kavo {

namespace {

/// Of the form MM:SS:HH, which alone can be reckoned with.
bool isTime(std::string_view text)
{
    constexpr std::string_view kForm = "00:00:00";
    if (text.size() != kForm.size()) return false;
    for (std::size_t i = 0; i < kForm.size(); ++i)
        if (kForm[i] == '0' ? std::isdigit(static_cast<unsigned char>(text[i])) == 0 : text[i] != kForm[i])
            return false;
    return true;
}

/// A number of hundredths as seconds: 67 is "0.67".
std::string secondsText(double hundredths)
{
    const auto whole = std::lround(hundredths);
    return std::to_string(whole / 100) + "." + twoDigits(static_cast<double>(whole % 100));
}

std::string inBrackets(const std::string& target)
{
    return isTime(target) ? " (" + target + ")" : "";
}

}  // namespace

std::string gradeTip(const ResultsState& state, int row, std::string_view time, std::string_view grade)
{
    std::string tip(grade);
    const auto category = categoryNamed(grade);
    if (!category || !isTime(time)) return tip;
    if (*category == TargetCategory::WorldRecord) return tip + inBrackets(state.TargetWR[row]);
    const Grade* nearest = nullptr;
    double least = 0;
    for (const Grade& better : grades()) {
        if (better.category == *category) break;
        const std::string& target = (state.*better.targets)[row];
        const double gap = HundredthsOf(time) - HundredthsOf(target);
        if (!isTime(target) || gap <= 0 || (nearest != nullptr && gap >= least)) continue;
        nearest = &better;
        least = gap;
    }
    if (nearest == nullptr) return tip;
    const std::string& target = (state.*nearest->targets)[row];
    return tip + ". " + secondsText(least) + " s to " + std::string(nearest->name) + inBrackets(target);
}

}  // namespace kavo
