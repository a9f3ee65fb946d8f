// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/code_page.h"

#include "base/shown_text.h"

#include <gtest/gtest.h>

namespace kavo {

namespace {

std::string shown(const char* codePage, std::string_view bytes)
{
    return toUtf8(bytes, findCodePage(codePage).value());
}

TEST(CodePage, ShowsTextsOfEachAlphabet)
{
    EXPECT_EQ(shown("1250", "\xA3\xF3\x64\x9F"), "Łódź");
    EXPECT_EQ(shown("1251", "\xC6\xE0\xED\xED\xE0"), "Жанна");
    EXPECT_EQ(shown("1252", "J\xFCrgen \x80"), "Jürgen €");
    EXPECT_EQ(shown("1253", "\xCD\xDF\xEA\xEF\xF2"), "Νίκος");
    EXPECT_EQ(shown("1254", "\xDE\xFD\xF0"), "Şığ");
    EXPECT_EQ(shown("1255", "\xE3\xE5\xE3"), "דוד");
    EXPECT_EQ(shown("1256", "\xC7\xE1"), "ال");
    EXPECT_EQ(shown("1257", "\xD0\xE0\xFB"), "Šąū");
    EXPECT_EQ(shown("1258", "\xD0\xF5"), "Đơ");
    EXPECT_EQ(shown("437", "J\x81rgen"), "Jürgen");
    EXPECT_EQ(shown("850", "J\x81rgen"), "Jürgen");
    EXPECT_EQ(shown("852", "\x9D\xA2\x64\xAB"), "Łódź");
    EXPECT_EQ(shown("866", "\x86\xA0\xAD\xAD\xA0"), "Жанна");
    EXPECT_EQ(shown("koi8-r", "\xF6\xC1\xCE\xCE\xC1"), "Жанна");
    EXPECT_EQ(shown("koi8-u", "\xA4\xA7"), "єї");
    EXPECT_EQ(shown("iso-8859-2", "\xA3\xF3\x64\xBC"), "Łódź");
    EXPECT_EQ(shown("iso-8859-5", "\xB6\xD0\xDD\xDD\xD0"), "Жанна");
}

TEST(CodePage, IsFoundWithAPrefixAndInAnyCase)
{
    for (const char* name : {"1251", "cp1251", "CP1251", "windows-1251", "Windows-1251"}) {
        ASSERT_TRUE(findCodePage(name)) << name;
        EXPECT_EQ(findCodePage(name)->name(), "1251");
        EXPECT_EQ(findCodePage(name)->character(0xC6), U'Ж');
    }
    EXPECT_EQ(findCodePage("KOI8-R").value().name(), "koi8-r");
    EXPECT_EQ(findCodePage("ISO-8859-5").value().name(), "iso-8859-5");
    EXPECT_EQ(findCodePage("cp866").value().name(), "866");
}

TEST(CodePage, IsNotFoundByAnyOtherName)
{
    for (const char* name : {"", "cp", "windows-", "1259", "12510", "932", "cp936", "utf-8", "65001", "cpkoi8-r",
                             "windows-koi8-r", "1251 ", "125", "ebcdic", "-1251", "01251"})
        EXPECT_FALSE(findCodePage(name)) << name;
}

TEST(CodePage, HasAsciiAndACharacterForEachByte)
{
    for (const std::string_view name : codePageNames()) {
        const auto codePage = findCodePage(name);
        if (!codePage) continue;  // not every system has each of them
        EXPECT_EQ(codePage->name(), name);
        for (unsigned byte = 0; byte < 0x80; ++byte) EXPECT_EQ(codePage->character(byte), byte) << name;
        for (unsigned byte = 0x80; byte <= 0xFF; ++byte) EXPECT_GE(codePage->character(byte), 0x80U) << name;
    }
}

TEST(CodePage, KeepsAnUnassignedByteAsItsOwnValue)
{
    for (const unsigned byte : {0x81U, 0x8DU, 0x8FU, 0x90U, 0x9DU}) EXPECT_EQ(windows1252().character(byte), byte);
    EXPECT_EQ(findCodePage("1251").value().character(0x98), 0x98U);
    EXPECT_EQ(findCodePage("1253").value().character(0xAA), 0xAAU);
    EXPECT_EQ(findCodePage("iso-8859-7").value().character(0xFF), 0xFFU);
}

// Under the mark of a vowel, and a letter that one may follow.
TEST(CodePage, HasMarksAndTheirLettersApart)
{
    EXPECT_EQ(findCodePage("1255").value().character(0xC0), 0x05B0U);
    EXPECT_EQ(findCodePage("1255").value().character(0xE0), 0x05D0U);
    EXPECT_EQ(findCodePage("1258").value().character(0xCC), 0x0300U);
    EXPECT_EQ(findCodePage("1258").value().character(0xE2), 0x00E2U);
}

TEST(CodePage, OfASystemElsewhereIsWindows1252)
{
#ifdef _WIN32
    EXPECT_NE(systemCodePage().name(), "");
#else
    EXPECT_EQ(systemCodePage().name(), "1252");
#endif
}

TEST(CodePage, OfAnOptionIsChosenOrRefused)
{
    EXPECT_EQ(chosenCodePage("cp1251").name(), "1251");
    EXPECT_EQ(chosenCodePage("1252").name(), "1252");
    try {
        static_cast<void>(chosenCodePage("1259"));
        FAIL();
    } catch (const UnknownCodePage& error) {
        const std::string text = error.what();
        EXPECT_TRUE(text.starts_with("--code-page: unknown code page 1259; there are 1250, 1251, ")) << text;
        EXPECT_TRUE(text.ends_with(", iso-8859-16")) << text;
    }
    EXPECT_THROW(static_cast<void>(chosenCodePage("")), UnknownCodePage);
}

TEST(CodePageInForce, LastsAsLongAsItLives)
{
    EXPECT_EQ(codePageInForce().name(), "1252");
    EXPECT_EQ(toUtf8("\xC6"), "Æ");
    {
        const CodePageInForce cyrillic(findCodePage("1251").value());
        EXPECT_EQ(codePageInForce().name(), "1251");
        EXPECT_EQ(toUtf8("\xC6"), "Ж");
    }
    EXPECT_EQ(toUtf8("\xC6"), "Æ");
}

TEST(CodePageInForce, CannotBeChangedByAnother)
{
    const CodePageInForce cyrillic(findCodePage("1251").value());
    EXPECT_THROW(CodePageInForce{windows1252()}, std::logic_error);
    EXPECT_EQ(toUtf8("\xC6"), "Ж");
}

}  // namespace

}  // namespace kavo
