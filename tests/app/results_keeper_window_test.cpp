// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/results_keeper.h"
#include "base/file_lock.h"
#include "base/text_file.h"
#include "insight/history_store.h"
#include "reports/report_dates.h"
#include "tests/support/window_fixture.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <optional>
#include <set>

namespace {

using kavo::test::statisticsText;
using kavo::test::targetsText;

class ResultsKeeping : public kavo::test::ProgramTest
{
protected:
    /// As the desktop program does, with a place of the test's own.
    void startRemembering()
    {
        folder.write("autolog.dat", " 1 \r\n");
        program = std::make_unique<kavo::Program>(folder.path(), prompts);
        program->rememberResults(sources);
        program->start();
    }

    [[nodiscard]] kavo::HistoryStore history() const
    {
        return kavo::HistoryStore(kavo::historyFolder(kavo::historyRoot(sources), folder / "Marek"));
    }

    /// What is remembered, oldest first.
    [[nodiscard]] std::vector<std::string> states() const
    {
        std::vector<std::string> texts;
        for (const kavo::RememberedState& state : history().states()) texts.push_back(history().read(state.name));
        return texts;
    }

    QString tip(int row, int column) { return index(row, column).data(Qt::ToolTipRole).toString(); }

    /// Puts a state into the history of a user without the program.
    void rememberBefore(const std::string& nick, const std::vector<std::string>& times, std::time_t when)
    {
        kavo::HistoryStore store(kavo::historyFolder(kavo::historyRoot(sources), folder / nick));
        ASSERT_EQ(store.remember(statisticsText(times), when).result, kavo::Remembering::Kept);
    }

    static bool isSoon(const std::function<bool()>& hasCome) { return QTest::qWaitFor(hasCome, kavo::test::kPatience); }

    [[nodiscard]] kavo::Session sessionOf(const std::string& nick) const
    {
        kavo::Session session;
        session.programFolder = folder.path();
        session.userFolder = folder / nick;
        session.StatsPath = (folder / "game/stats.txt").string();
        return session;
    }

    [[nodiscard]] std::set<std::string> filesOfTheProgram() const
    {
        std::set<std::string> files;
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder.path()))
            files.insert(entry.path().string());
        return files;
    }

    kavo::test::TemporaryFolder place;
    kavo::HistorySources sources{.wanted = {}, .stateHome = place.path().string(), .home = {}};
};

TEST_F(ResultsKeeping, KeepsWhatWasLoadedAndNothingBesideTheProgram)
{
    startLoggedIn();
    program.reset();
    const std::set<std::string> before = filesOfTheProgram();
    startRemembering();
    ASSERT_TRUE(isSoon([this] { return !states().empty(); }));
    EXPECT_EQ(states(), std::vector{folder.read("game/stats.txt")});
    program.reset();
    EXPECT_EQ(filesOfTheProgram(), before);
}

TEST_F(ResultsKeeping, KeepsAnotherFileAtTheNextLoading)
{
    startRemembering();
    ASSERT_TRUE(isSoon([this] { return states().size() == 1; }));
    const std::string first = folder.read("game/stats.txt");
    const std::string second = statisticsText({"00:09:99 Marek"});
    folder.write("game/stats.txt", second);
    QTest::keyClick(&list(), Qt::Key_F5);
    ASSERT_TRUE(isSoon([this] { return states().size() == 2; }));
    EXPECT_EQ(states(), (std::vector{first, second}));
}

TEST_F(ResultsKeeping, KeepsNothingBeforeTheTableIsPainted)
{
    bool wasEmptyWhenPainted = false;
    folder.write("autolog.dat", " 1 \r\n");
    program = std::make_unique<kavo::Program>(folder.path(), prompts);
    QObject::connect(&mainWindow(), &Form1::painted, &mainWindow(), [&] { wasEmptyWhenPainted = states().empty(); });
    program->rememberResults(sources);
    program->start();
    ASSERT_TRUE(isSoon([this] { return !states().empty(); }));
    EXPECT_TRUE(wasEmptyWhenPainted);
}

TEST_F(ResultsKeeping, KeepsNothingOfALoadingThatEndedEarly)
{
    folder.write("game/stats.txt", "no statistics\r\n");
    prompts.expectMessage({.text = std::string(kavo::messages::kWrongFile)});
    onModalWindow([](QWidget& options) { options.close(); });  // where another file could be chosen
    startRemembering();
    QApplication::processEvents();
    program.reset();  // waits for what is being remembered
    EXPECT_TRUE(states().empty());
}

TEST_F(ResultsKeeping, SaysNothingWhereNothingCanBeKept)
{
    place.write("kavo-timing", "in the way");
    startRemembering();
    ASSERT_TRUE(isSoon([this] { return mainWindow().isPainted(); }));
    QTest::keyClick(&list(), Qt::Key_F5);
    EXPECT_EQ(list().model()->rowCount(), 55);
    program.reset();
    EXPECT_EQ(place.read("kavo-timing"), "in the way");
}

TEST_F(ResultsKeeping, DoesNotHoldUpTheEndWhileAnotherProgramRemembers)
{
    const kavo::Session session = sessionOf("Marek");
    std::filesystem::create_directories(history().folder());
    std::optional<kavo::FileLock> other(history().folder() / "lock");
    ASSERT_EQ(other->state(), kavo::FileLock::State::Held);
    const auto start = std::chrono::steady_clock::now();
    {
        kavo::ResultsKeeper keeper(sources, std::chrono::milliseconds(20));
        keeper.keep(session);
    }
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));  // the lock is waited for longer
    EXPECT_TRUE(states().empty());
    other.reset();
    ASSERT_TRUE(isSoon([this] { return states().size() == 1; }));
    // The thread that was left to itself ends before its folder does.
    ASSERT_TRUE(
        isSoon([this] { return kavo::FileLock(history().folder() / "lock").state() == kavo::FileLock::State::Held; }));
}

