// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/page/markup.h"

#include <gtest/gtest.h>

namespace kavo {
namespace {

TEST(Escaped, TakesTheMeaningFromCharactersOfMarkup)
{
    EXPECT_EQ(escaped("<script>alert('1' & \"2\")</script>"),
              "&lt;script&gt;alert(&#39;1&#39; &amp; &quot;2&quot;)&lt;/script&gt;");
    EXPECT_EQ(escaped("&amp;"), "&amp;amp;");
    EXPECT_EQ(escaped(""), "");
}

TEST(Escaped, ShowsBytesThatAreNoUtf8)
{
    EXPECT_EQ(escaped("J\xFCrgen Жанна"), "Jürgen Жанна");
}

TEST(Escaped, PutsAReplacementWhereAPageMayNotHoldTheCharacter)
{
    EXPECT_EQ(escaped(std::string_view("a\0b\x1B\x7F\r", 6)), "a\uFFFDb\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(escaped("a\xC2\x85z"), "a\uFFFDz");
    EXPECT_EQ(escaped("a\tb\nc\u00A0"), "a\tb\nc\u00A0");
}

TEST(Markup, ClosesElementsInTheirOrder)
{
    Markup page;
    page.open("p", {{"class", "a\"b"}, {"title", "<"}}).text("1 < 2").element("b", "3").close().line();
    page.empty("meta", {{"charset", "utf-8"}}).empty("rect", {{"width", "1"}});
    EXPECT_EQ(page.written(),
              "<p class=\"a&quot;b\" title=\"&lt;\">1 &lt; 2<b>3</b></p>\n"
              "<meta charset=\"utf-8\"><rect width=\"1\"/>");
}

TEST(Markup, KeepsTheDirectionOfANameToItself)
{
    Markup page;
    page.name("\u202E<x>");
    EXPECT_EQ(page.written(), "<bdi>\u202E&lt;x&gt;</bdi>");
}

}  // namespace
}  // namespace kavo
