// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/session.h"

#include <string>

namespace kavo {

/// Whether a column's header shows one of the three names, which a click on it changes.
[[nodiscard]] bool isNameHeader(Column column);

/// The name that a column header shows, if it shows one.
[[nodiscard]] std::string* nameOfHeader(ResultsState& state, Column column);

/// Shows the session's names in the headers and replaces the old players' names, wherever they occur, in
/// the "Author" texts of the levels: first the old name of player 1, then that of player 2 in what came
/// of it. Row 55 keeps its "Team".
void showChangedNames(Session& session, const std::string& oldPlayer1, const std::string& oldPlayer2);

/// Headers of both players and the team.
void showNamesInHeaders(Session& session);

/// The names of the user's `names.dat`, or the designed ones. Throws as reading a file does.
void readNames(Session& session);

/// Reads the names where a loading has ended before it came to them: saving one of them must not lose the others.
void completeNames(Session& session);

/// Rewrites `names.dat`. Throws RunTimeError(PathNotFound) when no user is known.
void saveNames(const Session& session);

}  // namespace kavo
