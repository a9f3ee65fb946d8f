// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <ctime>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The names of remembered states: the UTC time of remembering, so that they sort by age.
namespace kavo {

/// "20261121T104631Z.txt". Years are held within 1970 to 9999, which the form can say.
[[nodiscard]] std::string stateName(std::time_t moment);

/// The moment that a name says; nothing for any other name.
[[nodiscard]] std::optional<std::time_t> momentOfState(std::string_view name);

inline constexpr std::time_t kLastMoment = 253402300799;  ///< 9999-12-31 23:59:59

/// The name of the state that the user means, given the names of all of them in ascending order:
/// - a name of one of them, with or without ".txt";
/// - "latest", or "latest~2" for the second one before it;
/// - a day (2026-11-21) or a moment (2026-11-21 10:46, 2026-11-21T10:46:31) of the user's own clock: the last
///   state up to its end.
/// Nothing when there is no such state.
[[nodiscard]] std::optional<std::string> findState(const std::vector<std::string>& names, std::string_view when);

}  // namespace kavo
