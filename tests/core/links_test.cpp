// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/links.h"

#include "tests/support/program_folder_fixture.h"

#include <gtest/gtest.h>

namespace kavo {

namespace {

using Lines = std::vector<std::string>;

TEST(Links, TwoLinesMakeAPair)
{
    const Links links = parseLinks("https://a.example/\r\nFirst, with a comma\r\nhttps://b.example/\nSecond");
    EXPECT_EQ(links.addresses, Lines({"https://a.example/", "https://b.example/"}));
    EXPECT_EQ(links.descriptions, Lines({"First, with a comma", "Second"}));
    EXPECT_FALSE(links.endsEarly());
}

TEST(Links, OddLineIsReadWithoutItsDescription)
{
    const Links links = parseLinks("https://a.example/\r\nFirst\r\nhttps://b.example/\r\n");
    EXPECT_EQ(links.addresses, Lines({"https://a.example/", "https://b.example/"}));
    EXPECT_EQ(links.descriptions, Lines({"First"}));
    EXPECT_TRUE(links.endsEarly());
}

TEST(Links, EmptyLinesCountAndAnEmptyFileHasNone)
{
    EXPECT_EQ(parseLinks("\r\n\r\n").addresses, Lines({""}));
    EXPECT_EQ(parseLinks("\r\n\r\n").descriptions, Lines({""}));
    EXPECT_TRUE(parseLinks("").addresses.empty());
    EXPECT_FALSE(parseLinks("").endsEarly());
}

TEST(Links, AreReadAsFarAsAnybodyScrolls)
{
    std::string text;
    for (int i = 0; i < 10'001; ++i) text += "https://a.example/\r\nA\r\n";
    const Links links = parseLinks(text);
    EXPECT_EQ(links.addresses.size(), 10'000U);
    EXPECT_FALSE(links.endsEarly());
}

TEST(Links, LieInTheProgramFolder)
{
    const test::TemporaryFolder folder;
    EXPECT_EQ(linksFile(folder.path()), folder / "links.txt");
    folder.write("LINKS.TXT", "");
    EXPECT_TRUE(std::filesystem::equivalent(linksFile(folder.path()), folder / "LINKS.TXT"));
}

}  // namespace

}  // namespace kavo
