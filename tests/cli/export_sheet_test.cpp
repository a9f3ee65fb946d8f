// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/command_line.h"

#include <gtest/gtest.h>

namespace kavo {
namespace {

using test::Outcome;
using test::TemporaryFolder;

#ifdef KAVO_HAS_XLSX

TEST(ExportSheet, WritesAWorkbookThatIsTheSameOnStandardOutput)
{
    const TemporaryFolder folder;
    test::copyDemo(folder);
    const Outcome outcome = test::runCommand(folder, {"export-sheet", (folder / "sheet.xlsx").string()});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out + outcome.error, "");
    const std::string sheet = folder.read("sheet.xlsx");
    EXPECT_TRUE(sheet.starts_with("PK"));
    EXPECT_EQ(test::runCommand(folder, {"export-sheet", "-"}).out, sheet);
}

TEST(ExportSheet, WritesNothingWhereTheLoadingEndedEarly)
{
    const TemporaryFolder folder;
    test::copyDemo(folder);
    folder.write("game/stats.txt", "nothing of the kind");
    const Outcome outcome = test::runCommand(folder, {"export-sheet", (folder / "sheet.xlsx").string()});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_TRUE(outcome.error.starts_with("kavo-timing-cli: Wrong file! (" + (folder / "game/stats.txt").string()));
    EXPECT_FALSE(folder.has("sheet.xlsx"));
}

#else

TEST(ExportSheet, SaysThatTheProgramWasBuiltWithoutIt)
{
    const TemporaryFolder folder;
    test::copyDemo(folder);
    const Outcome outcome = test::runCommand(folder, {"export-sheet", (folder / "sheet.xlsx").string()});
    EXPECT_EQ(outcome.status, 1);
    EXPECT_EQ(outcome.error,
              "kavo-timing-cli: This program was built without libxlsxwriter and can write no .xlsx file\n");
}

#endif

}  // namespace
}  // namespace kavo
