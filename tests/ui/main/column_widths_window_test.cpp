// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/screen_fit.h"
#include "tests/support/window_fixture.h"

#include <QHeaderView>
#include <QScreen>
#include <QSpinBox>

namespace {

/// The demo's Marek, whose settings file has the font size in its last line.
class ColumnWidths : public kavo::test::ProgramTest
{
protected:
    static constexpr const char* kNarrow =
        " 300 \r\n 15 \r\n 4500 \r\n 9000 \r\n 1500 \r\n 900 \r\n 915 \r\n 930 \r\n 945 \r\n 960 \r\n";
    static constexpr int kStored = 6;  ///< columns whose widths the layout file keeps

    void startWithFont(int points)
    {
        std::string settings = folder.read("Marek/data.ini");
        settings.erase(settings.rfind("\r\n", settings.size() - 3) + 2);
        folder.write("Marek/data.ini", settings + " " + std::to_string(points) + " \r\n");
        startLoggedIn();
        ASSERT_EQ(list().font().pointSize(), points);
    }

    /// In the View window.
    void chooseFont(int points)
    {
        withKey("Form3", Qt::Key_F3, [points](QWidget& window) {
            control<QSpinBox>(window, "Text1").setValue(points);
            click(control<QWidget>(window, "Command1"));
        });
    }

    /// Widths of the longest text of a column and of its header, without any room around them.
    int widest(int column)
    {
        int widest = QFontMetrics(list().header()->font()).horizontalAdvance(header(column));
        for (int row = 1; row <= list().model()->rowCount(); ++row) {
            QFont font = index(row, column).data(Qt::FontRole).value<QFont>().resolve(list().font());
            widest = std::max(widest, QFontMetrics(font).horizontalAdvance(cell(row, column)));
        }
        return widest;
    }

    void expectNothingIsCut(int firstColumn, const std::string& when)
    {
        for (int column = firstColumn; column < 9; ++column)
            EXPECT_GT(list().columnWidth(column), widest(column)) << when << ", column " << column;
    }

    std::vector<int> widths()
    {
        std::vector<int> widths(9);
        for (int column = 0; column < 9; ++column)
            widths.at(static_cast<std::size_t>(column)) = list().columnWidth(column);
        return widths;
    }
};

TEST_F(ColumnWidths, DesignedOnesHaveRoomForAllTextsInEveryFont)
{
    for (const int points : {6, 8, 10, 12, 14, 20, 32}) {
        std::filesystem::remove(folder / "Marek/view.dat");
        startWithFont(points);
        expectNothingIsCut(0, std::to_string(points) + " points");
        program.reset();
    }
}

TEST_F(ColumnWidths, DesignedWindowShowsAllColumnsWhereTheScreenIsWideEnough)
{
    std::filesystem::remove(folder / "Marek/view.dat");
    startWithFont(10);
    const int room = kavo::roomOn(*QGuiApplication::primaryScreen()).width();
    EXPECT_TRUE(list().header()->length() <= list().viewport()->width() || mainWindow().width() == room);
}

TEST_F(ColumnWidths, StoredOnesStayAndTheOthersFollowTheFont)
{
    folder.write("Marek/view.dat", kNarrow);
    startWithFont(20);
    EXPECT_EQ(widths().at(0), 100);
    EXPECT_EQ(widths().at(5), 64);
    expectNothingIsCut(kStored, "at the start");
    const std::string before = folder.read("Marek/view.dat");
    const std::vector<int> widthsBefore = widths();
    for (int time = 0; time < 3; ++time) QTest::keyClick(&list(), Qt::Key_F5);
    EXPECT_EQ(widths(), widthsBefore);
    QTest::mouseRelease(&mainWindow(), Qt::LeftButton);
    const auto columns = [](const std::string& file) { return file.substr(file.find(" 1500 ")); };
    EXPECT_EQ(columns(folder.read("Marek/view.dat")), columns(before));
}

TEST_F(ColumnWidths, ThoseTooNarrowForAChosenFontGrowAndTheRestStays)
{
    folder.write("Marek/view.dat", kNarrow);
    startWithFont(8);
    list().setColumnWidth(5, 700);
    chooseFont(20);
    expectNothingIsCut(0, "chosen");
    EXPECT_EQ(widths().at(5), 700);
    const std::vector<int> large = widths();
    chooseFont(8);
    for (std::size_t column = 0; column < kStored; ++column) EXPECT_EQ(widths().at(column), large.at(column));
    for (std::size_t column = kStored; column < 8; ++column) EXPECT_LT(widths().at(column), large.at(column));
}

TEST_F(ColumnWidths, GrownOnesAreAsWideAsTheListItselfWouldMakeThem)
{
    folder.write("Marek/view.dat", kNarrow);
    startWithFont(8);
    mainWindow().resize(1600, 3000);
    for (const int points : {14, 21, 32}) {
        chooseFont(points);
        const QAbstractItemView& cells = list();
        for (int column = 0; column < kStored; ++column)
            EXPECT_EQ(list().columnWidth(column),
                      std::max(cells.sizeHintForColumn(column), list().header()->sectionSizeHint(column)))
                << points << " points, column " << column;
    }
}

TEST_F(ColumnWidths, OneThatTheUserHasMadeStaysAtAReload)
{
    startWithFont(8);
    list().setColumnWidth(6, 33);
    QTest::keyClick(&list(), Qt::Key_F5);
    EXPECT_EQ(widths().at(6), 33);
}

TEST_F(ColumnWidths, FollowANewNameAsFarAsThreeTimesTheDesign)
{
    startWithFont(8);
    const int before = widths().at(6);
    prompts.expectLine({"Change team name", "Input team name:", header(6)}, "A team with quite a long name");
    emit list().header()->sectionClicked(6);
    EXPECT_GT(widths().at(6), widest(6));
    prompts.expectLine({"Change team name", "Input team name:", header(6)}, QString(300, 'W'));
    emit list().header()->sectionClicked(6);
    EXPECT_GT(widths().at(6), before);
    EXPECT_LE(widths().at(6), 3 * before);
}

}  // namespace
