// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/dashboard_text.h"

#include "base/run_time_error.h"
#include "cli/user_history.h"
#include "insight/dashboard.h"
#include "insight/page/dashboard_page.h"

namespace kavo {

namespace {

Timeline rememberedTimeline(const Session& session)
{
    try {
        return timelineOf(historyOf(session.userFolder), session.state);
    } catch (const RunTimeError&) {
        return {};  // without a home nothing is remembered
    }
}

}  // namespace

std::string dashboardText(const Session& session, std::time_t now)
{
    return formatDashboard(dashboardOf(session, rememberedTimeline(session), now));
}

}  // namespace kavo
