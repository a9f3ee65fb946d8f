// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/session.h"

#include <ctime>
#include <string>

namespace kavo {

/// The dashboard of a session whose loading went through, with the progress of what is remembered of its user.
[[nodiscard]] std::string dashboardText(const Session& session, std::time_t now);

}  // namespace kavo
