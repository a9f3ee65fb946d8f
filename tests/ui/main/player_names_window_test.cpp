// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/code_page.h"
#include "tests/support/window_fixture.h"

#include <QHeaderView>

namespace {

using kavo::test::statisticsText;
using kavo::test::targetsText;

class PlayerNames : public kavo::test::ProgramTest
{
protected:
    PlayerNames()
    {
        folder.write("targets.txt", targetsText());
        folder.write("game/stats.txt", statisticsText({"00:10:00 A", "00:20:00 A"}));
        folder.write("friend/stats.txt", statisticsText({"00:20:00 B", "00:10:00 B"}));
        std::filesystem::remove(folder / "Marek/bugs.dat");
    }

    void startWithHeaders(const std::string& player1, const std::string& player2, const std::string& team)
    {
        folder.write("Marek/names.dat", player1 + "\r\n" + player2 + "\r\n" + team + "\r\n");
        startLoggedIn();
    }

    /// Level 1 is player 1's, level 2 is player 2's.
    void startWithNames(const std::string& player1, const std::string& player2, const std::string& team)
    {
        startWithHeaders(player1, player2, team);
        EXPECT_EQ(cell(1, 8).toStdString(), player1);
        EXPECT_EQ(cell(2, 8).toStdString(), player2);
        EXPECT_EQ(cell(55, 8), "Team");
    }

    void clickHeader(int column)
    {
        QHeaderView& headers = *list().header();
        const int middle = headers.sectionViewportPosition(column) + headers.sectionSize(column) / 2;
        QTest::mouseClick(headers.viewport(), Qt::LeftButton, {}, QPoint(middle, headers.height() / 2));
    }

