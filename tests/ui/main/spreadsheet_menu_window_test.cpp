// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/gate.h"
#include "tests/support/heartbeat.h"
#include "tests/support/recording_spreadsheet.h"
#include "tests/support/wait_until.h"
#include "tests/support/window_fixture.h"

#include <QAction>
#include <QCursor>
#include <QTreeView>

namespace {

using kavo::test::Gate;
using kavo::test::Heartbeat;
using kavo::test::RecordingSpreadsheet;
using kavo::test::SheetRecord;
using kavo::test::waitUntil;
using namespace std::chrono_literals;

bool isWaiting()
{
    return QGuiApplication::overrideCursor() != nullptr && QGuiApplication::overrideCursor()->shape() == Qt::WaitCursor;
}

/// An application that answers only when the gate is open, and can be told to stop before.
kavo::CreateSpreadsheet behind(Gate& gate, SheetRecord& record)
{
    return [&](const std::stop_token& stop) {
        gate.pass(stop);
        if (stop.stop_requested()) throw std::runtime_error("cancelled");
        return std::make_unique<RecordingSpreadsheet>(record);
    };
}

/// One that is at once there, and then busy with its new workbook whatever happens.
class BusySpreadsheet final : public kavo::Spreadsheet
{
public:
    BusySpreadsheet(Gate& gate, SheetRecord& record) : m_gate(gate), m_sheet(record) {}

    void makeVisible() override { m_sheet.makeVisible(); }
    void setSheetsInNewWorkbook(int count) override { m_sheet.setSheetsInNewWorkbook(count); }
    void addWorkbook() override
    {
        m_gate.pass();
        m_sheet.addWorkbook();
    }
    void setCellValue(int row, int column, const kavo::CellValue& value) override
    {
        m_sheet.setCellValue(row, column, value);
    }
    void setCellFont(int row, int column, const kavo::CellFont& font) override
    {
        m_sheet.setCellFont(row, column, font);
    }
    void autoFitColumns(int first, int last) override { m_sheet.autoFitColumns(first, last); }

private:
    Gate& m_gate;
    RecordingSpreadsheet m_sheet;
};

class SpreadsheetMenu : public kavo::test::ProgramTest
{
protected:
    void press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(&list(), key, modifiers);
    }
    void pressExport() { press(Qt::Key_E, Qt::ControlModifier); }

    /// The export has come to its end: the next one would start.
    static void waitForEnd()
    {
        ASSERT_TRUE(waitUntil([] { return !isWaiting(); }));
    }

    SheetRecord record;
    Gate gate;
};

TEST_F(SpreadsheetMenu, ControlEExportsTheTableAsShown)
{
    startLoggedIn();
    mainWindow().setSpreadsheet(kavo::test::recordingSpreadsheet(record));
    pressExport();
    EXPECT_TRUE(isWaiting());
    waitForEnd();
    EXPECT_EQ(record.cell(2, 2).text, "Marek");
    EXPECT_EQ(record.cell(3, 1).text, "1, Warm Up");
    EXPECT_EQ(record.cell(3, 2).text, "00:16,32");
    EXPECT_EQ(record.steps.back(), "fit 1 8");
}

TEST_F(SpreadsheetMenu, FilteredTableIsExportedWithItsBlankRows)
{
    startLoggedIn();
    mainWindow().setSpreadsheet(kavo::test::recordingSpreadsheet(record));
    auto* filter = mainWindow().findChild<QAction*>("mnuWR");
    ASSERT_NE(filter, nullptr);
    filter->trigger();
    mainWindow().findChild<QAction*>("mnuExport")->trigger();
    waitForEnd();
    EXPECT_EQ(record.cell(3, 1).text, "");             // level 1 is no World Record
    EXPECT_EQ(record.cell(8, 1).text, "6, Tin Roof");  // level 6 is
}

TEST_F(SpreadsheetMenu, WindowAnswersWhileTheApplicationIsWaitedFor)
{
    startLoggedIn();
    mainWindow().setSpreadsheet(behind(gate, record));
    Heartbeat heart;
    pressExport();
    gate.waitForArrival();
    mainWindow().resize(mainWindow().size() + QSize(50, 50));
    withKey("Form6", Qt::Key_F7, [](QWidget& window) { EXPECT_TRUE(window.isVisible()); });
    EXPECT_TRUE(isWaiting());
    EXPECT_LT(heart.longestPause(), kavo::test::kLongestPause);
    gate.open();
    waitForEnd();
    EXPECT_EQ(record.steps.back(), "fit 1 8");
}

