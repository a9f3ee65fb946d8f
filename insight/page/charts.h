// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "insight/club.h"
#include "insight/page/markup.h"
#include "insight/time_scale.h"

#include <optional>
#include <string>
#include <vector>

/// Drawings without a text in them, stretched to the place they are given: what they say is said beside them, too.
/// Each has a title for those who cannot see it.
namespace kavo {

/// A number with two decimals at most: 12.5, 7, 0.33.
[[nodiscard]] std::string coordinate(double value);

/// A part of a whole.
struct Share
{
    std::string colourClass;
    int count = 0;
};

/// Levels of each grade, the best first.
[[nodiscard]] std::vector<Share> gradeShares(const GradeCounts& counts);

/// A bar of shares side by side.
void writeShares(Markup& page, const std::string& title, const std::vector<Share>& shares);

/// The scale of a level with the times of the players on it; one that is beyond an end is shown behind that end.
void writeTimeBar(Markup& page, const std::string& title, const TimeScale& scale, std::optional<Hundredths> time1,
                  std::optional<Hundredths> time2);

/// When something had which value, until the next one.
struct Step
{
    double from = 0;  ///< 0 at the left end, 1 at the right end
    std::optional<Hundredths> value;
};

/// A line that goes down when times become smaller. Where there is no value there is a gap.
void writeLine(Markup& page, const std::string& title, const std::string& description, const std::vector<Step>& steps);

/// How a whole was shared over time.
struct StackedStep
{
    double from = 0;
    std::vector<Share> shares;  ///< the first one at the bottom; the same classes in every step
};

void writeStack(Markup& page, const std::string& title, const std::string& description,
                const std::vector<StackedStep>& steps);

}  // namespace kavo
