// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/text.h"
#include "base/text_cursor.h"
#include "base/text_file.h"
#include "core/bug_times.h"
#include "core/colour_set.h"
#include "core/links.h"
#include "core/settings.h"
#include "core/statistics_file.h"
#include "core/targets.h"
#include "core/users.h"
#include "core/window_layout.h"
#include "insight/best_ever.h"
#include "insight/club_part_file.h"
#include "insight/fingerprint.h"
#include "insight/history_index.h"
#include "insight/page/page_frame.h"
#include "reports/template_file.h"
#include "tests/support/places.h"
#include "tests/support/program_folder_fixture.h"
#include "updater/records_page.h"

#include <gtest/gtest.h>

namespace kavo {
namespace {

std::string document()
{
    static const std::string kText = readFile(test::sourceFolder() / "docs/file-formats.md");
    return kText;
}

/// The bytes of an example: only what is visible in it counts.
std::string example(const std::string& name)
{
    const std::string text = document();
    const std::string opening = "```text example=" + name + "\n";
    const std::size_t start = text.find(opening);
    if (start == std::string::npos) throw std::runtime_error("no example " + name);
    const std::size_t from = start + opening.size();
    std::string bytes = replaceAll(text.substr(from, text.find("```", from) - from), "\n", "");
    bytes = replaceAll(replaceAll(bytes, "␍", "\r"), "␊", "\n");
    bytes = replaceAll(bytes, "␉", "\t");
    return replaceAll(bytes, "␣", " ");
}

std::string golden(const std::string& name)
{
    return readFile(test::sourceFolder() / "tests/golden" / name);
}

/// As often as the 55 records of a file of targets need it.
std::string repeated(std::string_view lines)
{
    std::string text;
    for (int i = 0; i <= kTotalsRow / 2; ++i) text += lines;
    return text;
}

TEST(FileFormats, StatisticsAreReadAsDescribed)
{
    const std::string text = example("stats.txt") + "Level 4\r\n";
    EXPECT_TRUE(isStatisticsFile(text));
    EXPECT_FALSE(isSecondStatisticsFile(text));
    StatisticsReader reader(text);
    EXPECT_EQ(reader.header(), "1, Warm Up");
    const auto first = reader.bestTime();
    ASSERT_TRUE(first.has_value());
    EXPECT_EQ(first->time, "00:16:32");
    EXPECT_EQ(first->driver, "Marek");
    EXPECT_EQ(reader.header(), "2, Rusty Gate");
    EXPECT_FALSE(reader.bestTime().has_value());
    EXPECT_EQ(reader.header(), "3, Pebble Road");
    EXPECT_EQ(reader.bestTime().value_or(BestTime{}).time, "00:16:56");
}

TEST(FileFormats, TargetsAreReadAndJoinedAsDescribed)
{
    ResultsState state;
    parseTargets(repeated(example("targets.txt")), state);
    EXPECT_EQ(state.TargetWR[1], "00:14:42");
    EXPECT_EQ(state.TargetOK[2], "00:31:06");
    TargetRecords records;
    records.fill("00:20:04");
    records[1] = "00:14:42";
    const std::string joined = joinTargets(records, repeated(example("targets_old.txt")));
    EXPECT_TRUE(joined.starts_with(example("targets.txt")));
}

TEST(FileFormats, FilesOfTheLoginAreWrittenAsDescribed)
{
    const test::TemporaryFolder folder;
    EXPECT_TRUE(createUserIfNew(folder.path(), "Marek"));
    EXPECT_TRUE(createUserIfNew(folder.path(), "Жанна"));
    EXPECT_EQ(folder.read("users.dat"), example("users.dat"));
    writeCurrentUser(folder.path(), "Marek");
    EXPECT_EQ(folder.read("curUser.dat"), example("curUser.dat"));
    writeAutoLogin(folder.path(), true);
    EXPECT_EQ(folder.read("autolog.dat"), example("autolog.dat"));
    EXPECT_EQ(readAutoLogin(folder.path()), kAutoLogin);
    suspendAutoLogin(folder.path());
    EXPECT_EQ(folder.read("autolog.dat"), example("autolog.dat-suspended"));
}

TEST(FileFormats, LinksAreReadAsDescribed)
{
    const Links links = parseLinks(example("links.txt"));
    EXPECT_EQ(links.addresses, (std::vector<std::string>{"https://kavo-timing.example/"}));
    EXPECT_EQ(links.descriptions, (std::vector<std::string>{"Kavo Timing: home page and downloads"}));
}

TEST(FileFormats, SettingsComeBackAsDescribed)
{
    const Settings settings = parseSettings(example("data.ini"));
    EXPECT_EQ(settings.otherPath, "friend/stats.txt");
    EXPECT_EQ(settings.fontSize, 9);
    EXPECT_EQ(formatSettings(settings), example("data.ini"));
    const Names names = parseNames(example("names.dat"));
    EXPECT_EQ(names.team, "Dust Devils");
    EXPECT_EQ(formatNames(names), example("names.dat"));
    const BugTimeEntries entries = parseBugTimes(example("bugs.dat"));
    EXPECT_EQ(entries.player2, (std::vector<std::string>{"12, 00:41:30"}));
    EXPECT_EQ(formatBugTimes(entries), example("bugs.dat"));
    EXPECT_EQ(parseBugTimesByLevel(example("bugs.dat")).player1[7], "00:19:05");
}

TEST(FileFormats, TheLayoutComesBackAsDescribed)
{
    const auto values = parseLayoutValues(example("view.dat"));
    const WindowLayout layout = withValues({}, values);
    EXPECT_EQ(layout.top, -30);
    EXPECT_EQ(layout.width, 12000);
    EXPECT_EQ(layout.columnWidths.back(), 1125);
    EXPECT_EQ(formatLayout(layout), example("view.dat"));
}

TEST(FileFormats, TheColoursAreTheDefaultOnes)
{
    EXPECT_EQ(formatColours({}), example("colors.ini"));
    const ColourFile file = parseColours(example("colors.ini"));
    EXPECT_EQ(file.count, kColours);
    EXPECT_EQ(file.colours, ColourSet{});
}

TEST(FileFormats, TypedPathsMeanWhatIsDescribed)
{
    EXPECT_EQ(methodOfPath(" compwith "), CompareMethod::Targets);
    EXPECT_EQ(methodOfPath("Compwith"), CompareMethod::AnotherFile);
    EXPECT_EQ(methodOfPath("elsewhere/my1res.old"), CompareMethod::PreviousResults);
    EXPECT_EQ(methodOfPath("1res.old "), CompareMethod::AnotherFile);
    EXPECT_EQ(methodOfPath(""), CompareMethod::AnotherFile);
}

TEST(FileFormats, TemplatesComeBackAsDescribed)
{
    const TemplateSections sections = loadTemplate({}, example("template.ett"));
    EXPECT_EQ(sections.beginning, "<h1>%team%</h1>");
    EXPECT_EQ(sections.ending, "<p>%date%</p>");
    EXPECT_EQ(formatTemplate(sections), example("template.ett"));
}

TEST(FileFormats, ReportsBeginAsDescribed)
{
    EXPECT_TRUE(golden("marek.txt").starts_with(example("report.txt")));
    EXPECT_TRUE(golden("marek-plain-table.html").starts_with(example("report.html")));
}

TEST(FileFormats, PagesBeginAsDescribed)
{
    EXPECT_TRUE(formatPage("Title", {}, [](Markup&) {}).starts_with(example("page.html")));
}

TEST(FileFormats, PartsOfAClubComeBackAsDescribed)
{
    std::string text = example("club.part");
    for (int level = 2; level <= kLevels; ++level)
        text += "level\t00:20:00\tProfessional\t" + std::to_string(level) + ", Track\n";
    text += example("club.part-end");
    const ClubPart part = parseClubPart(text);
    ASSERT_EQ(part.players.size(), 1U);
    EXPECT_EQ(part.players[0].file, "/games/marek/stats.txt");
    EXPECT_EQ(part.players[0].fingerprint, fingerprint("a"));
    EXPECT_EQ(part.players[0].hundredths, 54 * 2000);
    EXPECT_EQ(part.players[0].grades[TargetCategory::Professional], 54);
    EXPECT_TRUE(part.players[0].won.all());
    EXPECT_EQ(part.levels[0].name, "1, Warm Up");
    EXPECT_EQ(formatClubPart(part), text);
}

TEST(FileFormats, BestTimesEverAreWrittenAsDescribed)
{
    BestEver best;
    best[1] = {"1, Warm Up", "00:16:32", "Marek", {}};
    best[2] = {"2, Rusty Gate", std::string(kSkipped), {}, {}};
    best[3] = {"3, Pebble Road", "00:16:56", "Marek", {}};
    const std::string text = formatBestEver(best);
    EXPECT_TRUE(text.starts_with(example("best-ever.txt")));
    EXPECT_TRUE(text.ends_with("\r\n\r\n\r\n"));
    EXPECT_TRUE(isSecondStatisticsFile(text));
}

TEST(FileFormats, TheIndexOfRememberedResultsComesBackAsDescribed)
{
    constexpr FileMark kMark{6250, 1795257991000000001};
    const auto known = HistoryIndex::parse(example("index")).find("20261121T104631Z.txt", kMark);
    EXPECT_EQ(known, fingerprint("a"));
    EXPECT_EQ(HistoryIndex::line("20261121T104631Z.txt", kMark, fingerprint("a")), example("index"));
}

TEST(FileFormats, TimesOfThePageAreCutAsDescribed)
{
    const RecordTimes times = cutRecordTimes(example("records_page.html"));
    EXPECT_EQ(times[1], "14,42");
    EXPECT_EQ(times[28], "1:24,33");
}

}  // namespace
}  // namespace kavo
