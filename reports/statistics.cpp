// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/statistics.h"

#include "base/text.h"

#include <string_view>

namespace kavo {

namespace {

/// The blanks bring the TABs behind them into line in the text box's font.
constexpr ByGrade<std::string_view> kLabels = {
    {"World Records:", "World Class:", "Professional:", "Good:        ", "OK:           ", "Beginner: "}};
constexpr std::string_view kVictoriesLabel = "Victories:  ";

std::string line(std::string_view label, int number)
{
    return std::string(kLineEnd).append(label).append("\t").append(std::to_string(number));
}

}  // namespace

std::array<int, kStatisticsBars> statisticsFigures(const ResultsState& state, Side side)
{
    std::array<int, kStatisticsBars> figures{};
    for (const Grade& grade : grades())  // best first, and the bars the other way round
        figures.at(kCategories - 1 - static_cast<std::size_t>(grade.category)) = state.counter(side, grade.category);
    figures.back() = state.victories(side);
    return figures;
}

std::string statisticsText(const ResultsState& state, Side side)
{
    std::string text = "Your statistics: ";
    for (const Grade& grade : grades()) text += line(kLabels[grade.category], state.counter(side, grade.category));
    return text + line(kVictoriesLabel, state.victories(side));
}

}  // namespace kavo
