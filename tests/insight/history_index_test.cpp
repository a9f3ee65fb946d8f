// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/history_index.h"

#include <gtest/gtest.h>

namespace kavo {
namespace {

constexpr const char* kState = "20261121T104631Z.txt";
constexpr FileMark kMark{6250, 1795257991000000001};

TEST(HistoryIndex, GivesBackWhatALineSays)
{
    const std::string line = HistoryIndex::line(kState, kMark, 0xCBF29CE484222325U);
    EXPECT_EQ(line, "20261121T104631Z.txt 6250 1795257991000000001 cbf29ce484222325\n");
    EXPECT_EQ(HistoryIndex::parse(line).find(kState, kMark), 0xCBF29CE484222325U);
}

TEST(HistoryIndex, HoldsNothingForAFileWithOtherMarks)
{
    const HistoryIndex index = HistoryIndex::parse(HistoryIndex::line(kState, kMark, 1));
    EXPECT_EQ(index.find(kState, {6251, kMark.modified}), std::nullopt);
    EXPECT_EQ(index.find(kState, {kMark.size, kMark.modified + 1}), std::nullopt);
    EXPECT_EQ(index.find("20261121T104632Z.txt", kMark), std::nullopt);
}

TEST(HistoryIndex, TakesTheLastLineOfAState)
{
    const HistoryIndex index =
        HistoryIndex::parse(HistoryIndex::line(kState, kMark, 1) + HistoryIndex::line(kState, kMark, 2));
    EXPECT_EQ(index.find(kState, kMark), 2U);
}

TEST(HistoryIndex, PassesOverWhatIsNoEntry)
{
    const std::string entry = HistoryIndex::line(kState, kMark, 7);
    for (const char* rubbish :
         {"", "\n\n", "rubbish\n", "20261121T104631Z.txt\n", "20261121T104631Z.txt 1 2 3\n",
          "20261121T104631Z.txt 1 2 0000000000000007 \n", "20261121T104631Z.txt -1 2 0000000000000007\n",
          "20261121T104631Z.txt 99999999999999999999999 2 0000000000000007\n", "index 1 2 0000000000000007\n"})
        EXPECT_EQ(HistoryIndex::parse(rubbish + entry).find(kState, kMark), 7U) << rubbish;
}

TEST(HistoryIndex, PassesOverALineWithoutItsEnd)
{
    const std::string entry = HistoryIndex::line(kState, kMark, 7);
    EXPECT_EQ(HistoryIndex::parse(entry.substr(0, entry.size() - 1)).find(kState, kMark), std::nullopt);
}

}  // namespace
}  // namespace kavo
