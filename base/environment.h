// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <optional>
#include <string>

namespace kavo {

/// A variable of this process's environment. One that is empty counts as not set, as nearly all programs have it.
[[nodiscard]] std::optional<std::string> environmentValue(const char* name);

}  // namespace kavo
