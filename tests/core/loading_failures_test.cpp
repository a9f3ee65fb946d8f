// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/loading.h"
#include "tests/support/loaded_folder.h"
#include "tests/support/trouble.h"

#include <gtest/gtest.h>

#include <new>

/// Loadings that end early: the table stays as far as it was filled, with the designed headers.
namespace kavo {

namespace {

using test::LoadedFolder;
using test::statisticsText;
using test::targetsText;

constexpr const char* kDesigned = "Level|Time 1|Target 1|Time 2|Target 2|Difference|Team|Target|Author";

void expectError(const LoadedFolder& loaded, const std::string& error, int rows)
{
    EXPECT_EQ(loaded.result.end, LoadingEnd::Error);
    EXPECT_EQ(loaded.result.error, error);
    EXPECT_EQ(loaded.session.table.rowCount(), rows);
    EXPECT_EQ(loaded.headers(), kDesigned);
}

TEST(WrongFile, OfPlayerOneEndsTheLoadingWithoutRows)
{
    LoadedFolder loaded;
    loaded.writeAll(2);
    std::filesystem::remove(loaded.folder / "targets.txt");
    for (const char* text : {"", "Level 1 of nothing\r\n", "a player without any\r\n"}) {
        loaded.folder.write("stats.txt", text);
        loaded.run();
        EXPECT_EQ(loaded.result.end, LoadingEnd::WrongFile);
        EXPECT_EQ(loaded.result.error, "");
        // Neither the targets nor anything else is looked at: no second message.
        EXPECT_EQ(loaded.messages(), "Wrong file!|");
        EXPECT_EQ(loaded.host.messages[0].title, "NRL Kavo Timing");
        EXPECT_EQ(loaded.host.messages[0].icon, MessageIcon::None);
        EXPECT_EQ(loaded.host.optionsOpened, 1);
        EXPECT_EQ(loaded.session.table.rowCount(), 0);
        EXPECT_EQ(loaded.headers(), kDesigned);
    }
}

TEST(WrongFile, OpensTheOptionsOnceAlsoOnAFirstRun)
{
    LoadedFolder loaded;
    loaded.folder.write("stats.txt", "");
    loaded.run();
    EXPECT_EQ(loaded.result.end, LoadingEnd::WrongFile);
    EXPECT_EQ(loaded.host.optionsOpened, 1);
}

TEST(WrongFile, OfPlayerTwoLeavesTheRowsOfPlayerOne)
{
    LoadedFolder loaded;
    loaded.writeAll(2);
    std::string noSteppes = statisticsText();
    noSteppes.replace(noSteppes.find("Steppes"), 7, "Prairie");
    for (const std::string& text : {std::string(), noSteppes}) {
        loaded.folder.write("other.txt", text);
        loaded.run();
        EXPECT_EQ(loaded.result.end, LoadingEnd::WrongFile);
        EXPECT_EQ(loaded.messages(), "Wrong file!|");
        EXPECT_EQ(loaded.host.optionsOpened, 1);
        EXPECT_EQ(loaded.headers(), kDesigned);
        ASSERT_EQ(loaded.session.table.rowCount(), 55);
        EXPECT_EQ(loaded.row(54), "54, Track|00:30:00|Professional{Pro}||||||");
        EXPECT_EQ(loaded.row(55), "TOTAL TIME:|27:00:00|||||||");
        EXPECT_EQ(loaded.counts(Side::Player1), "0 0 54 0 0 0");
    }
}

TEST(WrongFile, IsNoneForThePreviousResultsWhereverTheyLie)
{
    LoadedFolder loaded;
    loaded.writeAll(2);
    std::string noSteppes = statisticsText();
    noSteppes.replace(noSteppes.find("Steppes"), 7, "Prairie");
    loaded.folder.write("of a friend/1res.old", noSteppes);
    loaded.folder.write("bob/data.ini", "stats.txt\r\n 2 \r\nof a friend/1res.old\r\n\r\n");
    loaded.run();
    EXPECT_EQ(loaded.result.end, LoadingEnd::Completed);
    // The exemption goes by the name as it is typed, in exact case.
    loaded.folder.write("bob/data.ini", "stats.txt\r\n 2 \r\nof a friend/1RES.old\r\n\r\n");
    loaded.run();
    EXPECT_EQ(loaded.result.end, LoadingEnd::WrongFile);
}

TEST(StatisticsFile, WithTooFewHeadersEndsTheLoading)
{
    LoadedFolder loaded;
    loaded.writeAll(2);
    loaded.folder.write("stats.txt", "Player\r\nLevel 1\r\n00:10:00 A\r\nLevel 2\r\n00:20:00 A\r\n");
    loaded.run();
    expectError(loaded, "Invalid procedure call or argument: stats.txt", 2);
    EXPECT_EQ(loaded.row(2), "2|00:20:00|World Class{WC}||||||");
    EXPECT_EQ(loaded.host.optionsOpened, 0);
}

TEST(StatisticsFile, OfAnEmptyUserWithoutLevelsEndsTheLoading)
{
    LoadedFolder loaded;
    loaded.writeAll(2);
    loaded.folder.write("stats.txt", "player level\r\n");
    loaded.run();
    expectError(loaded, "Invalid procedure call or argument: stats.txt", 0);
}

TEST(StatisticsFile, WithBareLineFeedsEndsTheLoading)
{
    LoadedFolder loaded;
    loaded.writeAll(2);
    std::string text = statisticsText();
    std::erase(text, '\r');
    loaded.folder.write("stats.txt", text);
    loaded.run();
    expectError(loaded, "Invalid procedure call or argument: stats.txt", 0);
}

TEST(StatisticsFile, WithoutALineEndAtItsEndEndsTheLoading)
{
    LoadedFolder loaded;
    loaded.writeAll(2);
    std::string text = statisticsText();
    text.resize(text.rfind("00:30:00 Alice") + 14);
    loaded.folder.write("stats.txt", text);
    loaded.run();
    expectError(loaded, "Invalid procedure call or argument: stats.txt", 54);
    EXPECT_EQ(loaded.row(54), "54, Track||||||||");
    // A bug-time does not save it: the time line is cut out first.
    loaded.folder.write("bob/bugs.dat", "Player1\r\n54, 00:05:00\r\nPlayer2\r\n");
    loaded.run();
    expectError(loaded, "Invalid procedure call or argument: stats.txt", 54);
    EXPECT_EQ(loaded.row(54), "54, Track||||||||");
}

TEST(StatisticsFile, WithADriverCalledLevelShiftsTheRows)
{
    LoadedFolder loaded;
    loaded.writeAll(2);
    loaded.folder.write("stats.txt", statisticsText({"00:10:00 Ann\r\n00:10:01 Level King"}));
    loaded.run();
    EXPECT_EQ(loaded.result.end, LoadingEnd::Completed);
    EXPECT_EQ(loaded.session.table.text(1, Column::Level), "1, Track");
    EXPECT_EQ(loaded.session.table.text(2, Column::Level), "King");
    EXPECT_EQ(loaded.session.table.text(2, Column::Time1), "SKIPPED");
    EXPECT_EQ(loaded.session.table.text(3, Column::Level), "2, Track");
    EXPECT_EQ(loaded.session.table.text(54, Column::Level), "53, Track");
}

TEST(SecondFile, WithTooFewHeadersEndsTheLoading)
{
    LoadedFolder loaded;
    loaded.writeAll(2);
    loaded.folder.write("other.txt", "Player Steppes\r\nLevel 1\r\n00:10:00 Bob\r\n");
    loaded.run();
    expectError(loaded, "Invalid procedure call or argument: other.txt", 55);
    EXPECT_EQ(loaded.row(1), "1, Track|00:30:00|Professional{Pro}|00:10:00|World Record{WR}||||");
    EXPECT_EQ(loaded.row(2), "2, Track|00:30:00|Professional{Pro}||||||");
    EXPECT_EQ(loaded.row(55), "TOTAL TIME:|27:00:00|||||||");
    EXPECT_EQ(loaded.session.state.Player2Name, "Bob");
}

TEST(Targets, ThatAreTooShortEndTheLoading)
{
    LoadedFolder loaded;
    loaded.writeAll(2);
    std::string targets = targetsText();
    targets.resize(targets.rfind(','));
    loaded.folder.write("targets.txt", targets);
    loaded.run();
    expectError(loaded, "Input past end of file: targets.txt", 0);
}

TEST(Settings, ThatAreTooShortEndTheLoading)
{
    LoadedFolder loaded;
    loaded.writeAll(2);
    loaded.folder.write("bob/data.ini", "stats.txt\r\n 2 \r\nother.txt\r\n");
    loaded.run();
    expectError(loaded, "Input past end of file: data.ini", 0);
    EXPECT_EQ(loaded.session.caption, "Kavo Timing 2.1  User: bob");
}

TEST(BugTimes, OfALevelThatDoesNotExistEndTheLoading)
{
    LoadedFolder loaded;
    loaded.writeAll(2);
    for (const char* entry : {"00, 00:01:00", "55, 00:01:00", "xx, 00:01:00", ""}) {
        loaded.folder.write("bob/bugs.dat", std::string("Player1\r\nPlayer2\r\n") + entry + "\r\n");
        loaded.run();
        expectError(loaded, "Subscript out of range: bugs.dat", 0);
    }
}

TEST(BugTimes, WithoutTheSecondMarkerEndTheLoading)
{
    LoadedFolder loaded;
    loaded.writeAll(2);
    loaded.folder.write("bob/bugs.dat", "Player1\r\n01, 00:01:00\r\n");
    loaded.run();
    expectError(loaded, "Input past end of file: bugs.dat", 0);
}

TEST(BugTimes, FailAtTheFirstFaultOfTheFile)
{
    LoadedFolder loaded;
    loaded.writeAll(2);
    loaded.folder.write("bob/bugs.dat", "Player1\r\n77, 00:01:00\r\n");
    loaded.run();
    expectError(loaded, "Subscript out of range: bugs.dat", 0);
}

TEST(CurrentUser, ThatIsMissingEndsTheLoading)
{
    LoadedFolder loaded;
    std::filesystem::remove(loaded.folder / "curUser.dat");
    loaded.run();
    expectError(loaded, "File not found: curUser.dat", 0);
    EXPECT_EQ(loaded.host.layoutLoadedCalls, 0);
    EXPECT_EQ(loaded.host.optionsOpened, 0);
}

TEST(UserFolder, ThatIsMissingEndsTheLoading)
{
    LoadedFolder loaded;
    loaded.folder.write("curUser.dat", "eve\r\n");
    loaded.run();
    expectError(loaded, "Path not found: eve", 0);
    EXPECT_FALSE(loaded.folder.has("eve"));
}

TEST(Nick, ThatLeadsOutOfTheProgramFolderEndsTheLoading)
{
    LoadedFolder loaded;
    loaded.run({.user = "../bob"});
    EXPECT_EQ(loaded.result.end, LoadingEnd::Error);
    EXPECT_EQ(loaded.result.error.substr(0, 14), "Path not found");
}

TEST(Failure, LeavesNothingOfTheLoadingBefore)
{
    LoadedFolder loaded;
    loaded.writeAll(3, "Good");
    loaded.run();
    EXPECT_EQ(loaded.session.table.rowCount(), 55);
    loaded.folder.write("stats.txt", "no such file");
    loaded.run();
    EXPECT_EQ(loaded.session.table.rowCount(), 0);
    EXPECT_EQ(loaded.headers(), kDesigned);
    EXPECT_EQ(loaded.counts(Side::Player1), "0 0 0 0 0 0");
    EXPECT_EQ(loaded.session.state.Player2Name, "Player2");
}

TEST(AnyOtherError, EndsTheLoadingInWords)
{
    class FailingHost final : public LoadingHost
    {
    public:
        void showMessage(const Message&) override { throw std::bad_alloc(); }
        AfterOptions openOptions() override { return AfterOptions::GoOn; }
        void applyLayout(const std::vector<double>&) override {}
        void layoutLoaded() override {}
    };
    LoadedFolder loaded;
    loaded.writeAll();
    std::filesystem::remove(loaded.folder / "targets.txt");  // of which the host is told
    FailingHost host;
    loaded.result = load(loaded.session, host);
    expectError(loaded, "Out of memory: stats.txt", 0);
}

TEST(StatisticsFile, OfATerabyteIsAClearError)
{
    LoadedFolder loaded;
    loaded.writeAll();
    loaded.folder.enlarge("stats.txt");
    loaded.run();
    expectError(loaded, "File too large: stats.txt", 0);
}

TEST(CurrentUser, WithoutANickIsNobody)
{
    LoadedFolder loaded;
    loaded.writeAll();
    loaded.folder.write("curUser.dat", "\r\n");
    loaded.run();
    expectError(loaded, "Path not found", 0);
    EXPECT_TRUE(loaded.session.userFolder.empty());
    EXPECT_FALSE(loaded.folder.has("colors"));
    loaded.folder.write("curUser.dat", "bob\r\n");
    loaded.run({.user = ""});
    expectError(loaded, "Path not found", 0);
    EXPECT_FALSE(loaded.folder.has("colors"));
}

#ifndef _WIN32

TEST(Pipe, InPlaceOfAFileIsAnErrorOrNoFileButNeverAHang)
{
    LoadedFolder loaded;
    loaded.writeAll();
    for (const char* name : {"bob/view.dat", "bob/names.dat", "bob/bugs.dat", "bob/colors/colors.ini"}) {
        std::filesystem::create_directories((loaded.folder / name).parent_path());
        test::makePipe((loaded.folder / name).string());
    }
    loaded.run();
    EXPECT_EQ(loaded.result.error, "");
    EXPECT_EQ(loaded.session.table.rowCount(), 54);
    std::filesystem::remove(loaded.folder / "curUser.dat");
    test::makePipe((loaded.folder / "curUser.dat").string());
    loaded.run();
    expectError(loaded, "Path/File access error: curUser.dat", 0);
}

#endif

}  // namespace

}  // namespace kavo
