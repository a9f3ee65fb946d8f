// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/sheet_draft.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <stop_token>

namespace kavo {
namespace {

using Texts = std::vector<std::string>;

constexpr Colour kRed = rgb(255, 0, 0);

constexpr CellRange kA1 = {1, 1, 1, 1};

/// "B3:B5 C5".
std::string addressesOf(const std::vector<CellRange>& ranges)
{
    std::string text;
    for (const CellRange& range : ranges) text.append(text.empty() ? "" : " ").append(rangeAddress(range));
    return text;
}

/// "B3:B5 C5: 255 bold", one a line.
Texts marksOf(const SheetDraft& draft)
{
    Texts marks;
    for (const SheetDraft::MarkedCells& marked : draft.markedCells()) {
        std::string text = addressesOf(marked.ranges) + ":";
        if (marked.font.colour) text += " " + std::to_string(*marked.font.colour);
        if (marked.font.bold) text += *marked.font.bold ? " bold" : " thin";
        marks.push_back(text);
    }
    return marks;
}

TEST(CellAddress, HasTheColumnsLetter)
{
    EXPECT_EQ(cellAddress(1, 1), "A1");
    EXPECT_EQ(cellAddress(66, 8), "H66");
}

TEST(RangeAddress, NamesBothCornersOfMoreThanOneCell)
{
    EXPECT_EQ(rangeAddress(kA1), "A1");
    EXPECT_EQ(rangeAddress({3, 2, 9, 2}), "B3:B9");
    EXPECT_EQ(rangeAddress({3, 2, 3, 5}), "B3:E3");
}

TEST(SheetDraft, KeepsWhatWasWrittenLast)
{
    SheetDraft draft;
    draft.setValue(1, 1, PlainText{"gone"});
    draft.setValue(1, 1, PlainText{"=1+1"});
    draft.setValue(3, 2, TypedText{"01:23,45"});
    draft.setValue(2, 5, 7);
    EXPECT_EQ(draft.size(), SheetDraft::Place(3, 5));
    ASSERT_EQ(draft.entries().size(), 3U);
    EXPECT_EQ(draft.entries().at({1, 1}).value, DraftValue("=1+1"));
    EXPECT_FALSE(draft.entries().at({1, 1}).isTyped);
    EXPECT_EQ(draft.entries().at({3, 2}).value, DraftValue("01:23,45"));
    EXPECT_TRUE(draft.entries().at({3, 2}).isTyped);
    EXPECT_EQ(draft.entries().at({2, 5}).value, DraftValue(7));
}

TEST(SheetDraft, IsEmptyAtFirst)
{
    EXPECT_EQ(SheetDraft().size(), SheetDraft::Place(0, 0));
    EXPECT_EQ(marksOf(SheetDraft()), Texts());
    EXPECT_EQ(addressesOf(SheetDraft().filledRanges()), "");
    EXPECT_EQ(addressesOf(SheetDraft().typedRanges()), "");
}

TEST(SheetDraft, FillsRangesWithoutTheCellsBetween)
{
    SheetDraft draft;
    for (int row = 2; row <= 4; ++row)
        for (int column = 1; column <= 3; ++column) draft.setValue(row, column, row);
    draft.setValue(1, 1, PlainText{"the first column goes one further up"});
    draft.setValue(2, 5, PlainText{"beside nothing"});
    draft.setValue(6, 3, PlainText{"below nothing"});
    draft.setValue(6, 4, PlainText{"with a neighbour"});
    EXPECT_EQ(addressesOf(draft.filledRanges()), "A1:A4 B2:C4 C6:D6 E2");
}

TEST(SheetDraft, KnowsWhichTextsAreTyped)
{
    SheetDraft draft;
    for (const int row : {3, 4, 6}) draft.setValue(row, 2, TypedText{"01:23,45"});
    for (const int row : {3, 4, 5}) draft.setValue(row, 3, TypedText{"01:23,45"});
    draft.setValue(5, 2, PlainText{"SKIPP,ED"});
    draft.setValue(3, 3, 7);
    EXPECT_EQ(addressesOf(draft.typedRanges()), "B3:B4 B6 C4:C5");
}

TEST(SheetDraft, JoinsTheMarksOfACell)
{
    SheetDraft draft;
    draft.setFont(1, 1, {.colour = 5, .bold = true});
    draft.setFont(1, 1, {.colour = kRed});
    draft.setFont(2, 1, {.bold = true});
    draft.setFont(2, 1, {.bold = false});
    EXPECT_EQ(marksOf(draft), Texts({"A2: thin", "A1: 255 bold"}));
}

TEST(SheetDraft, GathersCellsWithTheSameMarks)
{
    SheetDraft draft;
    for (const int row : {3, 4, 5, 7, 9, 10}) draft.setFont(row, 2, {.bold = true});
    draft.setFont(5, 3, {.bold = true});
    draft.setFont(6, 8, {.colour = kRed});
    EXPECT_EQ(marksOf(draft), Texts({"B3:B5 B7 B9:B10 C5: bold", "H6: 255"}));
}

TEST(RangeLists, AreNeverLongerThanAnApplicationTakes)
{
    EXPECT_EQ(listsOf({}), Texts());
    EXPECT_EQ(listsOf({kA1}), Texts({"A1"}));
    EXPECT_EQ(listsOf({kA1, {2, 2, 7, 2}}), Texts({"A1,B2:B7"}));
    // 86 times "A1" take 257 characters with their commas, 85 take 254.
    const Texts lists = listsOf(std::vector<CellRange>(86, kA1));
    ASSERT_EQ(lists.size(), 2U);
    EXPECT_EQ(lists[0].size(), 254U);
    EXPECT_EQ(lists[1], "A1");
}

/// What was handed over, and in which order.
class NotedSpreadsheet final : public DraftedSpreadsheet
{
public:
    using DraftedSpreadsheet::DraftedSpreadsheet;

    void makeVisible() override {}
    void setSheetsInNewWorkbook(int) override {}
    void addWorkbook() override {}

    Texts notes;

private:
    void writeSheet(const SheetDraft& draft) override
    {
        notes.push_back(std::to_string(draft.entries().size()) + " entries");
    }
    void fitColumns(int first, int last) override
    {
        notes.push_back("fit " + std::to_string(first) + " to " + std::to_string(last));
    }
};

TEST(DraftedSpreadsheet, HandsTheSheetOverBeforeItFitsTheColumns)
{
    NotedSpreadsheet sheet;
    sheet.setCellValue(1, 1, PlainText{"Level"});
    sheet.setCellFont(1, 1, {.bold = true});
    EXPECT_EQ(sheet.notes, Texts());
    sheet.autoFitColumns(1, 8);
    EXPECT_EQ(sheet.notes, Texts({"1 entries", "fit 1 to 8"}));
}

TEST(DraftedSpreadsheet, TakesAndHandsOverNothingOnceItIsToStop)
{
    std::stop_source stop;
    NotedSpreadsheet sheet(stop.get_token());
    sheet.setCellValue(1, 1, PlainText{"Level"});
    stop.request_stop();
    EXPECT_THROW(sheet.setCellValue(1, 2, 7), std::runtime_error);
    EXPECT_THROW(sheet.setCellFont(1, 1, {.bold = true}), std::runtime_error);
    EXPECT_THROW(sheet.autoFitColumns(1, 8), std::runtime_error);
    EXPECT_EQ(sheet.notes, Texts());
}

}  // namespace
}  // namespace kavo
