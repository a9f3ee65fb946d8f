// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/watching.h"

#include "tests/support/program_folder_fixture.h"
#include "tests/support/state_with_targets.h"

#include <gtest/gtest.h>

namespace kavo {
namespace {

using test::statisticsText;
using namespace std::chrono_literals;

const std::string kFirst = statisticsText({"00:21:05 Zoe"});
const std::string kSecond = statisticsText({"00:19:88 Zoe"});

/// A file that has come to rest with its first content at 300 ms.
FileSettling settled()
{
    FileSettling file;
    static_cast<void>(file.look(kFirst, 0ms));
    EXPECT_TRUE(file.look(kFirst, 300ms));
    return file;
}

TEST(FileSettling, BelievesAFileThatHasStayedTheSame)
{
    FileSettling file;
    EXPECT_FALSE(file.content());
    EXPECT_FALSE(file.look(kFirst, 1000ms));
    EXPECT_TRUE(file.isMoving(1000ms));
    EXPECT_FALSE(file.look(kFirst, 1299ms));
    EXPECT_TRUE(file.isMoving(1299ms));
    EXPECT_TRUE(file.look(kFirst, 1300ms));
    EXPECT_FALSE(file.isMoving(1300ms));
    EXPECT_EQ(file.content(), kFirst);
}

TEST(FileSettling, TellsEachContentOnce)
{
    FileSettling file = settled();
    EXPECT_FALSE(file.look(kFirst, 1000ms));
    EXPECT_FALSE(file.look(kFirst, 2000ms));
    EXPECT_FALSE(file.look(kSecond, 3000ms));
    EXPECT_TRUE(file.look(kSecond, 4000ms));
    EXPECT_FALSE(file.look(kSecond, 5000ms));
}

TEST(FileSettling, WaitsOutAFileThatIsStillBeingWritten)
{
    FileSettling file = settled();
    for (int i = 1; i <= 10; ++i)
        EXPECT_FALSE(
            file.look(std::string_view(kSecond).substr(0, 100U * static_cast<unsigned>(i)), 300ms + i * 100ms));
    EXPECT_FALSE(file.look(kSecond, 2000ms));
    EXPECT_FALSE(file.look(kSecond, 2200ms));
    EXPECT_TRUE(file.look(kSecond, 2300ms));
}

TEST(FileSettling, NeverBelievesAHalfWrittenFile)
{
    FileSettling file = settled();
    const std::string_view second = kSecond;
    const std::string_view withoutLastLevels = second.substr(0, second.find("Level 50"));
    const std::string_view withoutLineEnd = second.substr(0, second.size() - 2);
    for (const std::string_view half : {std::string_view(), withoutLastLevels, withoutLineEnd}) {
        EXPECT_FALSE(file.look(half, 1000ms));
        EXPECT_TRUE(file.isMoving(1000ms));
        EXPECT_FALSE(file.look(half, 9000ms));
        EXPECT_FALSE(file.isMoving(9000ms));
    }
    EXPECT_EQ(file.content(), kFirst);
    EXPECT_FALSE(file.look(kSecond, 10000ms));
    EXPECT_TRUE(file.look(kSecond, 11000ms));
}

TEST(FileSettling, TakesAReplacedFileAndOneThatWasGone)
{
    FileSettling file = settled();
    EXPECT_FALSE(file.look(std::nullopt, 1000ms));
    EXPECT_FALSE(file.isMoving(1000ms));
    EXPECT_FALSE(file.look(kSecond, 1100ms));
    EXPECT_FALSE(file.look(std::nullopt, 1300ms));
    EXPECT_FALSE(file.look(kSecond, 1350ms));
    EXPECT_FALSE(file.look(kSecond, 1400ms));  // seen 300 ms ago, but not all the time since
    EXPECT_TRUE(file.look(kSecond, 1650ms));
}

TEST(FileSettling, HasNoNewsOfAFileThatComesBackUnchanged)
{
    FileSettling file = settled();
    EXPECT_FALSE(file.look(std::nullopt, 1000ms));
    EXPECT_FALSE(file.look(kFirst, 1100ms));
    EXPECT_FALSE(file.look(kFirst, 9000ms));
    EXPECT_FALSE(file.isMoving(1000ms));
}

TEST(FileSettling, HasNoNewsOfAChangeThatIsTakenBack)
{
    FileSettling file = settled();
    EXPECT_FALSE(file.look(kSecond, 1000ms));
    EXPECT_FALSE(file.look(kFirst, 1100ms));
    EXPECT_FALSE(file.look(kFirst, 9000ms));
}

TEST(ImprovementWatch, TellsWhatEachRestHasBrought)
{
    const ResultsState targets = test::stateWithTargets();
    ImprovementWatch watch;
    using Lines = std::vector<std::string>;
    EXPECT_EQ(watch.take(statisticsText({"00:30:50 Zoe", "00:30:00 Zoe", ""}), targets), Lines{});
    EXPECT_EQ(watch.take(statisticsText({"00:20:83 Zoe", "00:35:00 Zoe", "00:55:00 Zoe"}), targets),
              (Lines{"Level 1, Track: 00:30:50 → 00:20:83, Good → Professional, 0.83 s to World Class",
                     "Level 3, Track: SKIPPED → 00:55:00, Beginner, 5.00 s to OK"}));
    EXPECT_EQ(watch.take(statisticsText({"00:20:83 Zoe", "00:35:00 Zoe", "00:55:00 Zoe"}), targets), Lines{});
    EXPECT_EQ(watch.take(statisticsText({"00:20:83 Zoe", "00:34:00 Zoe", ""}), targets),
              Lines{"Level 2, Track: 00:35:00 → 00:34:00, Good, 4.00 s to Professional"});
}

}  // namespace
}  // namespace kavo
