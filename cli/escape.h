// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cli/terminal.h"
#include "core/colour_set.h"

#include <optional>
#include <string>
#include <string_view>

namespace kavo {

/// The escape sequence for a text in bold or in a colour, the nearest that can be shown; empty for a plain one.
[[nodiscard]] std::string escapeFor(std::optional<Colour> colour, bool bold, Colours colours);

/// Ends what any of them began.
inline constexpr std::string_view kEscapeEnd = "\x1b[0m";

}  // namespace kavo
