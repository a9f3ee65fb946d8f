// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/doctor.h"

#include "base/file_lock.h"
#include "base/text.h"
#include "base/text_file.h"
#include "tests/support/program_folder_fixture.h"
#include "tests/support/trouble.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace fs = std::filesystem;

namespace kavo {
namespace {

using test::statisticsText;

/// A program folder in which everything is right: bob compares his statistics with another file.
class Doctor : public ::testing::Test
{
protected:
    Doctor()
    {
        folder.write("targets.txt", test::targetsText());
        std::string fixed;
        for (int i = 1; i <= 55; ++i) fixed += "00:20:00,00:30:00,00:40:00,00:50:00\r\n";
        folder.write("targets_old.txt", fixed);
        folder.write("history.txt", "Version 2.1\r\n");
        folder.write("links.txt", "http://example.org\r\nAn example\r\n");
        folder.write("templates/plain.ett", "a\r\n%template2%\r\nb\r\n%template3%\r\nc\r\n%template4%\r\nd\r\n");
        folder.write("users.dat", "bob\r\n");
        folder.write("curUser.dat", "bob\r\n");
        folder.write("autolog.dat", " 1 \r\n");
        folder.write("stats.txt", statisticsText());
        folder.write("other.txt", statisticsText({"00:31:00 Alice"}));
        setUp("bob", 2);
    }

    void setUp(const std::string& nick, int method, const std::string& category = "")
    {
        folder.write(nick + "/data.ini",
                     "stats.txt\r\n " + std::to_string(method) + " \r\nother.txt\r\n" + category + "\r\n 8 \r\n");
        folder.write(nick + "/names.dat", "Bob\r\nAlice\r\nTeam\r\n");
        folder.write(nick + "/view.dat", replaceAll(std::string(10, 'x'), "x", " 100 \r\n"));
        folder.write(nick + "/bugs.dat", "Player1\r\n07, 00:19:05\r\nPlayer2\r\n");
        folder.write(nick + "/colors/colors.ini", replaceAll(std::string(9, 'x'), "x", " 255 \r\n"));
    }

    /// Findings as "severity file[:line] what is wrong", the file as seen from the program folder.
    [[nodiscard]] std::string found() const
    {
        std::string text;
        for (const Finding& finding : examine(folder.path())) {
            const std::string file = finding.file.lexically_relative(folder.path()).generic_string();
            text += (text.empty() ? "" : "\n") + std::string(nameOf(finding.severity)) + " " + file +
                    (finding.line > 0 ? ":" + std::to_string(finding.line) : "") + " " + seenFromHere(finding.text);
        }
        return text;
    }

    [[nodiscard]] std::string seenFromHere(const std::string& text) const
    {
        const std::string whole = (folder.path() / "").string();
#ifdef _WIN32
        if (text.find(whole) == std::string::npos) return text;
        return replaceAll(replaceAll(text, whole, ""), "\\", "/");  // its own separator
#else
        return replaceAll(text, whole, "");
#endif
    }

