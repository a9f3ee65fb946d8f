// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/shown_text.h"

#include <gtest/gtest.h>

#include <vector>

namespace kavo {

namespace {

std::string shown(const char* codePage, std::string_view bytes)
{
    return toUtf8(bytes, findCodePage(codePage).value());
}

std::vector<std::string> charactersOf(const char* codePage, std::string_view bytes)
{
    std::vector<std::string> all;
    for (ShownCharacters characters(bytes, findCodePage(codePage).value()); !characters.atEnd();)
        all.emplace_back(characters.next());
    return all;
}

TEST(ToUtf8, ShowsOtherBytesAsWindows1252)
{
    EXPECT_EQ(toUtf8("Жанна"), "Жанна");
    EXPECT_EQ(toUtf8("J\xFCrgen"), "Jürgen");
    EXPECT_EQ(toUtf8("\x80\x9F\x81"), "€Ÿ\xC2\x81");
    EXPECT_EQ(toUtf8("\xFF"), "ÿ");
    EXPECT_EQ(toUtf8(""), "");
}

TEST(ToUtf8, ShowsThemInAnotherCodePage)
{
    EXPECT_EQ(shown("1251", "Kavo Timing  User: \xC6\xE0\xED\xED\xE0!"), "Kavo Timing  User: Жанна!");
    EXPECT_EQ(shown("1251", "Жанна \xC6\xE0\xED\xED\xE0"), "Жанна Жанна");
    for (const char* utf8 : {"Жанна", "日本 🏁", "Kavo Timing", ""}) EXPECT_EQ(shown("1251", utf8), utf8);
}

// D4 B8 and CF B8 are UTF-8, too, for a letter of Armenian and one of Greek.
TEST(ToUtf8, DecidesWordByWordWhatIsUtf8)
{
    EXPECT_EQ(shown("1251", "\xD4\xB8\xE4\xEE\xF0"), "Фёдор");
    EXPECT_EQ(shown("1251", "\xCF\xB8\xF2\xF0/Пётр"), "Пётр/Пётр");
}

TEST(ToUtf8, MixesUtf8AndWindows1252InAWord)
{
    EXPECT_EQ(shown("1252", "\xC3\xBC\xFC\xC3\xBC"), "üüü");
}

TEST(ShownCharacters, AreThoseThatAreShown)
{
    using Texts = std::vector<std::string>;
    EXPECT_EQ(charactersOf("1252", "aж\xFC"), (Texts{"a", "ж", "\xFC"}));
    EXPECT_EQ(charactersOf("1251", "aж b"), (Texts{"a", "ж", " ", "b"}));
    EXPECT_EQ(charactersOf("1251", "\xD4\xB8\xE4 \xD4\xB8"), (Texts{"\xD4", "\xB8", "\xE4", " ", "\xD4\xB8"}));
    EXPECT_EQ(charactersOf("1251", ""), Texts());
}

}  // namespace

}  // namespace kavo
