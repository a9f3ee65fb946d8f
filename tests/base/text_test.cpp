// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/text.h"

#include <gtest/gtest.h>

#include <limits>
#include <utility>
#include <vector>

namespace kavo {

namespace {

TEST(Characters, AreCountedNotBytes)
{
    EXPECT_EQ(countCharacters(""), 0U);
    EXPECT_EQ(countCharacters("Alice"), 5U);
    EXPECT_EQ(countCharacters("Жанна"), 5U);
    EXPECT_EQ(countCharacters("日本"), 2U);
    EXPECT_EQ(countCharacters("🏁x"), 2U);
    EXPECT_EQ(countCharacters("J\xFCrgen"), 6U);
}

TEST(Characters, AreSingleBytesWhereUtf8IsBroken)
{
    const std::vector<std::pair<std::string, std::size_t>> cases = {
        {"\xD0", 1},              // cut off
        {"\xE2\x82", 2},          // cut off after two of three
        {"\x80\x80", 2},          // continuation bytes alone
        {"\xC0\xAF", 2},          // overlong
        {"\xE0\x80\x80", 3},      // overlong
        {"\xED\xA0\x80", 3},      // a surrogate
        {"\xF0\x80\x80\x80", 4},  // overlong
        {"\xF4\x90\x80\x80", 4},  // above U+10FFFF
        {"\xF5\x80\x80\x80", 4},  // no lead byte
        {"\xF4\x8F\xBF\xBF", 1},  // U+10FFFF
        {"\xED\x9F\xBF", 1},      // the last before the surrogates
        {"\xE0\xA0\x80", 1},      // the first of three bytes
    };
    for (const auto& [text, count] : cases) EXPECT_EQ(countCharacters(text), count) << text;
}

TEST(Characters, AreTakenFromBothEnds)
{
    EXPECT_EQ(firstCharacters("Жанна", 2), "Жа");
    EXPECT_EQ(firstCharacters("ab", 5), "ab");
    EXPECT_EQ(lastCharacters("Жанна", 2), "на");
    EXPECT_EQ(lastCharacters("ab", 5), "ab");
    EXPECT_EQ(fromCharacter("Жанна", 3), "нна");
    EXPECT_EQ(fromCharacter("ab", 3), "");
    EXPECT_EQ(fromCharacter("ab", 4), "");
    EXPECT_EQ(characters("01:02:03", 4, 2), "02");
    EXPECT_EQ(characters("01:02:3", 7, 2), "3");
    EXPECT_EQ(characters("", 7, 2), "");
}

TEST(Characters, ArePassedOver)
{
    EXPECT_EQ(advance("Жx", 0, 1), 2U);
    EXPECT_EQ(advance("Жx", 0, 2), 3U);
    EXPECT_EQ(advance("Жx", 0, 3), std::string_view::npos);
    EXPECT_EQ(advance("Жx", 2, 1), 3U);
    EXPECT_EQ(characterLength("Жx", 3), 0U);
}

TEST(CutOrPad, FillsAColumn)
{
    EXPECT_EQ(cutOrPad("Жанна", 7), "Жанна  ");
    EXPECT_EQ(cutOrPad("Жанна", 3), "Жан");
    EXPECT_EQ(cutOrPad("", 2), "  ");
}

TEST(TrimBlanks, RemovesSpacesOnly)
{
    EXPECT_EQ(trimBlanks("  a b  "), "a b");
    EXPECT_EQ(trimBlanks("\ta\t"), "\ta\t");
    EXPECT_EQ(trimBlanks("\xC2\xA0"), "\xC2\xA0");
    EXPECT_EQ(trimBlanks("   "), "");
    EXPECT_EQ(trimBlanks(""), "");
}

TEST(ReplaceAll, GoesFromLeftToRight)
{
    EXPECT_EQ(replaceAll("Level 5, Level 6", "Level ", ""), "5, 6");
    EXPECT_EQ(replaceAll("aaa", "aa", "b"), "ba");
    EXPECT_EQ(replaceAll("a", "a", "aa"), "aa");
    EXPECT_EQ(replaceAll("\r\r\n\n", "\r\n", ""), "\r\n");
    EXPECT_EQ(replaceAll("abc", "", "x"), "abc");
}

TEST(NumberOf, TakesTheLongestNumberInFront)
{
    const std::vector<std::pair<std::string, double>> cases = {
        {"12", 12},       {"  12", 12}, {"05", 5},  {":0", 0},     {"SK", 0},  {"", 0},    {"   ", 0},
        {"8.25pt", 8.25}, {"-3", -3},   {"+3", 3},  {".5", 0.5},   {"5.", 5},  {".", 0},   {"-", 0},
        {"1e2", 100},     {"1e", 1},    {"1e+", 1}, {"1E-1", 0.1}, {"1 2", 1}, {"7,5", 7}, {"0x10", 0},
    };
    for (const auto& [text, number] : cases) EXPECT_EQ(numberOf(text), number) << text;
}

TEST(NumberOf, HoldsWhatIsTooLargeAndDropsWhatIsTooSmall)
{
    constexpr double kLargest = std::numeric_limits<double>::max();
    const std::string zeros(1000, '0');
    const std::string nines(1'000'000, '9');
    const std::vector<std::pair<std::string, double>> cases = {
        {"1e999", kLargest},
        {"-1e400", -kLargest},
        {"1e+400", kLargest},
        {"1e99999999999999999999999", kLargest},
        {"1" + zeros, kLargest},
        {nines, kLargest},
        {"1e-400", 0},
        {"-1e-400", 0},
        {"123.5e-400", 0},
        {"1e-99999999999999999999999", 0},
        {"0." + zeros + "1", 0},
        {"0e99999", 0},
        {"0.000e999999999999", 0},
        {"1" + zeros + "e-1000", 1},
        {"0." + zeros + "1e1001", 1},
        {"." + zeros + "1e1400", kLargest},
        {"1e308", 1e308},
        {"5e-324", std::numeric_limits<double>::denorm_min()},
        {"2.2250738585072011e-308", 2.2250738585072011e-308},
        {"0." + nines, 1},
    };
    for (const auto& [text, number] : cases) EXPECT_EQ(numberOf(text), number) << text.substr(0, 50);
}

TEST(IntegerOf, RoundsHalvesToEven)
{
    EXPECT_EQ(integerOf("2.5"), 2);
    EXPECT_EQ(integerOf("3.5"), 4);
    EXPECT_EQ(integerOf("99999999999"), std::numeric_limits<std::int32_t>::max());
    EXPECT_EQ(integerOf("-99999999999"), std::numeric_limits<std::int32_t>::min());
}

TEST(IsNumeric, LooksAtTheWholeText)
{
    for (const char* text : {"53", " 5", "5 ", "-1", "+1", "1.", "1e5"}) EXPECT_TRUE(isNumeric(text)) << text;
    for (const char* text : {"", "  ", "5x", "yy", "1 2", "-"}) EXPECT_FALSE(isNumeric(text)) << text;
}

TEST(PrintedNumber, HasABlankOnBothSides)
{
    EXPECT_EQ(printedNumber(3), " 3 ");
    EXPECT_EQ(printedNumber(0), " 0 ");
    EXPECT_EQ(printedNumber(-3), "-3 ");
    EXPECT_EQ(printedNumber(8.25), " 8.25 ");
    EXPECT_EQ(decimal(16777215), "16777215");
    EXPECT_EQ(decimal(-59), "-59");
    EXPECT_EQ(decimal(999'999'999'999'999), "999999999999999");
    EXPECT_EQ(decimal(-1e15), "-1000000000000000");
    EXPECT_EQ(decimal(9007199254740994), "9007199254740994");  // the second double behind 2 to the 53rd
    EXPECT_EQ(decimal(-0.0), "0");
    EXPECT_EQ(printedNumber(numberOf("-1e-400")), " 0 ");
    EXPECT_EQ(decimal(std::numeric_limits<double>::max()).size(), 309U);
    EXPECT_EQ(decimal(-std::numeric_limits<double>::denorm_min()).size(), 327U);  // "-0." and 324 digits
}

TEST(FoldCase, LowersLettersOfTheAlphabetsInUse)
{
    EXPECT_EQ(foldCase("CurUser.DAT"), "curuser.dat");
    EXPECT_EQ(foldCase("ЖАННА Ё"), "жанна ё");
    EXPECT_EQ(foldCase("ÄÖÜ×"), "äöü×");
    EXPECT_EQ(foldCase("ŁŻŸČ"), "łżŸč");
    EXPECT_EQ(foldCase("ΑΒΓ"), "αβγ");
    EXPECT_EQ(foldCase("日🏁"), "日🏁");
    EXPECT_EQ(foldCase("\xDC"), "\xDC");
    EXPECT_TRUE(equalIgnoringCase("PLAYER1", "Player1"));
    EXPECT_FALSE(equalIgnoringCase("Player1", "Player2"));
}

TEST(ContainsIgnoringCase, FindsAWord)
{
    EXPECT_TRUE(containsIgnoringCase("The STEPPES", "steppes"));
    EXPECT_TRUE(containsIgnoringCase("steppes", "steppes"));
    EXPECT_FALSE(containsIgnoringCase("stepps", "steppes"));
    EXPECT_FALSE(containsIgnoringCase("", "steppes"));
    EXPECT_TRUE(containsIgnoringCase("steppeststeppessteppe", "steppes"));
    EXPECT_TRUE(containsIgnoringCase("xxxxxpLaYeR", "player"));
    EXPECT_FALSE(containsIgnoringCase("playeplayeplaye[yer", "player"));
    EXPECT_FALSE(containsIgnoringCase(std::string(1000, 'r').append("\xFF\xD0"), "player"));
}

TEST(CodePoint, GoesWithItsBytes)
{
    for (const auto& [bytes, codePoint] : {std::pair{"A", U'A'}, {"ж", U'ж'}, {"日", U'日'}, {"🏁", U'🏁'}}) {
        EXPECT_EQ(codePointOf(bytes), codePoint);
        std::string text = "x";
        appendUtf8(text, codePoint);
        EXPECT_EQ(text, std::string("x") + bytes);
    }
}

}  // namespace

}  // namespace kavo
