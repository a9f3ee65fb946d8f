// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updater/records_page.h"

#include "base/run_time_error.h"
#include "base/text_file.h"
#include "tests/support/error_of.h"
#include "tests/support/places.h"
#include "tests/support/program_folder_fixture.h"
#include "tests/support/trouble.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace fs = std::filesystem;
using namespace std::string_literals;
using kavo::test::targetsText;
using kavo::test::TemporaryFolder;

namespace {

/// A page of 27 rows in which every left cell holds `left` and every right cell `right`.
std::string pageOf(const std::string& left, const std::string& right)
{
    std::string page = "<html><table>\r\n";
    for (int row = 1; row <= 27; ++row)
        page += "<tr><td align=\"right\">" + left + "</td><td align=\"right\">" + right + "</td></tr>\r\n";
    return page + "</table></html>\r\n";
}

std::string fixedTargets(int lines = kavo::kTotalsRow)
{
    std::string text;
    for (int i = 1; i <= lines; ++i) text += "fixed " + std::to_string(i) + ",x\r\n";
    return text;
}

std::string normalisedOnPage(const std::string& cell)
{
    return kavo::worldRecords(kavo::cutRecordTimes(pageOf(cell, "10,00")))[1];
}

std::string sampleFile(const char* name)
{
    return kavo::readFile(kavo::test::sourceFolder() / name);
}

}  // namespace

TEST(RecordsPage, LeftCellsAreLevels1To27AndRightCellsLevels28To54)
{
    const auto times = kavo::cutRecordTimes(pageOf("12,34", "1:23,45"));
    for (int level = 1; level <= 27; ++level) {
        EXPECT_EQ(times[level], "12,34");
        EXPECT_EQ(times[level + 27], "1:23,45");
    }
}

TEST(RecordsPage, LevelsWithoutATimeAreTold)
{
    using Levels = std::vector<int>;
    const auto without = [](const std::string& page) {
        return kavo::levelsWithoutTime(kavo::worldRecords(kavo::cutRecordTimes(page)));
    };
    EXPECT_EQ(without(pageOf("12,34", "1:23,45")), Levels());
    EXPECT_EQ(without("").size(), 54U);
    Levels right;
    for (int level = 28; level <= 54; ++level) right.push_back(level);
    for (const char* cell : {"", "-", "12,3", "1:2,34", "12.34", "1a,34", "12,34s", "10:23,45", "\u0661\u0662,34"})
        EXPECT_EQ(without(pageOf("12,34", cell)), right) << cell;
    std::string page = pageOf("12,34", "1:23,45");
    page.resize(page.rfind("<td"));  // the last cell is missing
    EXPECT_EQ(without(page), Levels{54});
}

TEST(RecordsPage, TimesAreBroughtIntoLevelTimeForm)
{
    EXPECT_EQ(normalisedOnPage("12,34"), "00:12:34");
    EXPECT_EQ(normalisedOnPage("59,99"), "00:59:99");
    EXPECT_EQ(normalisedOnPage("1:23,45"), "01:23:45");
    EXPECT_EQ(normalisedOnPage("9:59,99"), "09:59:99");
}

TEST(RecordsPage, TimesOfOtherLengthsStayButForTheirCommas)
{
    EXPECT_EQ(normalisedOnPage("9,99"), "00:9:99t");      // 9,99</t without "<" and "/" has five characters
    EXPECT_EQ(normalisedOnPage("12:34,56"), "012:34:5");  // cut to 12:34,5, which has seven characters
    EXPECT_EQ(normalisedOnPage("1:23,4"), "1:23:4");      // 1:23,4< loses its bracket
    EXPECT_EQ(normalisedOnPage("</></>/"), "");
    EXPECT_EQ(normalisedOnPage("1,2,3,4"), "01:2:3:4");
}

