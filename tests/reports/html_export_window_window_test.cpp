// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/code_page.h"
#include "forms/screen_text.h"
#include "reports/html_export_window.h"
#include "tests/support/plain_region.h"
#include "tests/support/report_window_fixture.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QGroupBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>

namespace {

const QStringList kTemplateFilters = {"*Kavo Timing Template (*.ett)", "All files (*)"};
const QStringList kReportFilters = {"HTML (*.html)", "HTM (*.htm)", "All files (*)"};

/// A section of the editor by its controls.
struct Section
{
    const char* frame;
    QString title;
    const char* box;
    const char* combo;
    const char* insert;
};

const std::vector<Section> kSections = {
    {"Frame4", "Beginning (before all records and tables, no loop)", "Text2", "Combo3", "Command7"},
    {"Frame5", "Loop with records. From 1st to 54th (Warm Up to Apple Harvest)", "Text3", "Combo1", "Command9"},
    {"Frame6", "Total Time && Ending", "Text4", "Combo2", "Command6"},
    {"Frame7", "Ending (maybe some stats tables etc)", "Text5", "Combo4", "Command8"}};

class HtmlExportWindow : public kavo::test::ReportWindowTest
{
protected:
    void SetUp() override
    {
        window = std::make_unique<Form11>(services, reports, nullptr);
        showAndWait(*window);
    }

    QPlainTextEdit& box(const char* name) { return control<QPlainTextEdit>(*window, name); }
    QLineEdit& path() { return control<QLineEdit>(*window, "Text1"); }
    void press(const char* button) { click(control<QPushButton>(*window, button)); }

    QStringList texts()
    {
        return {box("Text2").toPlainText(), box("Text3").toPlainText(), box("Text4").toPlainText(),
                box("Text5").toPlainText()};
    }

    /// The dialogs of templates open where the last one was.
    [[nodiscard]] kavo::test::FileDialog templateDialog(const QString& startAt) const
    {
        return {"Form11", {.filters = kTemplateFilters, .startAt = startAt}};
    }

    /// Nothing is chosen where there is no name.
    void load(const char* name)
    {
        prompts.expectFileToOpen(templateDialog(lastFolder), name == nullptr ? QString() : inFolder(name));
        press("Command5");
        if (name != nullptr) lastFolder = QFileInfo(inFolder(name)).path();
    }

    std::string save()
    {
        prompts.expectFileToSave(templateDialog(lastFolder), inFolder("saved.ett"));
        press("Command2");
        lastFolder = kavo::pathToScreen(folder.path());
        return folder.read("saved.ett");
    }

    void exportTo(const QString& file, const char* outcome)
    {
        path().setText(file);
        prompts.expectMessage({.text = outcome});
        press("Command4");
    }

    [[nodiscard]] QString inFolder(const char* name) const { return QString::fromStdString((folder / name).string()); }

    /// Chooses an item as a user does: opens the list, goes down to it and presses Enter.
    static void choose(QComboBox& combo, int item)
    {
        combo.showPopup();
        QAbstractItemView* list = combo.view();
        while (list->currentIndex().row() < item) QTest::keyClick(list, Qt::Key_Down);
        QTest::keyClick(list, Qt::Key_Return);
    }

