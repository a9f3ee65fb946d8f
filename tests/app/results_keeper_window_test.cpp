// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/results_keeper.h"
#include "base/file_lock.h"
#include "base/text_file.h"
#include "insight/history_store.h"
#include "tests/support/window_fixture.h"

#include <chrono>
#include <filesystem>
#include <functional>
#include <optional>
#include <set>

namespace {

using kavo::test::statisticsText;

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

    static bool isSoon(const std::function<bool()>& hasCome) { return QTest::qWaitFor(hasCome, kavo::test::kPatience); }

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
    kavo::Session session;
    session.programFolder = folder.path();
    session.userFolder = folder / "Marek";
    session.StatsPath = (folder / "game/stats.txt").string();
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

}  // namespace
