// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "insight/club.h"

#include <string>
#include <string_view>

/// A part of a club's table as a file, for joining it with others on another machine.
namespace kavo {

/// Lines of fields with TABs between them: the version, the targets, 54 levels, the players, and an end that
/// tells a whole part from a damaged one. Equal parts give equal bytes.
[[nodiscard]] std::string formatClubPart(const ClubPart& part);

/// Throws ClubError for anything that formatClubPart has not written.
[[nodiscard]] ClubPart parseClubPart(std::string_view text);

}  // namespace kavo