TEST(RecordsPage, BracketsAndSlashesGoAlsoFromTheMiddle)
{
    EXPECT_EQ(kavo::cutRecordTimes(pageOf("1<2/,>3", "4/5<6>7"))[1], "12,3");
    EXPECT_EQ(kavo::cutRecordTimes(pageOf("1<2/,>3", "4/5<6>7"))[28], "4567");
}

TEST(RecordsPage, LengthsAreCountedInCharacters)
{
    // Seven characters in nine bytes: an accented letter takes two.
    EXPECT_EQ(kavo::cutRecordTimes(pageOf("\xC3\xA9:23,4\xC3\xA9", "10,00"))[1], "\xC3\xA9:23,4\xC3\xA9");
    EXPECT_EQ(normalisedOnPage("\xC3\xA9:23,4\xC3\xA9"), "0\xC3\xA9:23:4\xC3\xA9");
    // A byte that is no UTF-8 is one character.
    EXPECT_EQ(kavo::cutRecordTimes(pageOf("\xE9\xE9,\xE9\xE9", "10,00"))[1], "\xE9\xE9,\xE9\xE9");
    EXPECT_EQ(normalisedOnPage("\xE9\xE9,\xE9\xE9"), "00:\xE9\xE9:\xE9\xE9");
}

TEST(RecordsPage, NulBytesAreCharactersLikeOthers)
{
    EXPECT_EQ(kavo::cutRecordTimes(pageOf("1\0002,34"s, "10,00"))[1], "1\0002,34"s);
}

TEST(RecordsPage, MarkerIsComparedExactly)
{
    const auto times = kavo::cutRecordTimes("<td ALIGN=\"right\">11,11</td><td align=\"right\">22,22</td>");
    EXPECT_EQ(times[1], "22,22");
}

TEST(RecordsPage, EmptyPageGivesEmptyTimesAndNoTotal)
{
    const auto records = kavo::worldRecords(kavo::cutRecordTimes(""));
    for (int level = 1; level <= kavo::kLevels; ++level) EXPECT_EQ(records[level], "");
    EXPECT_EQ(records[kavo::kTotalsRow], "00:00:00");
}

TEST(RecordsPage, WithoutAMarkerTheTextsAreWhatLiesAtTheOffsetsFromPosition0)
{
    // Characters 14 to 20.
    const auto times = kavo::cutRecordTimes("abcdefghijklmnopqrstuvwxyz");
    for (int level = 1; level <= kavo::kLevels; ++level) EXPECT_EQ(times[level], "nopqrst");
    EXPECT_EQ(kavo::cutRecordTimes("abcdefghijklmno")[1], "no");
    EXPECT_EQ(kavo::cutRecordTimes("abcdefghijklm")[1], "");
    EXPECT_EQ(kavo::cutRecordTimes("\xC3\xA9"
                                   "bcdefghijklmnopqrstuvwxyz")[1],
              "nopqrst");
}

TEST(RecordsPage, AfterAMissingMarkerTheSearchStartsAtPosition5Again)
{
    // One marker at position 5: found for level 1, missed for level 28, found again for level 2.
    const auto times = kavo::cutRecordTimes("abcdalign=\"right\">12,34</td>");
    EXPECT_EQ(times[1], "12,34");
    EXPECT_EQ(times[28], "ght\"12");  // characters 14 to 20, without their bracket
    EXPECT_EQ(times[2], "12,34");
}

TEST(RecordsPage, AMarkerBeforePosition5IsFoundOnlyOnce)
{
    const auto times = kavo::cutRecordTimes("abcalign=\"right\">12,34</td>");
    EXPECT_EQ(times[1], "12,34");
    EXPECT_EQ(times[28], "ht\"12,");  // characters 14 to 20, without their bracket
    EXPECT_EQ(times[2], "ht\"12,");   // missed, too: the search starts behind the marker's beginning
}

TEST(RecordsPage, ACutAtTheEndOfThePageIsShort)
{
    EXPECT_EQ(kavo::cutRecordTimes("abcdalign=\"right\">12,")[1], "12,");
    EXPECT_EQ(kavo::cutRecordTimes("abcdalign=\"right\">")[1], "");
}

