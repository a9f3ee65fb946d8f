// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "core/messages.h"
#include "forms/prompts.h"
#include "forms/screen_text.h"

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QTimer>
#include <gtest/gtest.h>

#include <functional>

namespace kavo {

namespace {

/// Runs `show`, looks at the box that it brings and closes that.
void look(const std::function<void()>& show, const std::function<void(QWidget&)>& look)
{
    bool came = false;
    QTimer watch;
    QObject::connect(&watch, &QTimer::timeout, [&] {
        QWidget* box = QApplication::activeModalWidget();
        if (box == nullptr || !box->isVisible()) return;
        came = true;
        look(*box);
        box->close();
    });
    watch.start(0);
    show();
    EXPECT_TRUE(came);
}

int titleWidth(const QWidget& box)
{
    return QFontMetrics(QApplication::font("QMdiSubWindowTitleBar")).horizontalAdvance(box.windowTitle());
}

TEST(ScreenPrompts, BoxesAreWiderThanTheirTitles)
{
    ScreenPrompts prompts;
    const std::string title = "A title that is a good deal longer than the two letters of the text";
    const auto isWideEnough = [](const QWidget& box) {
        EXPECT_GT(box.width(), titleWidth(box) + 100) << box.metaObject()->className();
    };
    look([&] { prompts.tell(nullptr, {.text = "OK", .title = title}); }, isWideEnough);
    look([&] { static_cast<void>(prompts.askYesNo(nullptr, {.text = "OK", .title = title})); }, isWideEnough);
    look([&] { static_cast<void>(prompts.askLine(nullptr, {toScreen(title), "Name:", ""})); }, isWideEnough);
}

TEST(ScreenPrompts, TextOfAMessageIsShownAsItIs)
{
    ScreenPrompts prompts;
    look([&] { prompts.tell(nullptr, {.text = "New user: <b>bob</b>"}); },
         [](const QWidget& box) {
             const auto& message = dynamic_cast<const QMessageBox&>(box);
             EXPECT_EQ(message.text(), "New user: <b>bob</b>");
             EXPECT_EQ(message.textFormat(), Qt::PlainText);
         });
}

TEST(ScreenPrompts, LongQuestionGetsSeveralLines)
{
    ScreenPrompts prompts;
    const LineQuestion question{toScreen(messages::kAddBugTimeTitle), toScreen(messages::kAddBugTimePrompt),
                                toScreen(messages::kBugTimePreset)};
    look([&] { static_cast<void>(prompts.askLine(nullptr, question)); },
         [&question](const QWidget& box) {
             EXPECT_LT(box.width(), box.fontMetrics().horizontalAdvance(question.prompt));
             const auto& label = *box.findChild<QLabel*>();
             EXPECT_EQ(label.text(), question.prompt);
             EXPECT_GE(label.height(), label.heightForWidth(label.width()));
         });
}

}  // namespace

}  // namespace kavo
