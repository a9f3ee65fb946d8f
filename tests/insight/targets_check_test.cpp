// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/targets_check.h"

#include "base/text.h"
#include "tests/support/finding_text.h"
#include "tests/support/program_folder_fixture.h"

#include <gtest/gtest.h>

namespace kavo {
namespace {

using test::inShort;
using test::targetsText;

const std::string kRecord = "00:10:00,00:20:00,00:30:00,00:40:00,00:50:00\r\n";  // 46 bytes
const std::string kFixed = "00:20:00,00:30:00,00:40:00,00:50:00\r\n";            // 37 bytes

/// 55 records with the one given in the place of one of them (1 to 55).
std::string withRecord(int record, const std::string& line)
{
    std::string text;
    for (int i = 1; i <= 55; ++i) text += i == record ? line + "\r\n" : kRecord;
    return text;
}

TEST(TargetsCheck, FindsNothingInGoodTargets)
{
    EXPECT_EQ(inShort(checkTargets(targetsText())), "");
    EXPECT_EQ(inShort(checkTargets(replaceAll(targetsText(), ":", "."))), "");
    EXPECT_EQ(inShort(checkTargets(replaceAll(targetsText(), ",", "\r\n"))), "");
    EXPECT_EQ(inShort(checkTargets(targetsText(R"("00:10:00" , "00:20:00","00:30:00", 00:40:00 ,"00:50:00")"))), "");
    EXPECT_EQ(inShort(checkTargets(withRecord(55, "48:48:58,50:48:12,55:36:99,64:59:94,182:01:99"))), "");
    EXPECT_EQ(inShort(checkTargets(targetsText() + kRecord)), "");  // a record too many is passed over
}

TEST(TargetsCheck, FindsThatRecordsAreMissing)
{
    std::string text;
    for (int i = 1; i <= 54; ++i) text += kRecord;
    EXPECT_EQ(inShort(checkTargets(text)), "error 55:2484 only 270 times are in it (\"Input past end of file\")");
    EXPECT_EQ(inShort(checkTargets("")), "error 1:0 only 0 times are in it (\"Input past end of file\")");
}

TEST(TargetsCheck, FindsARecordWithFewerOrMoreFields)
{
    EXPECT_EQ(inShort(checkTargets(withRecord(3, "00:10:00,00:20:00,00:30:00,00:40:00"))),
              "error 3:92 record 3 has 4 fields: all times behind it belong to other grades and levels\n"
              "error 56:2521 only 274 times are in it (\"Input past end of file\")");
    EXPECT_EQ(inShort(checkTargets(withRecord(2, "1,2,3,4,5,6"))),
              "error 2:46 record 2 has 6 fields: all times behind it belong to other grades and levels");
}

TEST(TargetsCheck, FindsFieldsThatAreNoTimes)
{
    // What a page without records leaves: the record's field is empty.
    EXPECT_EQ(inShort(checkTargets(withRecord(1, ",00:20:00,00:30:00,00:40:00,00:50:00"))),
              "warning 1:0 \"\" is no time, and nobody's time is compared with it rightly");
    EXPECT_EQ(inShort(checkTargets(withRecord(2, "00:10:00,0:20:00,00:30:00,00-40-00,100:50:00"))),
              "warning 2:46 \"0:20:00\" is no time, and nobody's time is compared with it rightly\n"
              "warning 2:46 \"00-40-00\" is no time, and nobody's time is compared with it rightly\n"
              "warning 2:46 \"100:50:00\" is no time, and nobody's time is compared with it rightly");
}

TEST(TargetsCheck, FindsTimesThatAreNotInTheOrderOfTheGrades)
{
    EXPECT_EQ(inShort(checkTargets(withRecord(2, "00:10:00,00:20:00,00:19:00,00:40:00,00:50:00"))),
              "warning 2:46 the times of level 2 are not in the order of the grades");
    EXPECT_EQ(inShort(checkTargets(withRecord(2, "00:10:00,00:10:00,00.10.00,00:40:00,00:50:00"))), "");
}

TEST(FixedTargetsCheck, FindsWhatWouldEndAnUpdate)
{
    std::string text;
    for (int i = 1; i <= 55; ++i) text += kFixed;
    EXPECT_EQ(inShort(checkFixedTargets(text)), "");
    EXPECT_EQ(inShort(checkFixedTargets(text.substr(37))),
              "warning 55:1998 only 54 lines are in it (\"Input past end of file\")");
    EXPECT_EQ(inShort(checkFixedTargets("00:20:00\r\n" + text.substr(37))),
              "warning 1:0 record 1 has 1 field: all times behind it belong to other grades and levels");
    EXPECT_EQ(inShort(checkFixedTargets("00:20:00,x,00:40:00,00:50:00\r\n" + text.substr(37))),
              "warning 1:0 \"x\" is no time, and nobody's time is compared with it rightly");
}

}  // namespace
}  // namespace kavo