TEST(RecordsPage, OfTwoPagesInARowTheFirstCounts)
{
    EXPECT_EQ(kavo::cutRecordTimes(pageOf("11,11", "22,22") + pageOf("33,33", "44,44"))[54], "22,22");
}

TEST(RecordsPage, TotalCarriesHundredthsAndSecondsAndHasUnboundedMinutes)
{
    // 27 * 59,99 + 27 * 1:00,01 = 27 * 2 minutes.
    const auto even = kavo::worldRecords(kavo::cutRecordTimes(pageOf("59,99", "1:00,01")));
    EXPECT_EQ(even[kavo::kTotalsRow], "54:00:00");
    // 54 * 1:30,50 = 54 * 90.5 s = 4887 s.
    const auto odd = kavo::worldRecords(kavo::cutRecordTimes(pageOf("1:30,50", "1:30,50")));
    EXPECT_EQ(odd[kavo::kTotalsRow], "81:27:00");
}

TEST(RecordsPage, TotalOfAHundredMinutesIsCarriedOnFromItsFirstTwoDigits)
{
    // 50 * 2:00,00 = 100:00:00. The next addition reads 10 minutes and, from ":0", 0 seconds: 12:00:00.
    // Three more follow: 18:00:00.
    const auto records = kavo::worldRecords(kavo::cutRecordTimes(pageOf("2:00,00", "2:00,00")));
    EXPECT_EQ(records[kavo::kTotalsRow], "18:00:00");
}

TEST(RecordsPage, EachRecordIsJoinedWithItsFixedTargets)
{
    const auto records = kavo::worldRecords(kavo::cutRecordTimes(pageOf("10,00", "20,00")));
    const std::string content = kavo::joinTargets(records, fixedTargets());
    EXPECT_TRUE(content.starts_with("00:10:00,fixed 1,x\r\n00:10:00,fixed 2,x\r\n")) << content;
    // 27 * 10 s + 27 * 20 s = 810 s.
    EXPECT_TRUE(content.ends_with("00:20:00,fixed 54,x\r\n13:30:00,fixed 55,x\r\n")) << content;
}

TEST(RecordsPage, FixedTargetsMayEndWithoutALineEndAndHaveBareLineFeeds)
{
    std::string fixed;
    for (int i = 1; i <= 55; ++i) fixed += (i == 1 ? "a,b,c,d" : "\na,b,c,d");
    EXPECT_TRUE(kavo::joinTargets({}, fixed).ends_with(",a,b,c,d\r\n"));
}

TEST(RecordsPage, MissingFixedTargetsAreAnError)
{
    try {
        static_cast<void>(kavo::joinTargets({}, fixedTargets(54)));
        FAIL() << "no error";
    } catch (const kavo::RunTimeError& error) {
        EXPECT_EQ(error.failure(), kavo::Failure::InputPastEnd);
    }
}

TEST(RecordsPage, SamplePageGivesTheExpectedTargets)
{
    const TemporaryFolder folder;
    folder.write("targets_old.txt", sampleFile("data/targets_old.txt"));
    const auto times = kavo::cutRecordTimes(sampleFile("tests/data/records_page.html"));
    kavo::rewriteTargets(folder.path(), kavo::worldRecords(times));
    EXPECT_EQ(folder.read("targets.txt"), sampleFile("tests/data/records_page_targets.txt"));
    EXPECT_FALSE(folder.has("targets.bak"));
}

TEST(RewriteTargets, FormerTargetsAreKept)
{
    const TemporaryFolder folder;
    folder.write("targets_old.txt", fixedTargets());
    folder.write("targets.txt", targetsText());
    folder.write("targets.bak", "older\r\n");
    kavo::rewriteTargets(folder.path(), {});
    EXPECT_EQ(folder.read("targets.bak"), targetsText());
    EXPECT_TRUE(folder.read("targets.txt").starts_with(",fixed 1,x\r\n"));
    kavo::rewriteTargets(folder.path(), {});
    EXPECT_EQ(folder.read("targets.bak"), targetsText()) << "the same page once more must not lose the good targets";
}

