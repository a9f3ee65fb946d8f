// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/suggestion.h"

#include <gtest/gtest.h>

namespace kavo {

namespace {

using Words = std::vector<std::string_view>;

const Words kWords = {"show", "users", "export-text", "export-html", "update-targets", "World Class"};

TEST(Suggestion, FindsTheWordThatWasMistyped)
{
    for (const auto& [typed, meant] : {std::pair{"shwo", "show"},
                                       {"sho", "show"},
                                       {"shoow", "show"},
                                       {"shaw", "show"},
                                       {"Show", "show"},
                                       {"user", "users"},
                                       {"udpate-targets", "update-targets"},
                                       {"wrold clas", "World Class"},
                                       {"--users", "users"}})
        EXPECT_EQ(nearest(typed, kWords), Words{meant}) << typed;
}

TEST(Suggestion, TakesTheBeginningOfALongerWord)
{
    EXPECT_EQ(nearest("up", kWords), Words{"update-targets"});
    EXPECT_EQ(nearest("export", kWords), (Words{"export-text", "export-html"}));
    EXPECT_EQ(nearest("s", kWords), Words{});
}

TEST(Suggestion, KeepsQuietWhenNothingIsNear)
{
    for (const char* typed : {"", "x", "foo", "help", "frobnicate", "-", "--"})
        EXPECT_EQ(nearest(typed, kWords), Words{}) << typed;
    EXPECT_EQ(nearest(std::string(100'000, 's'), kWords), Words{});
}

TEST(Suggestion, AsksInWords)
{
    EXPECT_EQ(didYouMean("shwo", kWords, "; no"), ", did you mean show?");
    EXPECT_EQ(didYouMean("export-", kWords, "; no"), ", did you mean export-text or export-html?");
    EXPECT_EQ(didYouMean("xyz", kWords, "; no"), "; no");
    EXPECT_EQ(didYouMean("foo", {"OK", "Good"}, "; no"), "; no");
    EXPECT_EQ(didYouMean("bat", {"bar", "baz", "bag"}, ""), ", did you mean bar, baz or bag?");
}

}  // namespace

}  // namespace kavo
