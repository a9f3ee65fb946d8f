// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/growing_best.h"

#include "tests/support/program_folder_fixture.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace kavo {

namespace {

using test::statisticsText;

bool always()
{
    return true;
}

class GrowingBestTimes : public testing::Test
{
protected:
    void remember(const std::vector<std::string>& times, std::time_t now)
    {
        static_cast<void>(history.remember(statisticsText(times), now));
    }

    /// How many states are looked at, which is asked before each of them.
    int statesTaken()
    {
        int asked = 0;
        EXPECT_TRUE(best.follow(history, [&asked] { return ++asked > 0; }));
        return asked;
    }

    void expectTheBestOfAll()
    {
        EXPECT_EQ(formatBestEver(best.best()), formatBestEver(bestEverOf(history)));
        for (int level = 1; level <= kLevels; ++level)
            EXPECT_EQ(best.best()[level].since, bestEverOf(history)[level].since) << level;
    }

    test::TemporaryFolder folder;
    HistoryStore history{folder / "history"};
    GrowingBest best;
};

TEST_F(GrowingBestTimes, ReadsEachStateOnce)
{
    remember({"00:21:05 Zoe", "00:10:00 Zoe"}, 1000);
    remember({"00:19:88 Zoe", "00:10:00 Bob"}, 2000);
    EXPECT_EQ(statesTaken(), 2);
    EXPECT_EQ(best.best()[1].time, "00:19:88");
    EXPECT_EQ(best.best()[2].driver, "Zoe") << "of a tie the first";
    EXPECT_EQ(statesTaken(), 0);
    remember({"00:22:00 Zoe", "00:09:00 Zoe"}, 3000);
    EXPECT_EQ(statesTaken(), 1);
    EXPECT_EQ(best.best()[1].time, "00:19:88");
    EXPECT_EQ(best.best()[2].time, "00:09:00");
    expectTheBestOfAll();
}

TEST_F(GrowingBestTimes, ForgetsWhatHasBeenTakenAway)
{
    remember({"00:19:88 Zoe"}, 1000);
    remember({"00:21:05 Zoe"}, 2000);
    EXPECT_EQ(statesTaken(), 2);
    std::filesystem::remove(history.folder() / history.states().front().name);
    EXPECT_EQ(statesTaken(), 1);
    EXPECT_EQ(best.best()[1].time, "00:21:05");
    expectTheBestOfAll();
    std::filesystem::remove_all(history.folder());
    EXPECT_EQ(statesTaken(), 0);
    EXPECT_EQ(best.best()[1].time, kSkipped);
}

TEST_F(GrowingBestTimes, TakesInAnewWhatHasChanged)
{
    remember({"00:19:88 Zoe"}, 1000);
    remember({"00:21:05 Zoe"}, 2000);
    EXPECT_EQ(statesTaken(), 2);
    folder.write("history/" + history.states().front().name, "no statistics file any more");
    EXPECT_EQ(statesTaken(), 2);
    EXPECT_EQ(best.best()[1].time, "00:21:05");
    expectTheBestOfAll();
}

TEST_F(GrowingBestTimes, KeepsNothingOfAnotherHistory)
{
    remember({"00:19:88 Zoe"}, 1000);
    EXPECT_EQ(statesTaken(), 1);
    const HistoryStore other(folder / "other");
    EXPECT_TRUE(best.follow(other, always));
    EXPECT_EQ(best.best()[1].time, kSkipped);
    EXPECT_EQ(statesTaken(), 1);
    expectTheBestOfAll();
}

TEST_F(GrowingBestTimes, GoesOnWhereItWasStopped)
{
    remember({"00:19:88 Zoe"}, 1000);
    remember({"00:21:05 Zoe", "00:10:00 Zoe"}, 2000);
    int left = 1;
    EXPECT_FALSE(best.follow(history, [&left] { return left-- > 0; }));
    EXPECT_EQ(statesTaken(), 1);
    expectTheBestOfAll();
}

}  // namespace

}  // namespace kavo
