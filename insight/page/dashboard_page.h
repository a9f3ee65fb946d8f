// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "insight/dashboard.h"

#include <string>

namespace kavo {

/// The dashboard as a page of its own, at most 250,000 bytes whatever the names and however long the history.
[[nodiscard]] std::string formatDashboard(const Dashboard& dashboard);

}  // namespace kavo