    kavo::HtmlReports reports;
    std::unique_ptr<Form11> window;
    QString lastFolder;  ///< where the last template was; none at first
};

TEST_F(HtmlExportWindow, HasItsCaptions)
{
    EXPECT_EQ(window->objectName(), "Form11");
    EXPECT_EQ(window->windowTitle(), "eXtended HTML Export");
    EXPECT_EQ(control<QGroupBox>(*window, "Frame1").title(), "Path");
    EXPECT_EQ(control<QGroupBox>(*window, "Frame2").title(), "Editor");
    EXPECT_EQ(control<QGroupBox>(*window, "Frame3").title(), "");
    const QStringList buttons = {"Bowse",  "Save templates", "Close",  "Do Export!", "Load templates",
                                 "Insert", "Insert",         "Insert", "Insert"};
    for (int i = 1; i <= 9; ++i)
        EXPECT_EQ(control<QPushButton>(*window, QString("Command%1").arg(i)).text(), buttons.at(i - 1));
    EXPECT_TRUE(control<QPushButton>(*window, "Command4").font().bold());
    for (const Section& section : kSections) {
        EXPECT_EQ(control<QGroupBox>(*window, section.frame).title(), section.title);
        EXPECT_EQ(box(section.box).toPlainText(), "");
        EXPECT_EQ(control<QComboBox>(*window, section.combo).currentText(), "");
    }
    expectPainted(*window, *window);
}

TEST_F(HtmlExportWindow, ListsOfferThePlaceholdersOfTheirSections)
{
    const auto items = [this](const char* combo) {
        QStringList names;
        const auto& list = control<QComboBox>(*window, combo);
        for (int i = 0; i < list.count(); ++i) names << list.itemText(i);
        return names.join(' ');
    };
    EXPECT_EQ(items("Combo3"), "%date% %time% %date_time%");
    EXPECT_EQ(items("Combo1"),
              "%lev_name% %record1% %record2% %team_record% %target1% %target2% %team_target% %date% %time% "
              "%date_time% %best_driver%");
    EXPECT_EQ(items("Combo2"), "%tt1% %tt2% %ttt% %tt1target% %tt2target% %ttttarget% %date% %time% %date_time%");
    EXPECT_EQ(items("Combo4"),
              "%player1% %player2% %wr1% %wc1% %pr1% %go1% %ok1% %be1% %vic1% %wr2% %wc2% %pr2% %go2% %ok2% %be2% "
              "%vic2% %wrt% %wct% %prt% %got% %okt% %bet% %vict% %tt1% %tt2% %ttt% %tt1target% %tt2target% "
              "%ttttarget% %date% %time% %date_time%");
}

TEST_F(HtmlExportWindow, ChosenPlaceholderWaitsForItsButtonWhichInsertsIt)
{
    for (const Section& section : kSections) {
        auto& combo = control<QComboBox>(*window, section.combo);
        choose(combo, 1);
        auto& button = control<QPushButton>(*window, section.insert);
        EXPECT_TRUE(button.hasFocus()) << section.insert;
        QTest::keyClick(&button, Qt::Key_Space);
        EXPECT_EQ(box(section.box).toPlainText(), combo.itemText(1));
        EXPECT_TRUE(box(section.box).hasFocus());
    }
}

TEST_F(HtmlExportWindow, InsertGoesInAtTheCursor)
{
    QTest::keyClicks(&box("Text2"), "ab");
    QTest::keyClick(&box("Text2"), Qt::Key_Left);
    control<QComboBox>(*window, "Combo3").setCurrentIndex(0);
    press("Command7");
    EXPECT_EQ(box("Text2").toPlainText(), "a%date%b");
    EXPECT_EQ(box("Text2").textCursor().position(), 7);
    press("Command7");
    EXPECT_EQ(box("Text2").toPlainText(), "a%date%%date%b");
    QTest::keyClick(&box("Text2"), Qt::Key_Home);
    press("Command7");
    EXPECT_EQ(box("Text2").toPlainText(), "%date%a%date%%date%b");
    EXPECT_EQ(box("Text2").textCursor().position(), 6);
}

TEST_F(HtmlExportWindow, InsertReplacesNoSelectionAndNothingWhenNothingIsChosen)
{
    QTest::keyClicks(&box("Text2"), "abc");
    press("Command7");
    EXPECT_EQ(box("Text2").toPlainText(), "abc");
    EXPECT_TRUE(box("Text2").hasFocus());
    QTest::keyClick(&box("Text2"), Qt::Key_Left, Qt::ShiftModifier);
    control<QComboBox>(*window, "Combo3").setCurrentIndex(0);
    press("Command7");
    EXPECT_EQ(box("Text2").toPlainText(), "ab%date%c");
}

TEST_F(HtmlExportWindow, InsertBeyondTheLastCountablePositionIsAnError)
{
    box("Text2").setPlainText(QString(32767, 'x') + "y");
    box("Text2").moveCursor(QTextCursor::End);
    control<QComboBox>(*window, "Combo3").setCurrentIndex(0);
    prompts.expectMessage({.text = "Invalid procedure call or argument", .icon = kavo::MessageIcon::Critical});
    press("Command7");
    EXPECT_EQ(box("Text2").toPlainText().size(), 32768);
    QTest::keyClick(&box("Text2"), Qt::Key_Left);
    press("Command7");
    EXPECT_EQ(box("Text2").toPlainText().right(8), "x%date%y");
}

TEST_F(HtmlExportWindow, BrowseFillsThePathOrLeavesIt)
{
    prompts.expectFileToSave({"Form11", {.filters = kReportFilters}}, "/tmp/r.html");
    press("Command1");
    EXPECT_EQ(path().text(), "/tmp/r.html");
    prompts.expectFileToSave({"Form11", {.filters = kReportFilters, .startAt = "/tmp/r.html"}}, "");
    press("Command1");
    EXPECT_EQ(path().text(), "/tmp/r.html");
}

TEST_F(HtmlExportWindow, TemplatesAreLookedForAmongTheSuppliedOnesThenWhereTheLastOneWas)
{
    folder.write("templates/supplied.ett", "");
    folder.write("mine/own.ett", "");
    const auto loadFrom = [this](const QString& startAt, const QString& chosen) {
        prompts.expectFileToOpen(templateDialog(startAt), chosen);
        press("Command5");
    };
    loadFrom(inFolder("templates"), "");
    loadFrom(inFolder("templates"), inFolder("mine/own.ett"));
    prompts.expectFileToSave(templateDialog(inFolder("mine")), inFolder("saved.ett"));
    press("Command2");
    window = std::make_unique<Form11>(services, reports, nullptr);
    showAndWait(*window);
    loadFrom(kavo::pathToScreen(folder.path()), "");  // where it was saved
    session.lastTemplateFolder = folder / "gone";
    loadFrom(inFolder("templates"), "");
}

TEST_F(HtmlExportWindow, ExportWritesTheTypedSections)
{
    const kavo::test::PlainRegion plainRegion;
    QTest::keyClicks(&box("Text2"), "%team% %date%|%date_time%|%time% %lev_name%");
    QTest::keyClick(&box("Text2"), Qt::Key_Return);
    QTest::keyClicks(&box("Text2"), "2");
    QTest::keyClicks(&box("Text3"), "%lev_name%: %record1%");
    QTest::keyClicks(&box("Text4"), "%tt1%");
    QTest::keyClicks(&box("Text5"), "%Date%");
    exportTo(inFolder("r.html"), "OK");
    std::string expected =
        "<!-- Maden by prog Kavo Timing v.2.1 by Nurel. Download here: https://kavo-timing.example/ -->\r\n"
        "Dust Devils 03/07/26|" +
        std::string(kavo::test::PlainRegion::kReportMoment) + "|14:05:09 %lev_name%\r\n2\r\n";
    for (int level = 1; level <= 54; ++level) expected += std::to_string(level) + ", Track: 00:30:00\r\n";
    EXPECT_EQ(folder.read("r.html"), expected + "27:00:00\r\n%Date%\r\n");
}

TEST_F(HtmlExportWindow, RelativePathCountsFromTheProgramFolder)
{
    exportTo("r.html", "OK");
    EXPECT_TRUE(folder.has("r.html"));
}

TEST_F(HtmlExportWindow, PathThatCannotBeOpenedFailsAndTheNextOneIsWritten)
{
    exportTo("", "Failed");
    exportTo(inFolder("none/r.html"), "Failed");
    exportTo(inFolder("r.html"), "OK");
}

#ifdef __linux__
TEST_F(HtmlExportWindow, ExportThatBrokeOffFailsAllLaterOnesAlsoInANewWindow)
{
    exportTo("/dev/full", "Failed");
    exportTo(inFolder("r.html"), "Failed");
    window = std::make_unique<Form11>(services, reports, nullptr);
    showAndWait(*window);
    exportTo(inFolder("r.html"), "Failed");
    EXPECT_FALSE(folder.has("r.html"));
}
#endif

TEST_F(HtmlExportWindow, SavedTemplateComesBackAndASecondLoadingDoublesIt)
{
    QTest::keyClicks(&box("Text2"), "one");
    QTest::keyClick(&box("Text2"), Qt::Key_Return);
    QTest::keyClicks(&box("Text2"), "two");
    QTest::keyClicks(&box("Text3"), "%lev_name%");
    QTest::keyClicks(&box("Text5"), " end ");
    const std::string file = save();
    EXPECT_EQ(file, "one\r\ntwo\r\n%template2%\r\n%lev_name%\r\n%template3%\r\n\r\n%template4%\r\n end \r\n");
    window = std::make_unique<Form11>(services, reports, nullptr);
    showAndWait(*window);
    load("saved.ett");
    EXPECT_EQ(texts(), (QStringList{"one\ntwo", "%lev_name%", "", " end "}));
    EXPECT_EQ(save(), file);
    load("saved.ett");
    EXPECT_EQ(texts(), (QStringList{"one\ntwoone\ntwo", "%lev_name%%lev_name%", "", " end  end "}));
}

TEST_F(HtmlExportWindow, LoadingWithoutANameCutsTwoCharactersOfEverySection)
{
    QTest::keyClicks(&box("Text2"), "abcd");
    QTest::keyClicks(&box("Text4"), "ab");
    QTest::keyClicks(&box("Text5"), "x");
    QTest::keyClick(&box("Text5"), Qt::Key_Return);
    load(nullptr);
    EXPECT_EQ(texts(), (QStringList{"ab", "", "", "x"}));
    load("none.ett");
    EXPECT_EQ(texts(), (QStringList{"", "", "", "x"}));
}

TEST_F(HtmlExportWindow, TemplateThatEndsAtItsLastSeparatorIsNotCut)
{
    folder.write("short.ett", "a\r\n%template2%\r\nb\r\n%template3%\r\nc\r\n%template4%\r\n");
    QTest::keyClicks(&box("Text5"), "old");
    load("short.ett");
    EXPECT_EQ(texts(), (QStringList{"a\n", "b\n", "c\n", "old"}));
}

TEST_F(HtmlExportWindow, TemplateWithoutASeparatorStaysAsFarAsItWasRead)
{
    folder.write("short.ett", "a\r\n%template2%\r\nb\r\nc\r\n");
    load("short.ett");
    EXPECT_EQ(texts(), (QStringList{"a\n", "b\nc\n", "", ""}));
}

TEST_F(HtmlExportWindow, BytesThatAreNoUtf8SurviveWhereNothingIsEdited)
{
    folder.write("old.ett",
                 "\xE9t\xE9 \xC2\xA0 \xF0\x9F\x8F\x81\r\n\x80\r\n%template2%\r\nb\r\n%template3%\r\n\xFF\r\n"
                 "%template4%\r\nd\r\n");
    load("old.ett");
    EXPECT_EQ(box("Text4").toPlainText(), QString(QChar(0xFF)));
    EXPECT_EQ(save(), folder.read("old.ett"));
    box("Text2").moveCursor(QTextCursor::Start);
    QTest::keyClick(&box("Text2"), Qt::Key_Right);
    QTest::keyClicks(&box("Text2"), "X");
    box("Text2").moveCursor(QTextCursor::End);
    QTest::keyClick(&box("Text2"), Qt::Key_Return);
    QTest::keyClicks(&box("Text2"), "Y");
    EXPECT_TRUE(save().starts_with("\xE9Xt\xE9 \xC2\xA0 \xF0\x9F\x8F\x81\r\n\x80\r\nY\r\n%template2%\r\n")) << save();
}

// The first two bytes would be one letter of UTF-8: a cursor counts the letters that it shows.
TEST_F(HtmlExportWindow, WordsInACodePageSurviveBesideAnEdit)
{
    const kavo::CodePageInForce cyrillic(kavo::findCodePage("1251").value());
    const std::string rest = "\r\n%template2%\r\nb\r\n%template3%\r\nc\r\n%template4%\r\nd\r\n";
    const std::string fyodor = "\xD4\xB8\xE4\xEE\xF0";
    folder.write("old.ett", fyodor + " " + fyodor + "\r\n\xC6" + rest);
    load("old.ett");
    EXPECT_EQ(box("Text2").toPlainText(), "Фёдор Фёдор\nЖ");
    EXPECT_EQ(save(), folder.read("old.ett"));
    box("Text2").moveCursor(QTextCursor::Start);
    for (int letter = 1; letter <= 6; ++letter) QTest::keyClick(&box("Text2"), Qt::Key_Right);
    QTest::keyClicks(&box("Text2"), "X ");
    EXPECT_EQ(save(), fyodor + " X " + fyodor + "\r\n\xC6" + rest);
    // A word that is edited is typed text.
    QTest::keyClick(&box("Text2"), Qt::Key_Delete);
    EXPECT_EQ(box("Text2").toPlainText(), "Фёдор X ёдор\nЖ");
    EXPECT_EQ(save(), fyodor + " X ёдор\r\n\xC6" + rest);
    box("Text2").insertPlainText("Ж");
    EXPECT_EQ(save(), fyodor + " X Жёдор\r\n\xC6" + rest);
}

TEST_F(HtmlExportWindow, SavingWhereNothingCanBeWrittenIsReported)
{
    prompts.expectFileToSave(templateDialog(""), inFolder("none/t.ett"));
    prompts.expectMessage({.text = "Path not found: t.ett", .icon = kavo::MessageIcon::Critical});
    press("Command2");
    prompts.expectFileToSave(templateDialog(""), "");
    press("Command2");
}

TEST_F(HtmlExportWindow, NoKeyClosesItItsButtonDoes)
{
    QTest::keyClick(&box("Text2"), Qt::Key_Escape);
    QTest::keyClick(window.get(), Qt::Key_Escape);
    EXPECT_TRUE(window->isVisible());
    press("Command3");
    EXPECT_FALSE(window->isVisible());
}

}  // namespace