TEST(RewriteTargets, AnotherBadPageDoesNotPushGoodTargetsOutOfTheBackup)
{
    const TemporaryFolder folder;
    folder.write("targets_old.txt", sampleFile("data/targets_old.txt"));
    folder.write("targets.txt", targetsText());
    // A page without a marker gives its seven characters from the fourteenth on, less "<", ">" and "/".
    const std::vector<std::pair<const char*, std::string>> pages = {
        {"", ""}, {"<html>Not found</html>", "00:ndhtm"}, {"align=\"right\">maintenance until tomorrow", "0mainten"}};
    for (const auto& [page, first] : pages) {
        kavo::rewriteTargets(folder.path(), kavo::worldRecords(kavo::cutRecordTimes(page)));
        EXPECT_EQ(folder.read("targets.bak"), targetsText()) << page;
        const std::string targets = folder.read("targets.txt");
        EXPECT_EQ(targets.substr(0, targets.find("\r\n")), first + ",00:15:23,00:16:64,00:19:97,00:23:87") << page;
    }
}

TEST(RewriteTargets, TargetsOfAnyKindAreKeptWhereThereIsNoBackup)
{
    const TemporaryFolder folder;
    folder.write("targets_old.txt", fixedTargets());
    folder.write("targets.txt", "of my own\r\n");
    kavo::rewriteTargets(folder.path(), {});
    EXPECT_EQ(folder.read("targets.bak"), "of my own\r\n");
    folder.write("targets.txt", "");
    std::filesystem::remove(folder / "targets.bak");
    kavo::rewriteTargets(folder.path(), {});
    EXPECT_FALSE(folder.has("targets.bak")) << "there was nothing to keep";
}

TEST(RewriteTargets, FileNamesMatchWithoutRegardToCase)
{
    const TemporaryFolder folder;
    folder.write("Targets_Old.TXT", fixedTargets());
    folder.write("TARGETS.txt", targetsText());
    folder.write("Targets.BAK", "older\r\n");
    kavo::rewriteTargets(folder.path(), {});
    EXPECT_TRUE(folder.read("TARGETS.txt").starts_with(",fixed 1,x\r\n"));
    EXPECT_EQ(folder.read("Targets.BAK"), targetsText());
    EXPECT_FALSE(folder.has("targets.txt"));
    EXPECT_FALSE(folder.has("targets.bak"));
}

TEST(RewriteTargets, MissingOrShortFixedTargetsLeaveEverythingAsItWas)
{
    for (const bool isMissing : {true, false}) {
        const TemporaryFolder folder;
        if (!isMissing) folder.write("targets_old.txt", fixedTargets(54));
        folder.write("targets.txt", "good\r\n");
        try {
            kavo::rewriteTargets(folder.path(), {});
            FAIL() << "no error";
        } catch (const kavo::RunTimeError& error) {
            EXPECT_EQ(error.failure(), isMissing ? kavo::Failure::FileNotFound : kavo::Failure::InputPastEnd);
            EXPECT_TRUE(std::string(error.what()).ends_with("targets_old.txt")) << error.what();
        }
        EXPECT_EQ(folder.read("targets.txt"), "good\r\n");
        EXPECT_FALSE(folder.has("targets.bak"));
    }
}

TEST(RewriteTargets, WithoutABackupNothingIsReplaced)
{
    const TemporaryFolder folder;
    folder.write("targets_old.txt", fixedTargets());
    folder.write("targets.txt", "good\r\n");
    fs::create_directory(folder / "targets.bak");
    EXPECT_THROW(kavo::rewriteTargets(folder.path(), {}), kavo::RunTimeError);
    EXPECT_EQ(folder.read("targets.txt"), "good\r\n");
}

