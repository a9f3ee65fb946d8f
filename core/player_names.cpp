// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/player_names.h"

#include "base/run_time_error.h"
#include "base/text.h"
#include "base/text_file.h"
#include "core/levels.h"
#include "core/settings.h"

namespace kavo {

bool isNameHeader(Column column)
{
    return column == Column::Time1 || column == Column::Time2 || column == Column::Team;
}

std::string* nameOfHeader(ResultsState& state, Column column)
{
    if (column == Column::Time1) return &state.Player1Name;
    if (column == Column::Time2) return &state.Player2Name;
    if (column == Column::Team) return &state.TeamName;
    return nullptr;
}

void showNamesInHeaders(Session& session)
{
    for (const Column column : {Column::Time1, Column::Time2, Column::Team})
        session.table.setHeader(column, *nameOfHeader(session.state, column));
}

void showChangedNames(Session& session, const std::string& oldPlayer1, const std::string& oldPlayer2)
{
    showNamesInHeaders(session);
    for (int level = 1; level <= kLevels; ++level) {
        // Parts of longer names are replaced too, and a new name of player 1 that contains player 2's old
        // one is replaced again: the column has always been edited as text.
        const std::string first =
            replaceAll(session.table.text(level, Column::Author), oldPlayer1, session.state.Player1Name);
        session.table.setText(level, Column::Author, replaceAll(first, oldPlayer2, session.state.Player2Name));
    }
}

void readNames(Session& session)
{
    const Names names = parseNames(readFileIfThere(namesFile(session.userFolder)).value_or(""));
    session.state.Player1Name = names.player1;
    session.state.Player2Name = names.player2;
    session.state.TeamName = names.team;
}

void completeNames(Session& session)
{
    if (!session.hasSettings && !session.userFolder.empty()) readNames(session);
}

void saveNames(const Session& session)
{
    // No user's names: a loading that has ended before it knew the user leaves no folder to write into.
    if (session.userFolder.empty()) throw RunTimeError(Failure::PathNotFound, "names.dat");
    const Names names{session.state.Player1Name, session.state.Player2Name, session.state.TeamName};
    replaceFile(namesFile(session.userFolder), formatNames(names));
}

}  // namespace kavo
