// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/results_state.h"

namespace kavo {

namespace {

using S = ResultsState;

constexpr std::array<Grade, kCategories> kGrades = {{
    {TargetCategory::WorldRecord, "World Record", &S::TargetWR, &ColourSet::ColWR, {&S::WR1, &S::WR2, &S::WRT}},
    {TargetCategory::WorldClass, "World Class", &S::TargetWC, &ColourSet::ColWC, {&S::WC1, &S::WC2, &S::WCT}},
    {TargetCategory::Professional, "Professional", &S::TargetPro, &ColourSet::ColPro, {&S::Pro1, &S::Pro2, &S::ProT}},
    {TargetCategory::Good, "Good", &S::TargetGood, &ColourSet::ColGood, {&S::Good1, &S::Good2, &S::GoodT}},
    {TargetCategory::OK, "OK", &S::TargetOK, &ColourSet::ColOK, {&S::OK1, &S::OK2, &S::OKT}},
    {TargetCategory::Beginner, "Beginner", nullptr, nullptr, {&S::Beg1, &S::Beg2, &S::BegT}},
}};

constexpr auto kSides = std::to_array({Side::Player1, Side::Player2, Side::Team});

}  // namespace

const std::array<Grade, kCategories>& grades()
{
    return kGrades;
}

const Grade& gradeOf(TargetCategory category)
{
    return kGrades.at(static_cast<std::size_t>(category));
}

std::optional<TargetCategory> categoryNamed(std::string_view name)
{
    for (const Grade& grade : kGrades)
        if (grade.name == name) return grade.category;
    return std::nullopt;
}

const Grade& gradeReached(const ResultsState& state, int row, std::string_view time)
{
    for (const Grade& grade : kGrades)
        if (grade.targets != nullptr && time <= (state.*grade.targets)[row]) return grade;
    return gradeOf(TargetCategory::Beginner);
}

const std::string& ResultsState::name(Side side) const
{
    switch (side) {
    case Side::Player1: return Player1Name;
    case Side::Player2: return Player2Name;
    case Side::Team: break;
    }
    return TeamName;
}

std::int32_t ResultsState::counter(Side side, TargetCategory category) const
{
    return this->*gradeOf(category).counters.at(static_cast<std::size_t>(side));
}

std::int32_t& ResultsState::counter(Side side, TargetCategory category)
{
    return this->*gradeOf(category).counters.at(static_cast<std::size_t>(side));
}

std::int16_t ResultsState::victories(Side side) const
{
    switch (side) {
    case Side::Player1: return Victories1;
    case Side::Player2: return Victories2;
    case Side::Team: break;
    }
    return static_cast<std::int16_t>(Victories1 + Victories2);
}

void ResultsState::resetCounters()
{
    for (const Grade& grade : kGrades)
        for (const Side side : kSides) counter(side, grade.category) = 0;
}

void ResultsState::keepDifference(const Difference& difference)
{
    // "No change" leaves the parts of the difference before it.
    if (difference.faster == Faster::Neither) return;
    DiffMin = difference.minutes;
    DiffSec = difference.seconds;
    DiffHun = difference.hundredths;
    DiffMinStr = twoDigits(DiffMin);
    DiffSecStr = twoDigits(DiffSec);
    DiffHunStr = twoDigits(DiffHun);
}

}  // namespace kavo