    void expectPlayer(const QString& offered, const std::optional<QString>& answer)
    {
        prompts.expectLine({"Change player name", "Input player name:", offered}, answer);
    }
};

TEST_F(PlayerNames, HeadersOfPlayersAndTeamAskForNames)
{
    startWithNames("Ann", "Bob", "Duo");
    expectPlayer("Ann", QString(" Zoe "));  // as typed
    clickHeader(1);
    EXPECT_EQ(header(1), " Zoe ");
    EXPECT_EQ(cell(1, 8), " Zoe ");
    EXPECT_EQ(folder.read("Marek/names.dat"), " Zoe \r\nBob\r\nDuo\r\n");
    expectPlayer("Bob", QString("Max"));
    clickHeader(3);
    EXPECT_EQ(cell(2, 8), "Max");
    prompts.expectLine({"Change team name", "Input team name:", "Duo"}, QString("Pair"));
    clickHeader(6);
    EXPECT_EQ(header(6), "Pair");
    EXPECT_EQ(folder.read("Marek/names.dat"), " Zoe \r\nMax\r\nPair\r\n");
    EXPECT_EQ(header(0), "Level");
    EXPECT_EQ(header(5), "Difference");
}

TEST_F(PlayerNames, NamesInACodePageAreReadAndKeepTheirBytes)
{
    const kavo::CodePageInForce cyrillic(kavo::findCodePage("1251").value());
    startWithHeaders("\xD4\xB8\xE4\xEE\xF0", "Bob", "\xC6\xE0\xED\xED\xE0");
    EXPECT_EQ(header(1), "Фёдор");
    EXPECT_EQ(cell(1, 8), "Фёдор");
    EXPECT_EQ(header(6), "Жанна");
    expectPlayer("Фёдор", QString("Фёдор"));  // left as it was
    clickHeader(1);
    expectPlayer("Bob", QString("Боб"));  // typed
    clickHeader(3);
    EXPECT_EQ(folder.read("Marek/names.dat"), "\xD4\xB8\xE4\xEE\xF0\r\nБоб\r\n\xC6\xE0\xED\xED\xE0\r\n");
}

TEST_F(PlayerNames, EmptyAnswerAndCancelChangeNothing)
{
    startWithNames("Ann", "Bob", "Duo");
    expectPlayer("Ann", QString());
    clickHeader(1);
    expectPlayer("Bob", std::nullopt);
    clickHeader(3);
    EXPECT_EQ(folder.read("Marek/names.dat"), "Ann\r\nBob\r\nDuo\r\n");
    EXPECT_EQ(header(1), "Ann");
    EXPECT_EQ(cell(1, 8), "Ann");
}

TEST_F(PlayerNames, OtherHeadersAskNothingButWriteBothFiles)
{
    startWithNames("Ann", "Bob", "Duo");
    for (const int column : {0, 2, 4, 5}) {
        std::filesystem::remove(folder / "Marek/names.dat");
        std::filesystem::remove(folder / "Marek/view.dat");
        clickHeader(column);
        EXPECT_EQ(folder.read("Marek/names.dat"), "Ann\r\nBob\r\nDuo\r\n") << column;
        EXPECT_TRUE(folder.has("Marek/view.dat")) << column;
    }
    EXPECT_EQ(header(1), "Ann");
}

TEST_F(PlayerNames, NewNameThatContainsTheOtherOldOneIsReplacedAgain)
{
    startWithNames("Ann", "Bob", "Duo");
    // Player 2's old name is replaced by the new one, which is the same here: nothing more happens.
    expectPlayer("Ann", QString("Bobby"));
    clickHeader(1);
    EXPECT_EQ(cell(1, 8), "Bobby");
    // Now "Bobby" contains "Bob": the change of player 2 goes through player 1's cells too.
    expectPlayer("Bob", QString("Max"));
    clickHeader(3);
    EXPECT_EQ(cell(1, 8), "Maxby");
    EXPECT_EQ(cell(2, 8), "Max");
    EXPECT_EQ(header(1), "Bobby");
}

TEST_F(PlayerNames, PartsOfOtherNamesAreReplacedToo)
{
    startWithNames("an", "Banana", "Duo");
    expectPlayer("an", QString("X"));
    clickHeader(1);
    EXPECT_EQ(cell(1, 8), "X");
    EXPECT_EQ(cell(2, 8), "BXXa");
    EXPECT_EQ(header(3), "Banana");
}

TEST_F(PlayerNames, CaseCountsAndTheTotalsRowIsLeftAlone)
{
    startWithNames("Tea", "tea", "Duo");
    expectPlayer("Tea", QString("Milk"));
    clickHeader(1);
    EXPECT_EQ(cell(1, 8), "Milk");
    EXPECT_EQ(cell(2, 8), "tea");
    EXPECT_EQ(cell(55, 8), "Team");
}

TEST_F(PlayerNames, FailedWriteIsToldOnce)
{
    startLoggedIn();
    std::filesystem::remove(folder / "Marek/names.dat");
    folder.write("Marek/names.dat/in the way", "");
    expectError("Path/File access error: names.dat");
    clickHeader(0);
    EXPECT_TRUE(prompts.isDone());
    EXPECT_TRUE(folder.has("Marek/names.dat/in the way"));
}

TEST_F(PlayerNames, NamesThatAFailedLoadingHasNotReadStay)
{
    folder.write("Marek/names.dat", "Ann\r\nBob\r\nDuo\r\n");
    folder.enlarge("Marek/view.dat");
    expectError("File too large: view.dat");
    startLoggedIn();
    EXPECT_EQ(header(1), "Time 1");
    prompts.expectLine({"Change team name", "Input team name:", "Duo"}, QString("Pair"));
    clickHeader(6);
    EXPECT_EQ(folder.read("Marek/names.dat"), "Ann\r\nBob\r\nPair\r\n");
    EXPECT_EQ(header(1), "Ann");
}

TEST_F(PlayerNames, NamesThatCannotBeReadAreToldAndStay)
{
    folder.enlarge("Marek/names.dat");
    expectError("File too large: names.dat");
    startLoggedIn();
    expectError("File too large: names.dat");
    clickHeader(6);
    EXPECT_EQ(std::filesystem::file_size(folder / "Marek/names.dat"), kavo::test::TemporaryFolder::kTerabyte);
}

TEST_F(PlayerNames, EmptyTableCanBeRenamedToo)
{
    std::filesystem::remove(folder / "game/stats.txt");
    startLoggedIn();
    expectPlayer("Marek", QString("Zoe"));
    clickHeader(1);
    EXPECT_EQ(header(1), "Zoe");
    EXPECT_EQ(list().model()->rowCount(), 0);
}

}  // namespace
