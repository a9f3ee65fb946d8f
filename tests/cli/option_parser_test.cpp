// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/option_parser.h"

#include <gtest/gtest.h>

namespace kavo {

namespace {

/// An invented command with a value of every type.
struct Sample
{
    bool loud = false;
    std::string file;
    std::optional<std::string> grade;
    std::vector<std::string> places;
    std::vector<std::string> merged;
    int limit = 10;
    double interval = 2;

    std::vector<Option> options()
    {
        return {
            flag("-l,--loud", loud, "louder"),
            option("--grade", {.name = "NAME", .kind = ValueKind::Choice, .choices = {"OK", "World Class"}}, &grade,
                   ""),
            option("--limit", {.name = "N", .kind = ValueKind::Number}, &limit, "").excluding("--loud"),
            option("--interval", {.name = "SECONDS", .kind = ValueKind::Number}, &interval, "").needing("--grade"),
            option("--merge", {.name = "FILE", .kind = ValueKind::File}, &merged, ""),
            argument({.name = "FILE", .kind = ValueKind::File}, &file, ""),
            argument({.name = "PLACE", .kind = ValueKind::File}, &places, ""),
            answer("-h,--help", Answer::Help, ""),
        };
    }
};

Answer parse(Sample& sample, const std::vector<std::string>& arguments)
{
    return parseArguments(sample.options(), arguments, "; see help");
}

std::string errorOf(const std::vector<std::string>& arguments)
{
    Sample sample;
    try {
        static_cast<void>(parse(sample, arguments));
    } catch (const UsageError& error) {
        return error.what();
    }
    return "none";
}

TEST(OptionParser, FillsEveryTypeOfTarget)
{
    Sample sample;
    EXPECT_EQ(parse(sample, {"--grade", "world class", "a.txt", "--limit", "0", "--interval=0.5", "b", "c d"}),
              Answer::None);
    EXPECT_FALSE(sample.loud);
    EXPECT_EQ(sample.grade, "World Class");
    EXPECT_EQ(sample.limit, 0);
    EXPECT_EQ(sample.interval, 0.5);
    EXPECT_EQ(sample.file, "a.txt");
    EXPECT_EQ(sample.places, (std::vector<std::string>{"b", "c d"}));
}

TEST(OptionParser, LeavesWhatIsNotGivenAsItWas)
{
    Sample sample;
    EXPECT_EQ(parse(sample, {"a.txt", "-l"}), Answer::None);
    EXPECT_TRUE(sample.loud);
    EXPECT_EQ(sample.grade, std::nullopt);
    EXPECT_EQ(sample.limit, 10);
    EXPECT_EQ(sample.interval, 2);
    EXPECT_TRUE(sample.places.empty());
}

TEST(OptionParser, TakesWordsAsTheyAre)
{
    Sample sample;
    EXPECT_EQ(parse(sample, {"-", "[x,y]", "a,b", "\"q\"", "--merge=[x,y]", "--limit", "1", "--", "-l", "--grade"}),
              Answer::None);
    EXPECT_EQ(sample.file, "-");
    EXPECT_EQ(sample.merged, (std::vector<std::string>{"[x,y]"}));
    EXPECT_EQ(sample.places, (std::vector<std::string>{"[x,y]", "a,b", "\"q\"", "-l", "--grade"}));
    EXPECT_FALSE(sample.loud);
}

TEST(OptionParser, ListGoesUpToTheNextOption)
{
    Sample sample;
    EXPECT_EQ(parse(sample, {"a", "--merge", "[b,c]", "c,d", "-", "--grade", "OK", "e"}), Answer::None);
    EXPECT_EQ(sample.merged, (std::vector<std::string>{"[b,c]", "c,d", "-"}));
    EXPECT_EQ(sample.places, (std::vector<std::string>{"e"}));
}

TEST(OptionParser, HelpMissesNothing)
{
    Sample sample;
    EXPECT_EQ(parse(sample, {"--help"}), Answer::Help);
    EXPECT_EQ(parse(sample, {"--unknown", "-h"}), Answer::Help);
}

TEST(OptionParser, SaysWhatIsWrong)
{
    const std::vector<std::pair<std::vector<std::string>, std::string>> cases = {
        {{"a", "--limit", "x"}, "--limit: x is no whole number"},
        {{"a", "--limit", "3.5"}, "--limit: 3.5 is no whole number"},
        {{"a", "--limit", "99999999999"}, "--limit: 99999999999 is no whole number"},
        {{"a", "--grade", "OK", "--interval", "1s"}, "--interval: 1s is no number"},
        {{"a", "--interval", "1"}, "--interval requires --grade; see help"},
        {{"a", "--limit", "1", "--loud"}, "--loud excludes --limit; see help"},
        {{"a", "--grade", "Best"}, "--grade: unknown value Best; there are OK, World Class"},
        {{"a", "--lo"}, "unknown option --lo, did you mean --loud?"},
        {{"--loud"}, "FILE is required; see help"},
        {{"a", "--limit", "[1]"}, "--limit: [1] is no whole number"},
        {{"a", "--limit"}, "--limit needs a value: N; see help"},
        {{"a", "--limit", "1", "--limit", "2"}, "--limit stands there twice; see help"},
        {{"a", "b", ""}, "PLACE: PLACE is empty"},
    };
    for (const auto& [arguments, message] : cases) EXPECT_EQ(errorOf(arguments), message);
}

}  // namespace

}  // namespace kavo
