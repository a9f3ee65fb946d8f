// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/settings_check.h"

#include "tests/support/finding_text.h"

#include <gtest/gtest.h>

namespace kavo {
namespace {

using test::inShort;

TEST(SettingsCheck, FindsNothingInGoodSettings)
{
    EXPECT_EQ(inShort(checkSettings("stats.txt\r\n 2 \r\nother.txt\r\n\r\n 8 \r\n")), "");
    EXPECT_EQ(inShort(checkSettings("\n3\n\nWorld Class")), "");
    EXPECT_EQ(inShort(checkSettings("stats.txt\r\n 1 \r\nother.txt\r\nnonsense\r\n 8.25 \r\n")), "");
}

TEST(SettingsCheck, FindsThatLinesAreMissing)
{
    EXPECT_EQ(inShort(checkSettings("stats.txt\r\n 2 \r\nother.txt\r\n")),
              "error 4:27 it ends after 3 lines (\"Input past end of file\")");
    EXPECT_EQ(inShort(checkSettings("")), "error 1:0 it ends after 0 lines (\"Input past end of file\")");
}

TEST(SettingsCheck, FindsAWayOfComparingOrAGradeThatDoesNotExist)
{
    EXPECT_EQ(inShort(checkSettings("a\r\n 7 \r\nb\r\n\r\n")), "warning 2:3 \" 7 \" is no way of comparing");
    EXPECT_EQ(inShort(checkSettings("a\r\n\r\nb\r\n\r\n")), "warning 2:3 \"\" is no way of comparing");
    EXPECT_EQ(inShort(checkSettings("a\r\n 3 \r\nb\r\nBeginner\r\n")),
              "warning 4:11 \"Beginner\" is no grade: the second column stays empty");
    EXPECT_EQ(inShort(checkSettings("a\r\n 3 \r\nb\r\n\r\n x \r\n")),
              "warning 4:11 \"\" is no grade: the second column stays empty\n"
              "warning 5:13 \" x \" is no font size");
}

TEST(NamesCheck, FindsThatNamesAreMissing)
{
    EXPECT_EQ(inShort(checkNames("Ann\r\nBob\r\nDust Devils\r\n")), "");
    EXPECT_EQ(inShort(checkNames("Ann\r\n")), "warning 2:5 it has 1 name, the others are not changed");
    EXPECT_EQ(inShort(checkNames("Ann\r\nJ\xFCrgen\r\nx")),
              "note 2:6 \"J\xFCrgen\" is written in a code page of 8 bits");
}

TEST(LayoutCheck, FindsWhereTheNumbersEnd)
{
    const std::string five = " 1 \r\n 2 \r\n 3 \r\n 4 \r\n 5 \r\n";
    EXPECT_EQ(inShort(checkLayout(five + five)), "");
    const std::string rest =
        "numbers it ends or goes on with something else; the rest of the window keeps its designed "
        "layout";
    EXPECT_EQ(inShort(checkLayout(five)), "warning 6:25 after 5 " + rest);
    EXPECT_EQ(inShort(checkLayout(five + "wide\r\n" + five)), "warning 6:25 after 5 " + rest);
    EXPECT_EQ(inShort(checkLayout("")), "warning 1:0 after 0 " + rest);
}

TEST(BugTimesCheck, FindsNothingInGoodEntries)
{
    EXPECT_EQ(inShort(checkBugTimes("Player1\r\n07, 00:19:05\r\nplayer2\r\n07, 00:19:05\r\n54xx00.19.05\r\n")), "");
    EXPECT_EQ(inShort(checkBugTimes("PLAYER1\r\nPLAYER2\r\n")), "");
}

TEST(BugTimesCheck, FindsALevelThatDoesNotExist)
{
    EXPECT_EQ(inShort(checkBugTimes("Player1\r\n00, 00:19:05\r\nPlayer2\r\n55, 00:19:05\r\nxx\r\n")),
              "error 2:9 \"00, 00:19:05\" is for a level that does not exist (\"Subscript out of range\")\n"
              "error 4:32 \"55, 00:19:05\" is for a level that does not exist (\"Subscript out of range\")\n"
              "error 5:46 \"xx\" is for a level that does not exist (\"Subscript out of range\")");
}

TEST(BugTimesCheck, FindsThatTheSecondPlayersLineIsMissing)
{
    EXPECT_EQ(inShort(checkBugTimes("Player1\r\n07, 00:19:05\r\n")),
              "error 3:23 no line \"Player2\" ends the entries of player 1 (\"Input past end of file\")");
    EXPECT_EQ(inShort(checkBugTimes("")),
              "error 1:0 no line \"Player2\" ends the entries of player 1 (\"Input past end of file\")");
}

TEST(BugTimesCheck, FindsAFileThatIsPassedOver)
{
    EXPECT_EQ(inShort(checkBugTimes("Player 1\r\n07, 00:19:05\r\nPlayer2\r\n")),
              "warning 1:0 \"Player 1\" stands at its beginning: the whole file is passed over");
}

TEST(BugTimesCheck, FindsEntriesWithoutATimeAndSecondOnes)
{
    EXPECT_EQ(inShort(checkBugTimes("Player1\r\n07, ab:cd:ef\r\n08\r\n07, 00:19:05\r\nPlayer2\r\n08, 00:01:00\r\n")),
              "warning 2:9 \"07, ab:cd:ef\" holds no time\n"
              "warning 3:23 \"08\" holds no time\n"
              "warning 4:27 level 7 has a bug-time already; this one counts, the one before does not");
}

TEST(ColoursCheck, FindsFilesThatAreShortOrOdd)
{
    const std::string four = " 1 \r\n 2 \r\n 3 \r\n 4 \r\n";
    EXPECT_EQ(inShort(checkColours(four + four + " 16777215 \r\n")), "");
    EXPECT_EQ(inShort(checkColours(four)), "note 5:20 it is of the older kind, without colours for the grades");
    const std::string rest = "numbers it ends or goes on with something else; the other colours are the designed ones";
    EXPECT_EQ(inShort(checkColours(four + "5\r\n")), "warning 6:23 after 5 " + rest);
    EXPECT_EQ(inShort(checkColours(four + "red\r\n" + four)), "warning 5:20 after 4 " + rest);
    EXPECT_EQ(inShort(checkColours("1\r\n2\r\n")),
              "warning 3:6 it is too short to hold colours, and is not used for the table");
    EXPECT_EQ(inShort(checkColours(four + four + "16777216\r\n")), "warning 9:40 \"16777216\" is no colour");
    EXPECT_EQ(inShort(checkColours("-1\r\n" + four + four)), "warning 1:0 \"-1\" is no colour");
}

TEST(UsersCheck, FindsNicksThatCannotLogInAndSecondOnes)
{
    EXPECT_EQ(inShort(checkUsers("bob\r\nЖанна\r\n lead\r\n")), "");
    EXPECT_EQ(inShort(checkUsers("bob\r\n\r\n12345678901\r\na/b\r\nBOB\r\n")),
              "warning 2:5 \"\" cannot log in\n"
              "warning 3:7 \"12345678901\" cannot log in\n"
              "warning 4:20 \"a/b\" cannot log in\n"
              "warning 5:25 \"BOB\" stands in the list already");
}

TEST(CurrentUserCheck, FindsANickThatCannotLogIn)
{
    EXPECT_EQ(inShort(checkCurrentUser("bob\r\n")), "");
    EXPECT_EQ(inShort(checkCurrentUser("")), "error it is empty (\"Input past end of file\")");
    EXPECT_EQ(inShort(checkCurrentUser("   \r\n")), "error 1:0 \"   \" cannot log in");
    EXPECT_EQ(inShort(checkCurrentUser("..\r\n")), "error 1:0 \"..\" cannot log in");
}

TEST(AutoLoginCheck, FindsWhatIsNoNumber)
{
    for (const char* text : {" 1 \r\n", "0\r\n", "0", "1,x"}) EXPECT_EQ(inShort(checkAutoLogin(text)), "") << text;
    EXPECT_EQ(inShort(checkAutoLogin("yes\r\n")),
              "warning 1:0 it does not begin with a number, so the login window waits");
    EXPECT_EQ(inShort(checkAutoLogin("")), "warning it does not begin with a number, so the login window waits");
}

TEST(LinksCheck, FindsAnAddressWithoutADescription)
{
    EXPECT_EQ(inShort(checkLinks("http://a\r\nA\r\n")), "");
    EXPECT_EQ(inShort(checkLinks("")), "");
    EXPECT_EQ(inShort(checkLinks("http://a\r\nA\r\nhttp://b\r\n")),
              "warning 4:23 its last address has no line behind it (\"Input past end of file\")");
}

TEST(TemplateCheck, FindsTheSeparatorThatIsMissing)
{
    EXPECT_EQ(inShort(checkTemplate("a\r\n%template2%\r\nb\r\n %template3% \r\nc\r\n%template4%\r\nd\r\n")), "");
    EXPECT_EQ(inShort(checkTemplate("")),
              "error 1:0 the line %template2% is missing: the template is loaded only so far");
    EXPECT_EQ(inShort(checkTemplate("a\r\n%template2%\r\n%template4%\r\nd\r\n")),
              "error 5:32 the line %template3% is missing: the template is loaded only so far");
    EXPECT_EQ(inShort(checkTemplate("%template2%\r\n%template3%\r\n%template4%\r\n")),
              "error 4:39 nothing stands behind the line %template4%: the template is loaded only so far");
}

}  // namespace
}  // namespace kavo
