// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <ctime>
#include <string>

namespace kavo {

/// A moment on the user's clock, in the form by which remembered states can be named: "2026-11-21 10:46:31".
[[nodiscard]] std::string momentText(std::time_t moment);

/// The same up to its minute.
[[nodiscard]] std::string minuteText(std::time_t moment);

}  // namespace kavo
