// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/write_protection.h"

#include "tests/support/program_folder_fixture.h"
#include "tests/support/trouble.h"

#include <gtest/gtest.h>

namespace fs = std::filesystem;

namespace kavo {
namespace {

using test::TemporaryFolder;

TEST(WriteProtection, IsNoneOfWhatIsOnesOwn)
{
    const TemporaryFolder folder;
    folder.write("file", "");
    EXPECT_FALSE(writeProtection(folder / "file"));
    EXPECT_FALSE(writeProtection(folder.path()));
}

#ifndef _WIN32

TEST(WriteProtection, OfWhatIsNotThereIsThatItIsMissing)
{
    const TemporaryFolder folder;
    EXPECT_EQ(writeProtection(folder / "none"), std::errc::no_such_file_or_directory);
    folder.write("file", "");
    EXPECT_EQ(writeProtection(folder / "file/inner"), std::errc::not_a_directory);
}

TEST(WriteProtection, OfAnotherUsersFilesFollowsTheirPermissions)
{
    const TemporaryFolder folder;
    fs::permissions(folder.path(), fs::perms{0777});
    const auto protectionOf = [&folder](const char* name, unsigned permissions) {
        fs::permissions(folder / name, fs::perms{permissions});
        return test::asStranger([&] {
            const std::error_code error = writeProtection(folder / name);
            return error ? error.message() : "none";
        });
    };
    const std::string denied = std::make_error_code(std::errc::permission_denied).message();
    folder.write("file", "");
    EXPECT_EQ(protectionOf("file", 0666), "none");
    EXPECT_EQ(protectionOf("file", 0444), denied);
    fs::create_directory(folder / "folder");
    EXPECT_EQ(protectionOf("folder", 0777), "none");
    EXPECT_EQ(protectionOf("folder", 0555), denied);
    EXPECT_EQ(protectionOf("folder", 0666), denied) << "a file in it cannot be reached";
}

#endif

}  // namespace
}  // namespace kavo
