// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "insight/finding.h"

#include <string_view>

namespace kavo {

/// What a statistics file is read as; a second file has to hold one word more, and previous results are not
/// checked for words at all.
enum class StatisticsUse { Player1, SecondFile, PreviousResults };

/// Everything that makes a loading end early, read a level wrongly or an export fail.
[[nodiscard]] Findings checkStatistics(std::string_view text, StatisticsUse use);

}  // namespace kavo
