// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "insight/finding.h"

#include <string_view>

namespace kavo {

/// `targets.txt`: 55 records of five times.
[[nodiscard]] Findings checkTargets(std::string_view text);

/// `targets_old.txt`: 55 lines of the four grades that an update keeps.
[[nodiscard]] Findings checkFixedTargets(std::string_view text);

}  // namespace kavo
