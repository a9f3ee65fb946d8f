// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/player_names.h"

#include "core/levels.h"
#include "tests/support/error_of.h"
#include "tests/support/program_folder_fixture.h"
#include "tests/support/table_text.h"

#include <gtest/gtest.h>

namespace kavo {

namespace {

Session sessionWithAuthors(const char* author)
{
    Session session;
    for (int row = 1; row <= kTotalsRow; ++row) {
        session.table.addRow("Track");
        session.table.setText(row, Column::Author, row == kTotalsRow ? "Team" : author);
    }
    return session;
}

TEST(PlayerNames, BelongToThreeHeaders)
{
    ResultsState state;
    for (int i = 0; i < kColumns; ++i) {
        const auto column = static_cast<Column>(i);
        EXPECT_EQ(isNameHeader(column), nameOfHeader(state, column) != nullptr) << i;
    }
    EXPECT_EQ(nameOfHeader(state, Column::Time1), &state.Player1Name);
    EXPECT_EQ(nameOfHeader(state, Column::Time2), &state.Player2Name);
    EXPECT_EQ(nameOfHeader(state, Column::Team), &state.TeamName);
    for (const Column column :
         {Column::Level, Column::Target1, Column::Target2, Column::Difference, Column::Target, Column::Author})
        EXPECT_EQ(nameOfHeader(state, column), nullptr);
}

TEST(PlayerNames, AreShownInTheHeaders)
{
    Session session;
    session.state.Player1Name = "Ann";
    session.state.Player2Name = "Bob";
    session.state.TeamName = "Devils";
    showNamesInHeaders(session);
    EXPECT_EQ(test::headers(session.table), "Level|Ann|Target 1|Bob|Target 2|Difference|Devils|Target|Author");
}

TEST(ChangedNames, ReplaceTheOldOnesAmongTheAuthors)
{
    Session session = sessionWithAuthors("Annabel and Ann");
    session.state.Player1Name = "Eve";
    session.state.Player2Name = "Bob";
    showChangedNames(session, "Ann", "Bob");
    EXPECT_EQ(session.table.text(1, Column::Author), "Eveabel and Eve");
    EXPECT_EQ(session.table.text(54, Column::Author), "Eveabel and Eve");
    EXPECT_EQ(session.table.text(55, Column::Author), "Team");
    EXPECT_EQ(session.table.header(Column::Time1), "Eve");
}

TEST(ChangedNames, OfPlayerOneAreReplacedAgainByPlayerTwos)
{
    Session session = sessionWithAuthors("Ann");
    session.state.Player1Name = "Bobby";
    session.state.Player2Name = "Zoe";
    showChangedNames(session, "Ann", "Bob");
    EXPECT_EQ(session.table.text(1, Column::Author), "Zoeby");
}

TEST(ChangedNames, KnowNamesInExactCaseOnly)
{
    Session session = sessionWithAuthors("ann");
    session.state.Player1Name = "Eve";
    showChangedNames(session, "Ann", "Player2");
    EXPECT_EQ(session.table.text(1, Column::Author), "ann");
}

TEST(ChangedNames, LeaveTheTotalsRowAlone)
{
    Session session = sessionWithAuthors("Team");
    session.state.Player1Name = "Eve";
    showChangedNames(session, "Team", "Player2");
    EXPECT_EQ(session.table.text(54, Column::Author), "Eve");
    EXPECT_EQ(session.table.text(55, Column::Author), "Team");
}

TEST(PlayerNames, AreSavedAsThreeLines)
{
    const test::TemporaryFolder folder;
    Session session;
    session.userFolder = folder.path();
    session.state.Player1Name = "J\xFCrgen";
    session.state.Player2Name = "Good";
    saveNames(session);
    EXPECT_EQ(folder.read("names.dat"), "J\xFCrgen\r\nGood\r\nTeam\r\n");
}

TEST(PlayerNames, AreSavedNowhereWithoutAUser)
{
    const test::TemporaryFolder folder;
    const auto before = std::filesystem::current_path();
    std::filesystem::current_path(folder.path());
    EXPECT_EQ(test::errorOf([] { saveNames(Session()); }), "Path not found: names.dat");
    std::filesystem::current_path(before);
    EXPECT_FALSE(folder.has("names.dat"));
}

}  // namespace

}  // namespace kavo
