// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/session.h"

#include <string>

namespace kavo::test {

/// The nine texts of a row, joined by "|". A bold text is followed by "*", a coloured one by the name of
/// its colour in braces: WR, WC, Pro, Good, OK, Text, Total (the faster total's), else the number.
[[nodiscard]] std::string marked(const Session& session, int row);

/// The nine texts alone.
[[nodiscard]] std::string texts(const ResultsTable& table, int row);

/// The nine headers.
[[nodiscard]] std::string headers(const ResultsTable& table);

/// Counters of a side from World Record to Beginner: "1 2 3 4 5 6".
[[nodiscard]] std::string counts(const ResultsState& state, Side side);

}  // namespace kavo::test
