// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/file_check.h"

#include "tests/support/finding_text.h"
#include "tests/support/program_folder_fixture.h"
#include "tests/support/trouble.h"

#include <gtest/gtest.h>

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace fs = std::filesystem;

namespace kavo {
namespace {

using test::inShort;

TEST(FileCheck, ReadsAFileThatIsThere)
{
    const test::TemporaryFolder folder;
    folder.write("data.ini", "a\r\n");
    const FileLook look = lookAt(folder / "data.ini", FileUse::Rewritten);
    EXPECT_EQ(look.content, "a\r\n");
    EXPECT_FALSE(look.isMissing);
    EXPECT_EQ(inShort(look.findings), "");
}

TEST(FileCheck, KnowsAMissingFile)
{
    const test::TemporaryFolder folder;
    const FileLook look = lookAt(folder / "data.ini", FileUse::Rewritten);
    EXPECT_TRUE(look.isMissing);
    EXPECT_FALSE(look.content);
    EXPECT_EQ(inShort(look.findings), "");
}

#ifndef _WIN32

TEST(FileCheck, FindsWhatIsNoFile)
{
    const test::TemporaryFolder folder;
    fs::create_directory(folder / "data.ini");
    ASSERT_EQ(::mkfifo((folder / "names.dat").c_str(), 0600), 0);
    fs::create_symlink("nowhere", folder / "view.dat");
    EXPECT_EQ(inShort(lookAt(folder / "data.ini", FileUse::Read).findings),
              "error a folder stands in the place of this file");
    EXPECT_EQ(inShort(lookAt(folder / "names.dat", FileUse::Read).findings),
              "error a pipe or a device stands in the place of this file");
    EXPECT_EQ(inShort(lookAt(folder / "view.dat", FileUse::Read).findings), "error it is a link that leads nowhere");
}

TEST(FileCheck, FollowsALinkToAFile)
{
    const test::TemporaryFolder folder;
    folder.write("real", "content");
    fs::create_symlink("real", folder / "link");
    const FileLook look = lookAt(folder / "link", FileUse::Read);
    EXPECT_EQ(look.content, "content");
    EXPECT_EQ(inShort(look.findings), "");
}

TEST(FileCheck, FindsAnotherFileOfTheSameName)
{
    const test::TemporaryFolder folder;
    folder.write("targets.txt", "a");
    folder.write("Targets.TXT", "b");
    EXPECT_EQ(inShort(lookAt(folder / "targets.txt", FileUse::Read).findings),
              "warning beside it lies Targets.TXT, which has the same name but for capital letters");
}

TEST(FileCheck, DoesNotReadAnEnormousFile)
{
    const test::TemporaryFolder folder;
    folder.enlarge("names.dat");
    const FileLook look = lookAt(folder / "names.dat", FileUse::Read);
    EXPECT_FALSE(look.content);
    EXPECT_EQ(inShort(look.findings), "warning it is too large to be looked at (64 MB and more)");
}

TEST(FileCheck, FindsMissingRights)
{
    const test::TemporaryFolder folder;
    folder.write("secret", "a");
    folder.write("protected", "a");
    fs::permissions(folder / "secret", fs::perms::none);
    fs::permissions(folder / "protected", fs::perms::owner_read | fs::perms::group_read | fs::perms::others_read);
    fs::create_directory(folder / "closed");
    fs::permissions(folder / "closed", fs::perms::all);
    fs::permissions(folder / "closed", fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write,
                    fs::perm_options::remove);
    const std::string found = test::asStranger([&folder] {
        return inShort(lookAt(folder / "secret", FileUse::Read).findings) + "\n" +
               inShort(lookAt(folder / "protected", FileUse::Read).findings) + "\n" +
               inShort(lookAt(folder / "protected", FileUse::Rewritten).findings) + "\n" +
               inShort(checkFolder(folder / "closed"));
    });
    EXPECT_EQ(found,
              "error it cannot be read (\"Path/File access error\")\n"
              "\n"
              "warning it is write-protected, so it cannot be saved\n"
              "warning nothing can be saved in this folder: it is write-protected");
}

#endif

TEST(FolderCheck, FindsAFileInItsPlace)
{
    const test::TemporaryFolder folder;
    folder.write("colors", "");
    EXPECT_EQ(inShort(checkFolder(folder / "colors")), "error a file stands in the place of this folder");
    EXPECT_EQ(inShort(checkFolder(folder / "none")), "");
    EXPECT_EQ(inShort(checkFolder(folder.path())), "");
}

TEST(SpaceCheck, FindsADiskWithoutRoom)
{
    EXPECT_EQ(inShort(checkSpace("/kavo", 1048576)), "");
    EXPECT_EQ(inShort(checkSpace("/kavo", 4095)), "error only 4095 bytes are left on its disk (\"Disk full\")");
}

}  // namespace
}  // namespace kavo