TEST_F(SpreadsheetMenu, ExportIsOfTheMomentOfTheKeyWhateverComesAfterIt)
{
    startLoggedIn();
    mainWindow().setSpreadsheet(behind(gate, record));
    pressExport();
    gate.waitForArrival();
    folder.write("Marek/names.dat", "Renamed\r\nOther\r\nTeam\r\n");
    press(Qt::Key_F5);
    EXPECT_EQ(header(1), "Renamed");
    mainWindow().findChild<QAction*>("mnuWR")->trigger();
    EXPECT_EQ(cell(1, 0), "");
    gate.open();
    waitForEnd();
    EXPECT_EQ(record.cell(2, 2).text, "Marek");
    EXPECT_EQ(record.cell(3, 1).text, "1, Warm Up");
}

TEST_F(SpreadsheetMenu, SecondPressIsNoneWhileTheFirstIsUnderWay)
{
    startLoggedIn();
    mainWindow().setSpreadsheet(behind(gate, record));
    pressExport();
    gate.waitForArrival();
    pressExport();
    pressExport();
    gate.open();
    waitForEnd();
    EXPECT_EQ(gate.arrivals(), 1);
    const auto stepsOfOne = record.steps.size();
    pressExport();
    waitForEnd();
    EXPECT_EQ(gate.arrivals(), 2);
    EXPECT_EQ(record.steps.size(), 2 * stepsOfOne);
}

TEST_F(SpreadsheetMenu, EscapeEndsTheWaiting)
{
    startLoggedIn();
    mainWindow().setSpreadsheet(behind(gate, record));
    pressExport();
    gate.waitForArrival();
    press(Qt::Key_Escape);
    EXPECT_FALSE(isWaiting());
    EXPECT_TRUE(mainWindow().isVisible());
    EXPECT_TRUE(record.steps.empty());
    gate.open();
    // The cancelled export needs a moment to let go.
    ASSERT_TRUE(waitUntil([this] {
        pressExport();
        return isWaiting();
    }));
    waitForEnd();
    EXPECT_EQ(record.steps.back(), "fit 1 8");
    press(Qt::Key_Escape);  // nothing is waited for
    EXPECT_TRUE(mainWindow().isVisible());
}

TEST_F(SpreadsheetMenu, EscapeAmidTheExportLeavesTheSheetAsFarAsItWasWritten)
{
    startLoggedIn();
    mainWindow().setSpreadsheet(
        [this](const std::stop_token&) { return std::make_unique<BusySpreadsheet>(gate, record); });
    pressExport();
    gate.waitForArrival();
    press(Qt::Key_Escape);
    EXPECT_FALSE(isWaiting());
    gate.open();
    program.reset();  // with the end of the export
    EXPECT_EQ(record.steps, (std::vector<std::string>{"create", "visible", "sheets 1", "workbook"}));
}

TEST_F(SpreadsheetMenu, ProgramMayEndMeanwhile)
{
    startLoggedIn();
    mainWindow().setSpreadsheet(behind(gate, record));
    pressExport();
    gate.waitForArrival();
    QTimer::singleShot(0, &mainWindow(), &QWidget::close);
    EXPECT_EQ(runUntilQuit(), 0);
    EXPECT_FALSE(isWaiting());
    program.reset();
    EXPECT_TRUE(record.steps.empty());
}

TEST_F(SpreadsheetMenu, UserMayChangeMeanwhile)
{
    startLoggedIn();
    mainWindow().setSpreadsheet(behind(gate, record));
    pressExport();
    gate.waitForArrival();
    press(Qt::Key_F12);
    EXPECT_TRUE(loginWindow().isVisible());
    EXPECT_FALSE(isWaiting());
    EXPECT_TRUE(record.steps.empty());
}

TEST_F(SpreadsheetMenu, MissingApplicationEndsTheExportWithoutAWord)
{
    startLoggedIn();
    mainWindow().setSpreadsheet(
        [](const std::stop_token&) -> std::unique_ptr<kavo::Spreadsheet> { throw std::runtime_error("none"); });
    mainWindow().findChild<QAction*>("mnuExport")->trigger();
    waitForEnd();
    EXPECT_TRUE(mainWindow().isVisible());
}

TEST_F(SpreadsheetMenu, FailureOfAStepEndsTheExportWithoutAWord)
{
    startLoggedIn();
    mainWindow().setSpreadsheet(kavo::test::recordingSpreadsheet(record));
    pressExport();
    waitForEnd();
    const auto steps = record.steps;
    for (const std::size_t failing : {std::size_t{1}, std::size_t{2}, std::size_t{4}, std::size_t{5}, steps.size()}) {
        record = {};
        record.failsAt = failing;
        pressExport();
        waitForEnd();
        ASSERT_EQ(record.steps, std::vector(steps.begin(), steps.begin() + static_cast<std::ptrdiff_t>(failing) - 1));
    }
    EXPECT_TRUE(mainWindow().isVisible());
}

}  // namespace
