// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/colour_set.h"
#include "insight/club.h"

#include <ctime>
#include <string>

namespace kavo {

/// The table of a club as a page of its own, with the winners' matrix: which levels each player has won. Of a club of
/// many the first ones are shown, with what the page says of the others.
[[nodiscard]] std::string formatClubPage(const ClubPart& club, const ColourSet& scheme, std::time_t now);

}  // namespace kavo
