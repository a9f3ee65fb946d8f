#include "tests/support/recording_spreadsheet.h"
#include "tests/support/window_fixture.h"

#include <QAction>
#include <QCursor>
#include <QTreeView>

namespace {

class SpreadsheetMenu : public kavo::test::ProgramTest
{
};

TEST_F(SpreadsheetMenu, ControlEExportsTheTableAsShown)
{
    startLoggedIn();
    kavo::test::SheetRecord record;
    mainWindow().setSpreadsheet([&record] {
        EXPECT_EQ(QGuiApplication::overrideCursor()->shape(), Qt::WaitCursor);
        return std::make_unique<kavo::test::RecordingSpreadsheet>(record);
    });
    QTest::keyClick(&control<QTreeView>(mainWindow(), "lv"), Qt::Key_E, Qt::ControlModifier);
    EXPECT_EQ(record.cell(2, 2).text, "Marek");
    EXPECT_EQ(record.cell(3, 1).text, "1, Warm Up");
    EXPECT_EQ(record.cell(3, 2).text, "00:16,32");
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST_F(SpreadsheetMenu, FilteredTableIsExportedWithItsBlankRows)
{
    startLoggedIn();
    kavo::test::SheetRecord record;
    mainWindow().setSpreadsheet([&record] { return std::make_unique<kavo::test::RecordingSpreadsheet>(record); });
    auto* filter = mainWindow().findChild<QAction*>("mnuWR");
    ASSERT_NE(filter, nullptr);
    filter->trigger();
    mainWindow().findChild<QAction*>("mnuExport")->trigger();
    EXPECT_EQ(record.cell(3, 1).text, "");             // level 1 is no World Record
    EXPECT_EQ(record.cell(8, 1).text, "6, Tin Roof");  // level 6 is
}

TEST_F(SpreadsheetMenu, MissingApplicationEndsTheExportWithoutAWord)
{
    startLoggedIn();
    mainWindow().setSpreadsheet([]() -> std::unique_ptr<kavo::Spreadsheet> { throw std::runtime_error("none"); });
    mainWindow().findChild<QAction*>("mnuExport")->trigger();
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
    EXPECT_TRUE(mainWindow().isVisible());
}

}  // namespace
