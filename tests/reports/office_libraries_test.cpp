// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/libreoffice/office_libraries.h"

#include "tests/support/program_folder_fixture.h"

#include <gtest/gtest.h>

namespace kavo {
namespace {

namespace fs = std::filesystem;

/// Two offices with a start program each, and a folder of links as systems have it.
class OfficeFolders : public testing::Test
{
protected:
    OfficeFolders()
    {
        for (const char* program : {"usr/lib/libreoffice/program/soffice", "opt/libreoffice24.2/program/soffice"})
            folder.write(program, "#!/bin/sh\r\n");
        for (const char* links : {"bin", "newer bin"}) fs::create_directories(folder / links);
        fs::create_symlink("../usr/lib/libreoffice/program/soffice", folder / "bin/soffice");
        fs::create_symlink(folder / "opt/libreoffice24.2/program/soffice", folder / "newer bin/libreoffice");
    }

    [[nodiscard]] fs::path in(const char* name) const { return fs::canonical(folder.path()) / name; }

    test::TemporaryFolder folder;
};

TEST_F(OfficeFolders, AreThoseThatStartProgramsOnTheSearchPathLinkTo)
{
    const std::string searchPath = in("empty").string() + ":" + in("newer bin").string() + ":" + in("bin").string();
    EXPECT_EQ(officeFoldersOn(searchPath),
              (std::vector<fs::path>{in("opt/libreoffice24.2/program"), in("usr/lib/libreoffice/program")}));
    EXPECT_EQ(officeFoldersOn(in("usr/lib/libreoffice/program").string()),
              std::vector<fs::path>{in("usr/lib/libreoffice/program")});
}

TEST_F(OfficeFolders, AreNeverTakenFromAFolderThatDependsOnWhereTheProgramWasStarted)
{
    const fs::path before = fs::current_path();
    fs::current_path(folder.path());
    EXPECT_TRUE(officeFoldersOn("bin::.:").empty());
    EXPECT_TRUE(officeFoldersOn("").empty());
    fs::current_path(before);
}

TEST_F(OfficeFolders, LinksThatLeadNowhereAreNone)
{
    fs::remove_all(folder / "usr");
    EXPECT_TRUE(officeFoldersOn(in("bin").string()).empty());
}

}  // namespace
}  // namespace kavo