TEST(RewriteTargets, TargetsThatCannotBeReplacedKeepTheFormerBackup)
{
    const TemporaryFolder folder;
    folder.write("targets_old.txt", fixedTargets());
    folder.write("targets.bak", "older\r\n");
    fs::create_directory(folder / "targets.txt");
    EXPECT_THROW(kavo::rewriteTargets(folder.path(), {}), kavo::RunTimeError);
    EXPECT_EQ(folder.read("targets.bak"), "older\r\n");
}

#ifndef _WIN32

TEST(RewriteTargets, NoRoomForOneOfTheTwoLeavesBothAsTheyWere)
{
    // 55 lines of ",fixed NN,x" are less than a kilobyte. The former targets are larger, and then smaller.
    for (const std::string& former : {targetsText() + std::string(5000, ' '), targetsText()}) {
        const TemporaryFolder folder;
        folder.write("targets_old.txt", fixedTargets());
        folder.write("targets.txt", former);
        folder.write("targets.bak", "older\r\n");
        {
            const kavo::test::SmallDisk disk(former.size() > 5000 ? 2000 : 100);
            EXPECT_THROW(kavo::rewriteTargets(folder.path(), {}), kavo::RunTimeError);
        }
        EXPECT_EQ(folder.read("targets.txt"), former);
        EXPECT_EQ(folder.read("targets.bak"), "older\r\n");
        EXPECT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 3);
    }
}

TEST(RewriteTargets, TargetsThatCannotBeReadAreNotReplaced)
{
    const TemporaryFolder folder;
    folder.write("targets_old.txt", fixedTargets());
    folder.write("targets.txt", targetsText());
    fs::permissions(folder / "targets.txt", fs::perms{0200});
    fs::permissions(folder.path(), fs::perms{0777});
    EXPECT_EQ(
        kavo::test::asStranger([&] { return kavo::test::errorOf([&] { kavo::rewriteTargets(folder.path(), {}); }); }),
        "Path/File access error: targets.txt");
    EXPECT_EQ(folder.read("targets.txt"), targetsText());
    EXPECT_FALSE(folder.has("targets.bak"));
}

#endif

TEST(RecordsPage, HoldsAllTimesWhenItGoesOnBehindTheLastOne)
{
    const std::string page = pageOf("12,34", "1:23,45");
    EXPECT_TRUE(kavo::holdsAllTimes(page));
    const auto lastTime = page.rfind("1:23,45");
    EXPECT_TRUE(kavo::holdsAllTimes(page.substr(0, lastTime + 8)));
    EXPECT_FALSE(kavo::holdsAllTimes(page.substr(0, lastTime + 7)));
    EXPECT_FALSE(kavo::holdsAllTimes(page.substr(0, page.rfind("align"))));
    EXPECT_FALSE(kavo::holdsAllTimes(""));
    EXPECT_TRUE(kavo::holdsAllTimes(sampleFile("tests/data/records_page.html")));
}

TEST(RecordsPageAddress, IsMadeOfHostPathAndQuery)
{
    EXPECT_EQ(kavo::recordsPageAddress(""), "http://records.example.com/records_kavo_wrs.php?mode=text");
    EXPECT_EQ(kavo::recordsPageAddress("  "), "http://records.example.com/records_kavo_wrs.php?mode=text");
    EXPECT_EQ(kavo::recordsPageAddress("127.0.0.1:8080"), "http://127.0.0.1:8080/records_kavo_wrs.php?mode=text");
    EXPECT_EQ(kavo::recordsPageAddress("club.example"), "http://club.example/records_kavo_wrs.php?mode=text");
    EXPECT_EQ(kavo::recordsPageAddress("https://club.example/wr/"),
              "https://club.example/wr/records_kavo_wrs.php?mode=text");
    EXPECT_EQ(kavo::recordsPageAddress("HTTP://club.example"), "HTTP://club.example/records_kavo_wrs.php?mode=text");
}
