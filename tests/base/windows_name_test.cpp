// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/windows_name.h"

#include <gtest/gtest.h>

#include <string>

namespace kavo {

namespace {

TEST(WindowsName, IsWhatAFileCanBeCalledThere)
{
    for (const char* name : {"bob", " bob", "bob ", "a.b", ".b", "Жанна", "\xC6\xE0\xED\xED\xE0", "a'b", "con1", "com",
                             "com10", "lpt0", "console", "nullify.txt", "a.con"})
        EXPECT_TRUE(isWindowsName(name)) << name;
}

TEST(WindowsName, IsNoDevice)
{
    for (const char* name : {"CON", "con", "Con.txt", "CON .txt", "con ", "PRN", "AUX", "NUL", "nul.tar.gz", "COM1",
                             "com9.dat", "LPT1", "lpt9 ", "COM¹", "LPT³.x", "CONIN$", "conout$"})
        EXPECT_FALSE(isWindowsName(name)) << name;
}

TEST(WindowsName, IsNotTakenForAnotherOne)
{
    for (const char* name : {"", " ", ".", "..", "...", "a.", "a..", "a. ", "a:b", "a:", ":a"})
        EXPECT_FALSE(isWindowsName(name)) << name;
}

TEST(WindowsName, HasNoCharacterThatNoNameHas)
{
    for (const char c : std::string("<>\"/\\|?*\t\n\x1F"))
        EXPECT_FALSE(isWindowsName(std::string("a") + c + "b")) << static_cast<int>(c);
    EXPECT_FALSE(isWindowsName(std::string_view("a\0b", 3)));
    EXPECT_TRUE(isWindowsName("a\x7F"));
}

TEST(WindowsPath, LeadsFromAFolderOrADriveToAFile)
{
    for (const char* path :
         {"", "stats.txt", R"(game\stats.txt)", "game/stats.txt", R"(..\game\.\stats.txt)", R"(C:\game\stats.txt)",
          "c:/game/stats.txt", R"(C:\)", R"(\game\stats.txt)", R"(\\server\share\stats.txt)", "//server/share/a",
          R"(\\?\C:\game\stats.txt)", R"(a\\b)", R"(folder\)"})
        EXPECT_TRUE(isWindowsPath(path)) << path;
}

TEST(WindowsPath, DoesNotDependOnWhereADriveStands)
{
    for (const char* path : {"C:", "C:x", R"(C:x\y)", R"(C:..\y)", "D:.", R"(a\C:\b)", R"(1:\a)", R"(Ж:\a)"})
        EXPECT_FALSE(isWindowsPath(path)) << path;
}

TEST(WindowsPath, LeadsToNoDeviceAndNoStream)
{
    for (const char* path : {"CON", R"(game\nul)", "C:/com1.txt", R"(\\.\COM1)", "//./pipe/x", R"(\\.\C:\a)", R"(a:b)",
                             R"(C:\a.txt:b)", R"(a.\b)", R"(\\?\C:\con)"})
        EXPECT_FALSE(isWindowsPath(path)) << path;
}

}  // namespace

}  // namespace kavo
