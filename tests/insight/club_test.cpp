// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/club.h"

#include "insight/club_part_file.h"
#include "insight/fingerprint.h"
#include "tests/support/program_folder_fixture.h"
#include "tests/support/state_with_targets.h"

#include <gtest/gtest.h>

#include <random>

namespace kavo {
namespace {

using test::stateWithTargets;
using test::statisticsText;

/// A statistics file by its name and its first times.
struct File
{
    std::string name;
    std::vector<std::string> times;
};

ClubPart collected(const std::vector<File>& files)
{
    const ResultsState state = stateWithTargets();
    ClubCollector collector(state);
    for (const File& file : files) collector.add(statisticsText(file.times), file.name);
    return collector.finish();
}

std::vector<std::string> playersOf(const ClubPart& part)
{
    std::vector<std::string> lines;
    for (const ClubPlayer& player : part.players)
        lines.push_back(player.name + " " + player.total + " " + std::to_string(player.won.count()));
    return lines;
}

std::string gradesOf(const GradeCounts& counts)
{
    std::string text;
    for (const int count : counts.values) text += (text.empty() ? "" : " ") + std::to_string(count);
    return text;
}

/// The best of a level and who drove it.
std::string bestOf(const ClubPart& part, int level)
{
    const ClubLevel& best = part.levels.at(static_cast<std::size_t>(level) - 1);
    std::string text = best.name + " " + best.time + " " + std::string(gradeOf(best.grade).name) + ":";
    for (const std::string_view name : winnersOf(part, level)) text += " " + std::string(name);
    return text;
}

using Lines = std::vector<std::string>;

const File kAlice{"alice.txt", {"00:20:00 Alice", "00:31:00 Alice", "", "00:09:00 Alice"}};
const File kBob{"bob.txt", {"00:21:05 Bob", "00:31:00 Bob", "", "00:10:00 Bob"}};
const File kCarl{"carl.txt", {"", "00:45:00 Carl", "", "00:09:00 Carl", "00:29:99 Carl"}};

TEST(Club, RanksPlayersByTheirTotals)
{
    // 20 + 31 + 600 + 9 s and 50 half minutes; 1.05 + 1 s more; 600 + 45 + 600 + 9 + 29.99 s and 49 half minutes.
    EXPECT_EQ(playersOf(collected({kCarl, kBob, kAlice})),
              (Lines{"Alice 36:00:00 52", "Bob 36:02:05 50", "Carl 45:53:99 51"}));
}

TEST(Club, RanksByTheExactTotalWhereTheOneShownIsCut)
{
    // Ten skipped levels and 44 half minutes are 122 minutes, of which the table shows the last 32.
    std::vector<std::string> times(10);
    times.emplace_back("00:30:00 Dora");
    const ClubPart part = collected({{"dora.txt", times}, kCarl});
    EXPECT_EQ(playersOf(part), (Lines{"Carl 45:53:99 52", "Dora 32:00:00 44"}));
    EXPECT_EQ(part.players[1].hundredths, 732000);
}

TEST(Club, OfOneIsWonByThatPlayer)
{
    const ClubPart part = collected({kAlice});
    EXPECT_EQ(playersOf(part), (Lines{"Alice 36:00:00 53"}));
    EXPECT_EQ(bestOf(part, 3), "3, Track SKIPPED Beginner:");
    // Ten minutes less than the player: in a team's total a level without a time counts nothing.
    EXPECT_EQ(teamOf(part).total, "26:00:00");
}

TEST(Club, WithoutTargetsIsOfBeginners)
{
    const ResultsState none;
    ClubCollector collector(none);
    collector.add(statisticsText(kAlice.times), kAlice.name);
    const ClubPart part = collector.finish();
    EXPECT_EQ(gradesOf(part.players[0].grades), "0 0 0 0 0 54");
    EXPECT_EQ(gradesOf(teamOf(part).grades), "0 0 0 0 0 54");
    EXPECT_EQ(bestOf(part, 1), "1, Track 00:20:00 Beginner: Alice");
}

TEST(Club, CountsGradesAsTheTableDoes)
{
    const ClubPart part = collected({kAlice, kBob, kCarl});
    EXPECT_EQ(gradesOf(part.players[0].grades), "1 1 50 1 0 1");
    EXPECT_EQ(gradesOf(part.players[1].grades), "1 0 51 1 0 1");
    EXPECT_EQ(gradesOf(part.players[2].grades), "1 0 50 0 1 2");
}

TEST(Club, LetsEachOfTheTiedWin)
{
    const ClubPart part = collected({kAlice, kBob, kCarl});
    EXPECT_EQ(bestOf(part, 1), "1, Track 00:20:00 World Class: Alice");
    EXPECT_EQ(bestOf(part, 2), "2, Track 00:31:00 Good: Alice Bob");
    EXPECT_EQ(bestOf(part, 3), "3, Track SKIPPED Beginner:");
    EXPECT_EQ(bestOf(part, 4), "4, Track 00:09:00 World Record: Alice Carl");
    EXPECT_EQ(bestOf(part, 5), "5, Track 00:29:99 Professional: Carl");
    EXPECT_EQ(bestOf(part, 54), "54, Track 00:30:00 Professional: Alice Bob Carl");
}

TEST(Club, MakesATeamOfAll)
{
    const ClubTeam team = teamOf(collected({kAlice, kBob, kCarl}));
    // 20 + 31 + 9 + 29.99 s and 49 half minutes; what nobody has driven adds nothing.
    EXPECT_EQ(team.total, "25:59:99");
    EXPECT_EQ(team.hundredths, 155999);
    EXPECT_EQ(gradesOf(team.grades), "1 1 50 1 0 1");
}

TEST(Club, NamesAPlayerWithoutADriverByTheFile)
{
    const ResultsState state = stateWithTargets();
    ClubCollector collector(state);
    collector.add(test::undrivenText(), "league/nobody.txt");
    collector.add(statisticsText({"00:10:00"}), "league/bare.txt");
    const ClubPart part = collector.finish();
    EXPECT_EQ(part.players[0].name, "bare.txt");
    EXPECT_EQ(part.players[1].name, "nobody.txt");
    EXPECT_EQ(part.players[1].hundredths, 54 * 60000);
    EXPECT_EQ(part.players[1].won.count(), 0U);
}

TEST(Club, KeepsPlayersOfOneNameApart)
{
    const ClubPart part = collected({{"a/stats.txt", {"00:20:00 Alice"}}, {"b/stats.txt", {"00:21:00 Alice"}}});
    ASSERT_EQ(part.players.size(), 2U);
    EXPECT_EQ(part.players[0].file, "a/stats.txt");
    EXPECT_EQ(part.players[1].file, "b/stats.txt");
}

TEST(Club, TakesTheSameFileOnce)
{
    const ClubPart part = collected({{"copy.txt", kAlice.times}, kAlice, kAlice, kBob});
    ASSERT_EQ(part.players.size(), 2U);
    EXPECT_EQ(part.players[0].file, "alice.txt");
    EXPECT_EQ(part, collected({kAlice, kBob}));
    EXPECT_EQ(joined(part, part), part);
}

TEST(Club, TakesTheLevelNamesOfItsFirstPlayer)
{
    const ResultsState state = stateWithTargets();
    std::string renamed = statisticsText({"00:05:00 Zoe"});
    renamed.replace(renamed.find("Track"), 5, "Chalk");
    ClubCollector collector(state);
    collector.add(statisticsText(), "slow.txt");
    collector.add(renamed, "fast.txt");
    collector.add(statisticsText({"00:06:00 Bob"}), "middle.txt");
    EXPECT_EQ(collector.finish().levels[0].name, "1, Chalk");
}

TEST(Club, LetsNothingWinThatIsNoTime)
{
    const ClubPart part = collected({{"odd.txt", {"-0:00:01 Odd", "00.25.00 Odd", "xx:yy:zz Odd"}},
                                     {"even.txt", {"00:50:00 Even", "00:25:00 Even", "00:50:00 Even"}}});
    EXPECT_EQ(bestOf(part, 1), "1, Track 00:50:00 OK: Even");
    EXPECT_EQ(bestOf(part, 2), "2, Track 00.25.00 World Record: Odd Even");  // the grade of that spelling
    EXPECT_EQ(bestOf(part, 3), "3, Track 00:50:00 OK: Even");
}

TEST(Club, IsEmptyWithoutPlayers)
{
    const ClubPart none = collected({});
    EXPECT_TRUE(none.players.empty());
    EXPECT_EQ(teamOf(none).total, "00:00:00");
    EXPECT_EQ(gradesOf(teamOf(none).grades), "0 0 0 0 0 54");
    EXPECT_EQ(joined(none, collected({kBob})), collected({kBob}));
    EXPECT_EQ(joined(collected({kBob}), none), collected({kBob}));
    EXPECT_EQ(joined(none, none), none);
}

TEST(Club, DoesNotMixTargets)
{
    ResultsState others = stateWithTargets();
    others.TargetOK[54] = "00:50:01";
    const ClubPart part = ClubCollector(others).finish();
    try {
        static_cast<void>(joined(part, collected({kBob})));
        ADD_FAILURE() << "no error";
    } catch (const ClubError& error) {
        EXPECT_STREQ(error.what(), "the parts were graded by different targets");
    }
}

/// Files of a few players with many ties, some of them the same, some by drivers of one name.
std::vector<File> randomFiles(std::mt19937& random)
{
    const auto number = [&random](int below) { return std::uniform_int_distribution<int>(0, below - 1)(random); };
    const Lines separators = {":", ":", ":", "."};
    std::vector<File> files;
    for (int i = number(8); i >= 0; --i) {
        File file{"f" + std::to_string(number(100)), {}};
        const std::string name =
            Lines{"Ann", "Bob", "", "Жанна", "tab\there", "J\xFC%0A"}.at(static_cast<std::size_t>(number(6)));
        for (int level = number(54); level > 0; --level) {
            const std::string separator = separators.at(static_cast<std::size_t>(number(4)));
            file.times.push_back(
                number(5) == 0 ? "" : "00" + separator + "0" + std::to_string(number(4)) + separator + "00 " + name);
        }
        files.push_back(file);
        if (number(4) == 0) files.push_back({"copy" + std::to_string(number(100)), file.times});
    }
    return files;
}

TEST(Club, IsTheSameInWhateverOrderAndGroupingItsPartsAreJoined)
{
    std::mt19937 random(20261121);
    const auto number = [&random](std::size_t below) {
        return std::uniform_int_distribution<std::size_t>(0, below - 1)(random);
    };
    for (int round = 0; round < 100; ++round) {
        std::vector<File> files = randomFiles(random);
        const std::string whole = formatClubPart(collected(files));
        std::shuffle(files.begin(), files.end(), random);
        std::vector<ClubPart> parts;
        while (!files.empty()) {
            const auto end = files.end() - static_cast<std::ptrdiff_t>(1 + number(files.size()));
            std::vector<File> share(end, files.end());
            files.erase(end, files.end());
            if (!files.empty() && number(3) == 0) share.push_back(files.front());  // in two parts
            parts.push_back(parseClubPart(formatClubPart(collected(share))));
        }
        while (parts.size() > 1) {
            std::swap(parts[number(parts.size())], parts.back());
            ClubPart last = std::move(parts.back());
            parts.pop_back();
            ClubPart& other = parts[number(parts.size())];
            other = number(2) == 0 ? joined(last, other) : joined(other, last);
        }
        ASSERT_EQ(formatClubPart(parts.front()), whole) << "round " << round;
    }
}

TEST(ClubPartFile, IsReadBackAsItWas)
{
    const ClubPart part = collected({kAlice, kBob, {"tab\t\n%.txt", {"00:10:00 J\xFCrgen\x01"}}});
    EXPECT_EQ(parseClubPart(formatClubPart(part)), part);
    const ClubPart none = collected({});
    EXPECT_EQ(parseClubPart(formatClubPart(none)), none);
}

TEST(ClubPartFile, HasALineForEachLevelAndPlayer)
{
    const std::string text = formatClubPart(collected({kAlice}));
    const std::string start = "kavo-timing club part\t1\ntargets\t" +
                              hexadecimal(targetsFingerprint(stateWithTargets())) +
                              "\nlevel\t00:20:00\tWorld Class\t1, Track\nlevel\t00:31:00\tGood\t2, Track\n"
                              "level\tSKIPPED\tBeginner\t3, Track\n";
    EXPECT_EQ(text.substr(0, start.size()), start);
    const std::string player = "player\t216000\tAlice\t" + hexadecimal(fingerprint(statisticsText(kAlice.times))) +
                               "\talice.txt\t36:00:00\t003ffffffffffffb\t1\t1\t50\t1\t0\t1\nend\t1\t";
    EXPECT_NE(text.find(player), std::string::npos) << text.substr(text.find("player\t"));
}

std::string partErrorOf(const std::string& text)
{
    try {
        static_cast<void>(parseClubPart(text));
    } catch (const ClubError& error) {
        return error.what();
    }
    return "no error";
}

TEST(ClubPartFile, SaysWhatIsWrongWithIt)
{
    const std::string whole = formatClubPart(collected({kAlice, kBob}));
    EXPECT_EQ(partErrorOf(""), "not a part of a club's table");
    EXPECT_EQ(partErrorOf(statisticsText()), "not a part of a club's table");
    EXPECT_EQ(partErrorOf("kavo-timing club part\t2\n"), "made by another version of the program");
    EXPECT_EQ(partErrorOf("kavo-timing club part"), "damaged at line 1");
    EXPECT_EQ(partErrorOf(whole.substr(0, whole.size() - 1)), "damaged, or not written to its end");
    EXPECT_EQ(partErrorOf(whole + "x"), "damaged, or not written to its end");
    EXPECT_EQ(partErrorOf(whole.substr(0, whole.find("level\t00:09"))), "damaged at line 6");
    EXPECT_EQ(partErrorOf(whole.substr(0, whole.find("player\t"))), "damaged, or not written to its end");
}

TEST(ClubPartFile, NoticesEveryChangedByte)
{
    const std::string whole = formatClubPart(collected({kAlice, kBob}));
    for (std::size_t at = 0; at < whole.size(); ++at) {
        std::string damaged = whole;
        damaged[at] = damaged[at] == '0' ? '1' : '0';
        EXPECT_NE(partErrorOf(damaged), "no error") << "byte " << at;
        EXPECT_NE(partErrorOf(whole.substr(0, at)), "no error") << "cut at " << at;
    }
}

}  // namespace
}  // namespace kavo
