// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/club_files.h"

#include "insight/club_part_file.h"
#include "tests/support/program_folder_fixture.h"
#include "tests/support/state_with_targets.h"

#include <gtest/gtest.h>

#include <algorithm>

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace fs = std::filesystem;

namespace kavo {
namespace {

using test::statisticsText;

class ClubFiles : public ::testing::Test
{
protected:
    ClubReading read(const std::vector<fs::path>& places) { return readClub(clubFiles(places), targets); }

    [[nodiscard]] std::vector<std::string> unreadable(const ClubReading& reading) const
    {
        std::vector<std::string> lines;
        for (const UnreadableFile& one : reading.unreadable)
            lines.push_back(fs::path(one.file).lexically_relative(folder.path()).generic_string() + ": " + one.reason);
        return lines;
    }

    test::TemporaryFolder folder;
    const ResultsState targets = test::stateWithTargets();
};

using Lines = std::vector<std::string>;

TEST_F(ClubFiles, AreThePlacesAndTheFilesInThem)
{
    folder.write("league/a.txt", statisticsText({"00:01:00 Ann"}));
    folder.write("league/b.stats", statisticsText({"00:02:00 Bob"}));
    folder.write("league/.hidden", "no statistics");
    folder.write("league/older/c.txt", statisticsText({"00:03:00 Carl"}));
    folder.write("d.txt", statisticsText({"00:04:00 Dan"}));
    const ClubReading reading = read({folder / "league", folder / "d.txt"});
    ASSERT_EQ(reading.part.players.size(), 3U);
    EXPECT_EQ(reading.part.players[0].name, "Ann");
    EXPECT_EQ(reading.part.players[0].file, (folder / "league/a.txt").make_preferred().string());
    EXPECT_EQ(reading.part.players[1].name, "Bob");
    EXPECT_EQ(reading.part.players[2].name, "Dan");
    EXPECT_TRUE(reading.unreadable.empty());
}

TEST_F(ClubFiles, ThatCannotBeReadAreNamedAndLeftOut)
{
    folder.write("league/a.txt", statisticsText({"00:01:00 Ann"}));
    folder.write("league/readme.md", "no statistics");
    folder.write("league/short.txt", statisticsText().substr(0, 500));
    folder.write("league/empty.txt", "");
    const ClubReading reading = read({folder / "none.txt", folder / "league"});
    EXPECT_EQ(reading.part.players.size(), 1U);
    EXPECT_EQ(unreadable(reading),
              (Lines{"league/empty.txt: Wrong file!", "league/readme.md: Wrong file!",
                     "league/short.txt: Invalid procedure call or argument", "none.txt: File not found"}));
}

#ifndef _WIN32

TEST_F(ClubFiles, ThatAreNoOrdinaryFilesAreLeftOut)
{
    folder.write("league/a.txt", statisticsText({"00:01:00 Ann"}));
    ASSERT_EQ(::mkfifo((folder / "league/pipe").c_str(), 0600), 0);
    fs::create_symlink("nowhere", folder / "league/dangling");
    fs::create_symlink("a.txt", folder / "league/link");
    const ClubReading reading = read({folder / "league", folder / "league/pipe"});
    EXPECT_EQ(reading.part.players.size(), 1U);
    EXPECT_EQ(unreadable(reading).size(), 1U);  // the pipe that was named
}

#endif

TEST_F(ClubFiles, GiveTheSameTableInAnyOrderAndOnAnyNumberOfThreads)
{
    for (int i = 0; i < 400; ++i)
        folder.write("league/" + std::to_string(i), i % 50 == 49
                                                        ? "wrong"
                                                        : statisticsText({"00:" + std::to_string(10 + i % 37) +
                                                                          ":00 Player " + std::to_string(i % 200)}));
    std::vector<fs::path> files = clubFiles({folder / "league"});
    ASSERT_EQ(files.size(), 400U);
    std::sort(files.begin(), files.end());
    ClubReading reading = readClub(files, targets);
    const std::string whole = formatClubPart(reading.part);
    EXPECT_EQ(reading.unreadable.size(), 8U);
    std::reverse(files.begin(), files.end());
    reading = readClub(files, targets);
    EXPECT_EQ(formatClubPart(reading.part), whole);
    EXPECT_TRUE(std::is_sorted(reading.unreadable.begin(), reading.unreadable.end(),
                               [](const UnreadableFile& a, const UnreadableFile& b) { return a.file < b.file; }));
    // A few at a time are read by one thread, and then joined.
    ClubPart part = readClub({}, targets).part;
    for (std::size_t i = 0; i < files.size(); i += 20)
        part = joined(readClub({files.begin() + static_cast<std::ptrdiff_t>(i),
                                files.begin() + static_cast<std::ptrdiff_t>(i + 20)},
                               targets)
                          .part,
                      part);
    EXPECT_EQ(formatClubPart(part), whole);
}

}  // namespace
}  // namespace kavo
