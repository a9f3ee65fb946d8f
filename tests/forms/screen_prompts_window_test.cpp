// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/prompts.h"
#include "tests/support/window_fixture.h"

#include <QColorDialog>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>

namespace {

using kavo::Answer;
using kavo::MessageIcon;

/// The boxes that a user sees, answered by keys and clicks.
class PromptsOnScreen : public kavo::test::ProgramTest
{
protected:
    /// The box that comes next, as what it is.
    template <typename Box>
    static void onBox(std::function<void(Box&)> look)
    {
        onModalWindow([look = std::move(look)](QWidget& window) {
            auto* box = qobject_cast<Box*>(&window);
            ASSERT_NE(box, nullptr) << window.metaObject()->className();
            look(*box);
        });
    }

    static void press(QMessageBox& box, QMessageBox::StandardButton button) { click(*box.button(button)); }

    /// As file dialogs write it, on all systems.
    [[nodiscard]] QString path(std::string_view name) const
    {
        return QString::fromStdString((folder / name).generic_string());
    }

    kavo::ScreenPrompts screen;
};

TEST_F(PromptsOnScreen, MessageHasItsTitleItsPlainTextItsIconAndOneButton)
{
    onBox<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), "NRL Kavo Timing");
        EXPECT_EQ(box.text(), "New user: <b>");
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.icon(), QMessageBox::NoIcon);
        EXPECT_EQ(box.standardButtons(), QMessageBox::Ok);
        press(box, QMessageBox::Ok);
    });
    screen.tell(nullptr, {"New user: <b>"});
    onBox<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.icon(), QMessageBox::Critical);
        EXPECT_EQ(box.windowTitle(), "Elsewhere");
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    screen.tell(nullptr, {.text = "x", .title = "Elsewhere", .icon = MessageIcon::Critical});
}

TEST_F(PromptsOnScreen, OnlyYesIsYes)
{
    const kavo::Message question{.text = "Sure?"};
    onBox<QMessageBox>([](QMessageBox& box) {
        EXPECT_EQ(box.standardButtons(), QMessageBox::Yes | QMessageBox::No);
        press(box, QMessageBox::Yes);
    });
    EXPECT_EQ(screen.askYesNo(nullptr, question), Answer::Yes);
    onBox<QMessageBox>([](QMessageBox& box) { press(box, QMessageBox::No); });
    EXPECT_EQ(screen.askYesNo(nullptr, question), Answer::No);
    onBox<QMessageBox>([](QMessageBox& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    EXPECT_EQ(screen.askYesNo(nullptr, question), Answer::No);
}

TEST_F(PromptsOnScreen, BoxOfAWindowThatStaysOnTopStaysAboveIt)
{
    QWidget window;
    window.setWindowFlag(Qt::WindowStaysOnTopHint);
    onBox<QMessageBox>([](QMessageBox& box) {
        EXPECT_TRUE(box.windowFlags().testFlag(Qt::WindowStaysOnTopHint));
        press(box, QMessageBox::Ok);
    });
    screen.tell(&window, {"x"});
}

TEST_F(PromptsOnScreen, LineIsOfferedTypedOrNotGiven)
{
    const kavo::LineQuestion question{"Change team name", "Input team name:", "Team"};
    onBox<QInputDialog>([](QInputDialog& box) {
        EXPECT_EQ(box.windowTitle(), "Change team name");
        EXPECT_EQ(box.labelText(), "Input team name:");
        EXPECT_EQ(box.textValue(), "Team");
        QTest::keyClick(&box, Qt::Key_Return);
    });
    EXPECT_EQ(screen.askLine(nullptr, question), "Team");
    onBox<QInputDialog>([](QInputDialog& box) {
        box.setTextValue("");
        QTest::keyClick(&box, Qt::Key_Return);
    });
    EXPECT_EQ(screen.askLine(nullptr, question), "");
    onBox<QInputDialog>([](QInputDialog& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    EXPECT_EQ(screen.askLine(nullptr, question), std::nullopt);
}

TEST_F(PromptsOnScreen, FileToOpenMustBeThereAndIsLookedForWhereTheCallerSays)
{
    folder.write("sub/there.ett", "x");
    const kavo::FileQuestion question{.title = "Choose", .filters = {"Templates (*.ett)"}, .startAt = path("sub")};
    onBox<QFileDialog>([this](QFileDialog& box) {
        EXPECT_EQ(box.windowTitle(), "Choose");
        EXPECT_EQ(box.nameFilters(), (QStringList{"Templates (*.ett)"}));
        EXPECT_EQ(box.directory().absolutePath(), path("sub"));
        EXPECT_EQ(box.fileMode(), QFileDialog::ExistingFile);
        EXPECT_EQ(box.acceptMode(), QFileDialog::AcceptOpen);
        box.selectFile("there.ett");
        click(*box.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open));
    });
    EXPECT_EQ(screen.askFileToOpen(nullptr, question), path("sub/there.ett"));
    onBox<QFileDialog>([](QFileDialog& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    EXPECT_EQ(screen.askFileToOpen(nullptr, question), "");
}

TEST_F(PromptsOnScreen, FileToSaveIsReplacedWithoutAQuestion)
{
    folder.write("sub/there.html", "x");
    const kavo::FileQuestion question{.filters = {"HTML (*.html)"}, .startAt = path("sub")};
    onBox<QFileDialog>([](QFileDialog& box) {
        EXPECT_EQ(box.acceptMode(), QFileDialog::AcceptSave);
        box.selectFile("there.html");
        click(*box.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Save));
    });
    EXPECT_EQ(screen.askFileToSave(nullptr, question), path("sub/there.html"));
}

TEST_F(PromptsOnScreen, ColourIsTheOneBeforeUnlessAnotherIsAccepted)
{
    const QColor before(10, 20, 30);
    onBox<QColorDialog>([&before](QColorDialog& box) {
        EXPECT_EQ(box.currentColor(), before);
        box.setCurrentColor(QColor(1, 2, 3));
        QTest::keyClick(&box, Qt::Key_Return);
    });
    EXPECT_EQ(screen.askColour(nullptr, before), QColor(1, 2, 3));
    onBox<QColorDialog>([](QColorDialog& box) {
        box.setCurrentColor(QColor(1, 2, 3));
        QTest::keyClick(&box, Qt::Key_Escape);
    });
    EXPECT_EQ(screen.askColour(nullptr, before), before);
}

}  // namespace
