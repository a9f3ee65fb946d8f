// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/targets.h"

#include "base/run_time_error.h"
#include "base/text.h"
#include "tests/support/program_folder_fixture.h"

#include <gtest/gtest.h>

namespace kavo {

namespace {

using test::TemporaryFolder;

std::string records(int count, const std::string& separator)
{
    std::string text;
    for (int i = 1; i <= count; ++i)
        for (const char* grade : {"a", "b", "c", "d", "e"}) text += grade + std::to_string(i) + separator;
    return text;
}

void expectAllRecords(const ResultsState& state)
{
    for (int i = 1; i <= kTotalsRow; ++i) {
        const std::string number = std::to_string(i);
        EXPECT_EQ(state.TargetWR[i], "a" + number);
        EXPECT_EQ(state.TargetWC[i], "b" + number);
        EXPECT_EQ(state.TargetPro[i], "c" + number);
        EXPECT_EQ(state.TargetGood[i], "d" + number);
        EXPECT_EQ(state.TargetOK[i], "e" + number);
    }
}

TEST(Targets, AreReadWhateverSeparatesTheFields)
{
    for (const char* separator : {"\r\n", "\n", ",", " , ", " \r\n "}) {
        ResultsState state;
        parseTargets(records(55, separator), state);
        expectAllRecords(state);
    }
}

TEST(Targets, AreReadFromALinePerRecord)
{
    ResultsState state;
    parseTargets(test::targetsText("1,2,3,4,5"), state);
    EXPECT_EQ(state.TargetWR[1], "1");
    EXPECT_EQ(state.TargetOK[1], "5");
    EXPECT_EQ(state.TargetWR[55], "1");
    EXPECT_EQ(state.TargetGood[55], "4");
}

TEST(Targets, TakeColonsForPoints)
{
    ResultsState state;
    parseTargets(test::targetsText("00.59.50,a.b,.,\"0.1\",123.00.00"), state);
    EXPECT_EQ(state.TargetWR[1], "00:59:50");
    EXPECT_EQ(state.TargetWC[54], "a:b");
    EXPECT_EQ(state.TargetPro[55], ":");
    EXPECT_EQ(state.TargetGood[55], "0:1");
    EXPECT_EQ(state.TargetOK[55], "123:00:00");
}

TEST(Targets, TakeQuotedFieldsWithoutTheQuotes)
{
    ResultsState state;
    parseTargets("\"00:10:00\" , \"1,2\",,\" x \",\"\"\r\n" + records(54, ","), state);
    EXPECT_EQ(state.TargetWR[1], "00:10:00");
    EXPECT_EQ(state.TargetWC[1], "1,2");
    EXPECT_EQ(state.TargetPro[1], "");
    EXPECT_EQ(state.TargetGood[1], " x ");
    EXPECT_EQ(state.TargetOK[1], "");
    EXPECT_EQ(state.TargetWR[2], "a1");
    EXPECT_EQ(state.TargetOK[55], "e54");
}

TEST(Targets, IgnoreAnotherLineAtTheEnd)
{
    ResultsState state;
    parseTargets(records(55, "\r\n") + "x,x,x,x,x\r\n", state);
    expectAllRecords(state);
}

TEST(Targets, NeedNoLineEndAtTheirEnd)
{
    ResultsState state;
    std::string text = records(55, ",");
    text.pop_back();
    parseTargets(text, state);
    expectAllRecords(state);
}

TEST(Targets, FailWhenShort)
{
    ResultsState state;
    state.TargetWR[55] = "before";
    try {
        parseTargets(records(54, "\r\n") + "a55,b55,c55,d55\r\n", state);
        FAIL() << "read 274 fields without an error";
    } catch (const RunTimeError& error) {
        EXPECT_STREQ(error.what(), "Input past end of file");
    }
    EXPECT_EQ(state.TargetOK[54], "e54");
    EXPECT_EQ(state.TargetWR[55], "a55");
    EXPECT_EQ(state.TargetOK[55], "");
    EXPECT_THROW(parseTargets("", state), RunTimeError);
}

TEST(LoadTargets, KeepsTheTargetsWhenTheFileIsMissing)
{
    const TemporaryFolder folder;
    ResultsState state;
    state.TargetGood[7] = "00:12:34";
    EXPECT_FALSE(LoadTargets(folder.path(), state));
    EXPECT_EQ(state.TargetGood[7], "00:12:34");
}

TEST(LoadTargets, FindsTheFileInAnyCase)
{
    const TemporaryFolder folder;
    folder.write("Targets.TXT", test::targetsText("1,2,3,4,5"));
    ResultsState state;
    EXPECT_TRUE(LoadTargets(folder.path(), state));
    EXPECT_EQ(state.TargetGood[7], "4");
}

TEST(LoadTargets, NamesTheFileThatIsTooShort)
{
    const TemporaryFolder folder;
    folder.write("targets.txt", "1,2,3\r\n");
    ResultsState state;
    try {
        static_cast<void>(LoadTargets(folder.path(), state));
        FAIL() << "read three fields without an error";
    } catch (const RunTimeError& error) {
        EXPECT_STREQ(error.what(), "Input past end of file: targets.txt");
    }
}

/// 55 records with one of them replaced.
std::string targetsWith(int record, const std::string& replacement)
{
    std::string text;
    for (int i = 1; i <= kTotalsRow; ++i)
        text += (i == record ? replacement : "00:10:00,00:20:00,00:30:00,00:40:00,00:50:00") + "\r\n";
    return text;
}

TEST(AllTargets, AreThereInEveryFormThatPlayersHave)
{
    EXPECT_TRUE(holdsAllTargets(targetsWith(0, "")));
    for (const char* record :
         {"00.10.00,00.20.00,00.30.00,00.40.00,00.50.00", "\"00:10:00\", \"00:20:00\" ,00:30:00,00:40:00,00:50:00",
          "0:10:00,0:20:00,0:30:00,0:40:00,0:50:00", "123:00:00,130:00:00,140:00:00,150:00:00,160:00:00",
          "1:15:12:34,1:1:02:03,2:0:00:00,2:30:00:00,3:00:00:00", "00:10:00,,,,", "00:10:00,00:20:00,,,00:50:00",
          "00:10:00\n00:20:00\n00:30:00\n00:40:00\n00:50:00", "09:08:07,16:25:34,43:52:61,70:89:98,99:59:99"})
        for (const int at : {1, 54, 55})
            EXPECT_TRUE(holdsAllTargets(targetsWith(at, record))) << record << " at " << at;
    std::string oneALine = replaceAll(targetsWith(0, ""), ",", "\n");
    EXPECT_TRUE(holdsAllTargets(oneALine));
    EXPECT_TRUE(holdsAllTargets(oneALine.substr(0, oneALine.size() - 2) + "\r\na 56th line\r\n"));
}

TEST(AllTargets, AreNotThereWhenOneOfThemIsNoTime)
{
    const std::string others = ",00:20:00,00:30:00,00:40:00,00:50:00";
    for (const char* time : {"", "<html>", "0-", "SKIPPED", "012:34:5", "12:34", "00:1:00", "00:10:0", ":10:00",
                             "-0:10:00", "00:10:00x", "00::10:00", "1:2:3:10:00", "1:00:10:", "00;10;00"})
        for (const int at : {1, 54, 55}) EXPECT_FALSE(holdsAllTargets(targetsWith(at, time + others))) << time;
    EXPECT_FALSE(holdsAllTargets(targetsWith(7, "00:10:00,00:20:00,x,00:40:00,00:50:00")));
    EXPECT_FALSE(holdsAllTargets(""));
    const std::string all = targetsWith(0, "");
    EXPECT_FALSE(holdsAllTargets(all.substr(0, all.rfind(','))));
}

}  // namespace

}  // namespace kavo
