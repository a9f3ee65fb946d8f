// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/session.h"
#include "insight/club.h"
#include "insight/next_grades.h"
#include "insight/time_scale.h"
#include "insight/timeline.h"

#include <array>
#include <ctime>
#include <optional>
#include <string>
#include <vector>

/// Everything that is known of a user's results, ready to be shown on one page.
namespace kavo {

/// Who player 1 is compared with.
enum class Rival { None, Player, Targets };

/// A row of the summary.
struct DashboardSide
{
    std::string name;
    std::string total;
    GradeCounts grades{};
    int victories = 0;
    std::vector<Improvement> next;  ///< the cheapest first; none of a team or of targets
};

/// A time of a level with its grade as the table has them.
struct DashboardTime
{
    std::string time;
    std::string grade;
};

struct DashboardLevel
{
    int level = 0;
    std::string name;
    std::array<DashboardTime, 2> players;
    std::string difference;
    Faster ahead = Faster::Neither;
    std::optional<TimeScale> scale;
    std::optional<Goal> next;  ///< of player 1
};

struct Dashboard
{
    std::time_t now = 0;
    std::string user;
    ColourSet colours;
    Rival rival = Rival::None;
    std::array<DashboardSide, 3> sides;  ///< by Side; without a rival only the first one counts
    std::vector<DashboardLevel> levels;
    Timeline timeline;
};

/// Of a session whose loading went through to its end, without a filter.
[[nodiscard]] Dashboard dashboardOf(const Session& session, Timeline timeline, std::time_t now);

}  // namespace kavo
