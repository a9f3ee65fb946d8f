// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/file_name.h"
#include "core/filters.h"
#include "core/program_folder.h"
#include "reports/spreadsheet_export.h"
#include "tests/support/environment.h"
#include "tests/support/export_season.h"
#include "tests/support/flat_sheet.h"
#include "tests/support/headless_office.h"
#include "tests/support/places.h"
#include "tests/support/recording_spreadsheet.h"

#include <gtest/gtest.h>

namespace kavo {
namespace {

using Kind = test::RecordedCell::Kind;

constexpr int kLastRow = 70;
constexpr int kLastColumn = 10;

constexpr const char* kGermany = "de-DE";  // where 01:23,45 is a time
constexpr const char* kAmerica = "en-US";  // where it is none

constexpr const char* kNoModule = "built without the module (no LibreOffice SDK was found)";

/// What a real export lacks here; null where nothing does.
const char* missing()
{
    if (test::officeModule().empty()) return kNoModule;
    return fileExists(test::officeFolder() / "program/libsclo.so") ? nullptr : "LibreOffice Calc is not installed";
}

/// A profile of a user who likes three sheets in a workbook.
void writeProfile(const test::TemporaryFolder& folder, const std::string& locale)
{
    const auto setting = [](const std::string& path, const std::string& name, const std::string& value) {
        return "<item oor:path=\"/org.openoffice." + path + "\"><prop oor:name=\"" + name +
               "\" oor:op=\"fuse\"><value>" + value + "</value></prop></item>";
    };
    folder.write("profile/user/registrymodifications.xcu",
                 "<?xml version=\"1.0\" encoding=\"UTF-8\"?>"
                 "<oor:items xmlns:oor=\"http://openoffice.org/2001/registry\">" +
                     setting("Setup/L10N", "ooSetupSystemLocale", locale) +
                     setting("Office.Calc/Defaults/Sheet", "SheetCount", "3") + "</oor:items>");
}

/// Exports twice, to the office and to the fake, and returns what either shows.
struct BothSheets
{
    test::FlatSheet office;
    test::SheetRecord fake;
};

BothSheets exportToBoth(const Session& session, const std::string& locale)
{
    const test::TemporaryFolder folder;
    writeProfile(folder, locale);
    const auto runExport = [&session](const CreateSpreadsheet& create) {
        ExportExcel(session.table, session.state, session.colours, "20.11.2026", create);
    };
    BothSheets both;
    runExport(test::recordingSpreadsheet(both.fake));
    runExport([&folder](const std::stop_token&) {
        return test::headlessOffice(test::officeModule(), folder.path(), folder / "sheet.fods");
    });
    both.office = test::readFlatSheet(folder / "sheet.fods");
    return both;
}

std::string expectedType(const test::RecordedCell& cell, const std::string& typed)
{
    switch (cell.kind) {
    case Kind::Empty: return "";
    case Kind::Plain: return "string";
    case Kind::Number: return "float";
    case Kind::Typed: break;
    }
    return typed;
}

/// `typed`: the type of a text that is read as if typed.
void expectEqualCells(const BothSheets& both, const std::string& typed)
{
    for (int row = 1; row <= kLastRow; ++row)
        for (int column = 1; column <= kLastColumn; ++column) {
            SCOPED_TRACE("row " + std::to_string(row) + ", column " + std::to_string(column));
            const test::RecordedCell wanted = both.fake.cell(row, column);
            const test::ShownCell shown = both.office.cell(row, column);
            EXPECT_EQ(shown.text, wanted.text);
            EXPECT_EQ(shown.type, expectedType(wanted, typed));
            EXPECT_EQ(shown.colour, wanted.colour.value_or(0));
            EXPECT_EQ(shown.bold, wanted.bold);
        }
}

TEST(LibreOfficeExport, GivesTheSheetThatTheFakeRecords)
{
    if (const char* reason = missing()) GTEST_SKIP() << reason;
    test::ExportSeason season;
    season.load("2", "bob.txt");
    season.session.state.Player1Name = "=1+1";
    season.session.state.Player2Name = "1/2 <Жанна>";
    season.session.state.TeamName = "'007";
    const BothSheets both = exportToBoth(season.session, kGermany);
    ASSERT_EQ(both.office.sheets, 1);
    expectEqualCells(both, "time");
    // The title makes the first column by far the widest; a sheet's columns are all alike untouched.
    const auto& widths = both.office.columnWidths;
    for (int column = 2; column <= 8; ++column) EXPECT_LT(widths.at(column), widths.at(1));
    EXPECT_LT(widths.at(2), widths.at(3));
    EXPECT_LT(widths.at(4), widths.at(5));
}

TEST(LibreOfficeExport, GivesTextsWhereTheCommaMakesNoTime)
{
    if (const char* reason = missing()) GTEST_SKIP() << reason;
    test::ExportSeason season;
    season.load("2", "bob.txt");
    filterVictories(season.session.table, FilterSide::Player1);  // blanks level 3, so that the columns have gaps
    expectEqualCells(exportToBoth(season.session, kAmerica), "string");
}

TEST(LibreOfficeExport, GivesASheetWithoutAnyTime)
{
    if (const char* reason = missing()) GTEST_SKIP() << reason;
    test::ExportSeason season;
    season.load("2", "bob.txt");
    ResultsTable& table = season.session.table;
    for (int row = 1; row <= table.rowCount(); ++row)
        for (int column = 0; column < kColumns; ++column) table.setText(row, static_cast<Column>(column), "");
    expectEqualCells(exportToBoth(season.session, kGermany), "time");
}

TEST(LibreOfficeExport, AModuleThatIsMissingIsAnError)
{
    EXPECT_THROW(static_cast<void>(moduleEntry("/nowhere/" + std::string(kLibreOfficeModule), kCreateEntry)),
                 std::runtime_error);
    if (test::officeModule().empty()) GTEST_SKIP() << kNoModule;
    EXPECT_NE(moduleEntry(test::officeModule(), kCreateEntry), nullptr);
    EXPECT_THROW(static_cast<void>(moduleEntry(test::officeModule(), "noSuchEntry")), std::runtime_error);
}

TEST(LibreOfficeExport, WithoutADisplayNoOfficeIsStarted)
{
    if (test::officeModule().empty()) GTEST_SKIP() << kNoModule;
    const test::EnvironmentValue display("DISPLAY", nullptr);
    const test::EnvironmentValue wayland("WAYLAND_DISPLAY", nullptr);
    const auto create = reinterpret_cast<CreateEntry>(moduleEntry(test::officeModule(), kCreateEntry));
    EXPECT_EQ(std::unique_ptr<Spreadsheet>(create({})), nullptr);
}

TEST(LibreOfficeExport, NeedsTheModuleInOneOfItsPlaces)
{
    for (const auto& place : modulePlaces(executableFolder())) ASSERT_FALSE(fileExists(place)) << place;
    EXPECT_THROW(static_cast<void>(openSpreadsheetApplication({})), std::runtime_error);
}

TEST(LibreOfficeExport, TheModuleIsLookedForBesideTheProgramAndInTheLibraryFolder)
{
    EXPECT_EQ(modulePlaces("/opt/kavo/bin"),
              (std::vector<std::filesystem::path>{
                  "/opt/kavo/bin/spreadsheet_libreoffice.so",
                  "/opt/kavo" / test::libraryFolder() / "kavo-timing/spreadsheet_libreoffice.so"}));
}

}  // namespace
}  // namespace kavo