constexpr std::time_t kNoon = 1795262400;  // 2026-11-21 12:00:00 UTC
constexpr std::time_t kDay = 24 * 60 * 60;

/// Player 1 drives 0:20 on level 1, skips level 2 and drives 0:30 on all others. It was 0:18 on level 1, first two
/// days ago, 0:40 on level 2 and 0:30 on level 3.
class BestEverTips : public ResultsKeeping
{
protected:
    BestEverTips()
    {
        folder.write("targets.txt", targetsText());
        folder.write("game/stats.txt", statisticsText({"00:20:00 Marek", ""}));
        folder.write("friend/stats.txt", statisticsText({"00:35:00 Bob", "00:45:00 Bob"}));
        std::filesystem::remove(folder / "Marek/bugs.dat");
    }

    void rememberBetterTimes()
    {
        rememberBefore("Marek", {"00:18:00 Marek", "00:50:00 Marek"}, kNoon - 2 * kDay);
        rememberBefore("Marek", {"00:18:00 Marek", "00:40:00 Marek", "00:31:00 Marek"}, kNoon - kDay);
    }

    const QString gradeOfLevel1 = "World Class. 10.00 s to World Record (00:10:00)";
};

TEST_F(BestEverTips, TellWhatWasBetterAndWhen)
{
    rememberBetterTimes();
    startRemembering();
    const auto day = [](std::time_t when) { return " (" + QString::fromStdString(kavo::datesOf(when).date) + ")"; };
    ASSERT_TRUE(isSoon([this] { return tip(1, 1) != gradeOfLevel1; }));
    for (const int column : {1, 2}) {
        EXPECT_EQ(tip(1, column), gradeOfLevel1 + "\nBest ever: 00:18:00" + day(kNoon - 2 * kDay));
        EXPECT_EQ(tip(2, column), "Beginner\nBest ever: 00:40:00" + day(kNoon - kDay)) << "skipped now";
        EXPECT_FALSE(tip(3, column).contains("Best ever")) << "as good as ever";
        EXPECT_FALSE(tip(55, column).contains("Best ever"));
    }
    for (int column = 3; column < 9; ++column) EXPECT_FALSE(tip(1, column).contains("Best ever")) << column;
}

TEST_F(BestEverTips, KnowWhatALoadingHasBrought)
{
    startRemembering();
    ASSERT_TRUE(isSoon([this] { return states().size() == 1; }));
    EXPECT_EQ(tip(1, 1), gradeOfLevel1);
    folder.write("game/stats.txt", statisticsText({"00:20:01 Marek", ""}));
    QTest::keyClick(&list(), Qt::Key_F5);
    ASSERT_TRUE(isSoon([this] { return tip(1, 1).contains("\nBest ever: 00:20:00 ("); })) << qPrintable(tip(1, 1));
}

TEST_F(BestEverTips, HaveNothingToTellWhereNothingIsRemembered)
{
    rememberBetterTimes();
    startLoggedIn();  // without remembering
    EXPECT_EQ(tip(1, 1), gradeOfLevel1);
    QTest::keyClick(&list(), Qt::Key_F5);
    EXPECT_EQ(tip(1, 1), gradeOfLevel1);
}

TEST_F(BestEverTips, TellOfWhatIsRememberedAlsoWhereNothingMoreCanBe)
{
    rememberBetterTimes();
    folder.write("game/stats.txt", statisticsText({"00:20:00 Marek", ""}) + std::string(kavo::kLargestState, '\n'));
    startRemembering();
    ASSERT_TRUE(isSoon([this] { return tip(1, 1).contains("Best ever: 00:18:00"); }));
    EXPECT_EQ(states().size(), 2U);
}

TEST_F(BestEverTips, ShowATimeWithMarkupAsItIs)
{
    rememberBefore("Marek", {"00<18>00 <b>Marek</b>"}, kNoon);
    startRemembering();
    ASSERT_TRUE(isSoon([this] { return tip(1, 1).contains("\nBest ever: 00<18>00 ("); }));
}

TEST_F(BestEverTips, AreThoseOfTheUserWhoIsLoggedIn)
{
    rememberBetterTimes();
    startRemembering();
    ASSERT_TRUE(isSoon([this] { return tip(1, 1).contains("Best ever: 00:18:00"); }));
    const kavo::Session marek = sessionOf("Marek");
    const kavo::Session bob = sessionOf("Bob");
    kavo::ResultsKeeper keeper(sources);
    EXPECT_EQ(keeper.bestEver(marek), nullptr);
    keeper.keep(marek);
    ASSERT_TRUE(isSoon([&] { return keeper.bestEver(marek) != nullptr; }));
    EXPECT_EQ(keeper.bestEver(bob), nullptr);
    keeper.keep(bob);
    ASSERT_TRUE(isSoon([&] { return keeper.bestEver(bob) != nullptr; }));
    EXPECT_EQ((*keeper.bestEver(bob))[1].time, "00:20:00");
    EXPECT_EQ(keeper.bestEver(marek), nullptr);
}

}  // namespace