    test::TemporaryFolder folder;
};

TEST_F(Doctor, FindsNothingWhereEverythingIsRight)
{
    EXPECT_EQ(found(), "");
    setUp("bob", 1);
    folder.write("bob/1res.old", statisticsText());
    EXPECT_EQ(found(), "");
    setUp("bob", 3, "World Class");
    EXPECT_EQ(found(), "");
}

TEST_F(Doctor, FindsNothingInTheDemo)
{
    const test::TemporaryFolder demo;
    test::copyDemo(demo);
    for (const Finding& finding : examine(demo.path())) ADD_FAILURE() << describe(finding);
}

TEST_F(Doctor, ChangesNothing)
{
    const auto contents = [this] {
        std::map<std::string, std::string> files;
        for (const auto& entry : fs::recursive_directory_iterator(folder.path()))
            files[entry.path().string()] = entry.is_regular_file() ? readFile(entry.path()) : "folder";
        return files;
    };
    folder.write("bob/colors/colors.ini", " 1 \r\n 2 \r\n 3 \r\n 4 \r\n");
    folder.write("Kurt/data.ini", "");
    const auto before = contents();
    EXPECT_NE(found(), "");
    EXPECT_EQ(contents(), before);
}

TEST_F(Doctor, FindsMissingTargets)
{
    fs::remove(folder / "targets.txt");
    EXPECT_EQ(found(), "error targets.txt it is missing: every level is graded Beginner");
    EXPECT_EQ(examine(folder.path()).front().advice,
              "run \"Update targets\" (Ctrl+R), or copy the file that came with the program");
    folder.write("targets.bak", test::targetsText());
    EXPECT_EQ(examine(folder.path()).front().advice,
              "copy " + (folder / "targets.bak").string() + " to this name, or run \"Update targets\" (Ctrl+R)");
}

TEST_F(Doctor, FindsFaultsInTheSharedFiles)
{
    folder.write("targets.txt", test::targetsText().substr(0, 46 * 54));
    folder.write("targets_old.txt", "00:20:00\r\n");
    folder.write("links.txt", "http://example.org\r\n");
    folder.write("own.ett", "no separators\r\n");
    EXPECT_EQ(found(),
              "error targets.txt:55 only 270 times are in it (\"Input past end of file\")\n"
              "warning targets_old.txt:1 record 1 has 1 field: all times behind it belong to other grades and "
              "levels\n"
              "warning targets_old.txt:2 only 1 lines are in it (\"Input past end of file\")\n"
              "warning links.txt:2 its last address has no line behind it (\"Input past end of file\")\n"
              "error own.ett:2 the line %template2% is missing: the template is loaded only so far");
}

TEST_F(Doctor, FindsMissingSuppliedFiles)
{
    for (const char* name : {"targets_old.txt", "history.txt", "links.txt"}) fs::remove(folder / name);
    EXPECT_EQ(found(),
              "warning targets_old.txt it is missing: an update of the targets ends with \"File not found\"\n"
              "warning history.txt it is missing: the window that shows it reports \"File not found\"\n"
              "warning links.txt it is missing: the window that shows it reports \"File not found\"");
}

TEST_F(Doctor, FindsWhatStandsInThePlaceOfAFile)
{
    fs::remove(folder / "targets.txt");
    fs::create_directory(folder / "targets.txt");
    fs::remove(folder / "bob/names.dat");
    fs::create_directory(folder / "bob/names.dat");
    EXPECT_EQ(found(),
              "error targets.txt a folder stands in the place of this file\n"
              "error bob/names.dat a folder stands in the place of this file");
}

TEST_F(Doctor, FindsAUserWithoutAFolder)
{
    folder.write("users.dat", "bob\r\nKurt\r\n");
    EXPECT_EQ(found(), "warning Kurt the user \"Kurt\" has no folder (\"Path not found\")");
    folder.write("curUser.dat", "Kurt\r\n");
    EXPECT_EQ(found(), "warning Kurt the user \"Kurt\" has no folder (\"Path not found\")");
}

TEST_F(Doctor, FindsNicksThatCannotLogIn)
{
    folder.write("curUser.dat", "../bob\r\n");
    folder.write("users.dat", "bob\r\n12345678901\r\n");
    fs::create_directory(folder / "12345678901");
    EXPECT_EQ(found(),
              "warning users.dat:2 \"12345678901\" cannot log in\n"
              "error curUser.dat:1 \"../bob\" cannot log in");
}

TEST_F(Doctor, NotesThatNobodyHasLoggedIn)
{
    fs::remove(folder / "curUser.dat");
    EXPECT_EQ(found(), "note curUser.dat it is missing: nobody has logged in yet");
}

TEST_F(Doctor, NotesAFolderThatLooksLikeAUsers)
{
    setUp("Kurt", 2);
    EXPECT_EQ(found(), "note users.dat the folder \"Kurt\" looks like a user's, who is not in the list");
}

TEST_F(Doctor, NotesAWindowThatIsOpen)
{
    const FileLock lock(folder / "kavo-timing.lock");
    EXPECT_EQ(found(), "note kavo-timing.lock the window is open on this folder");
}

TEST_F(Doctor, IsNotMisledByALockThatWasLeftBehind)
{
    folder.write("kavo-timing.lock", "12345\n");
    EXPECT_EQ(found(), "");
}

TEST_F(Doctor, FindsFaultsInAUsersFiles)
{
    folder.write("bob/names.dat", "Bob\r\n");
    folder.write("bob/view.dat", "");
    folder.write("bob/bugs.dat", "Player1\r\n00, 00:19:05\r\n");
    folder.write("bob/colors/colors.ini", " 1 \r\n 2 \r\n 3 \r\n 4 \r\n");
    folder.write("bob/colors/night.ini", "dark, very dark\r\n");
    EXPECT_EQ(
        found(),
        "warning bob/names.dat:2 it has 1 name, the others are not changed\n"
        "warning bob/view.dat:1 after 0 numbers it ends or goes on with something else; the rest of the window "
        "keeps its designed layout\n"
        "error bob/bugs.dat:2 \"00, 00:19:05\" is for a level that does not exist (\"Subscript out of range\")\n"
        "error bob/bugs.dat:3 no line \"Player2\" ends the entries of player 1 (\"Input past end of file\")\n"
        "note bob/colors/colors.ini:5 it is of the older kind, without colours for the grades\n"
        "warning bob/colors/night.ini:1 after 0 numbers it ends or goes on with something else; the other colours "
        "are the designed ones");
}

TEST_F(Doctor, FindsAFileInPlaceOfTheColoursFolder)
{
    fs::remove_all(folder / "bob/colors");
    folder.write("bob/colors", "");
    EXPECT_EQ(found(), "error bob/colors a file stands in the place of this folder");
}

TEST_F(Doctor, FindsShortSettings)
{
    folder.write("bob/data.ini", "stats.txt\r\n 2 \r\n");
    EXPECT_EQ(found(), "error bob/data.ini:3 it ends after 2 lines (\"Input past end of file\")");
}

TEST_F(Doctor, FindsThatTheStatisticsFileIsMissing)
{
    fs::remove(folder / "stats.txt");
    EXPECT_EQ(found(), "error bob/data.ini the statistics file stats.txt is not there: the table stays empty");
    fs::remove(folder / "bob/data.ini");
    EXPECT_EQ(found(), "note bob the statistics file stats.txt is not there: the table stays empty");
}

TEST_F(Doctor, FindsThatTheSecondFileIsMissing)
{
    fs::remove(folder / "other.txt");
    EXPECT_EQ(found(),
              "warning bob/data.ini the file compared with, other.txt, is not there: the second column and the "
              "totals row are missing");
    setUp("bob", 1);
    EXPECT_EQ(found(),
              "warning bob/data.ini the file compared with, bob/1res.old, is not there: the second column and "
              "the totals row are missing");
}

TEST_F(Doctor, PreviousResultsOfAWrongFileAreMadeAnew)
{
    setUp("bob", 1);
    folder.write("bob/1res.old", "a picture that was chosen first");
    const Findings findings = examine(folder.path());
    ASSERT_EQ(findings.size(), 1U);
    EXPECT_EQ(findings.front().file.filename(), "1res.old");
    EXPECT_EQ(findings.front().advice,
              "press Clear and then Save in Settings (F2), which keeps today's results in its place");
}

TEST_F(Doctor, FindsFaultsInTheStatisticsOfBothPlayers)
{
    folder.write("stats.txt", replaceAll(statisticsText(), "\r\n", "\n"));
    folder.write("other.txt", replaceAll(statisticsText(), "Steppes", "Prairie"));
    EXPECT_EQ(found(),
              "error stats.txt:1 its lines end with LF alone, so that no level is found\n"
              "error other.txt \"Wrong file!\": the word steppes does not occur in it");
}

TEST_F(Doctor, TellsAFileThatIsComparedWithItselfOnce)
{
    folder.write("bob/data.ini", "stats.txt\r\n 2 \r\nstats.txt\r\n\r\n");
    folder.write("stats.txt", statisticsText({"ab:cd:ef Bob"}));
    EXPECT_EQ(found(), "warning stats.txt:3 \"ab:cd:ef\" is read as the level's time");
}

TEST_F(Doctor, LooksAtEveryUser)
{
    folder.write("users.dat", "bob\r\nKurt\r\nЖанна\r\n");
    setUp("Kurt", 7);
    setUp("Жанна", 3, "Nonsense");
    EXPECT_EQ(found(),
              "warning Kurt/data.ini:2 \" 7 \" is no way of comparing\n"
              "warning Жанна/data.ini:4 \"Nonsense\" is no grade: the second column stays empty");
}

#ifndef _WIN32

TEST_F(Doctor, FindsFoldersThatItMayNotLookInto)
{
    fs::permissions(folder.path(), fs::perms::all);
    fs::permissions(folder / "bob", fs::perms::none);
    const std::string text = test::asStranger([this] { return found(); });
    fs::permissions(folder / "bob", fs::perms::owner_all);
    EXPECT_NE(text.find(" bob "), std::string::npos) << text;
}

TEST_F(Doctor, DoesNotHangOnPipes)
{
    for (const char* name : {"targets.txt", "users.dat", "stats.txt", "bob/data.ini", "bob/colors/colors.ini"}) {
        fs::remove(folder / name);
        ASSERT_EQ(::mkfifo((folder / name).c_str(), 0600), 0);
    }
    const std::string pipe = " a pipe or a device stands in the place of this file";
    EXPECT_EQ(found(), "error targets.txt" + pipe + "\nerror users.dat" + pipe + "\nerror bob/data.ini" + pipe +
                           "\nerror bob/colors/colors.ini" + pipe);
}

#endif

}  // namespace
}  // namespace kavo
