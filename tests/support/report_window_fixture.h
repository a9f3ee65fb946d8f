// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/text_file.h"
#include "forms/services.h"
#include "tests/support/patience.h"
#include "tests/support/recording_desktop.h"
#include "tests/support/report_session.h"
#include "tests/support/window_fixture.h"

#include <QDateTime>

namespace kavo::test {

class FixedClock final : public Clock
{
public:
    [[nodiscard]] QDateTime now() const override { return QDateTime::fromSecsSinceEpoch(reportMoment()); }
};

/// One window of the reports over a plain session, without the main window.
class ReportWindowTest : public testing::Test
{
protected:
    ReportWindowTest()
    {
        Application& application = *static_cast<Application*>(qApp);
        application.setPrompts(prompts);
        folder.write("curUser.dat", "Zoe\r\n");
        folder.write("Zoe/colors/colors.ini", " 100 \r\n 200 \r\n 300 \r\n 400 \r\n");
        session.programFolder = folder.path();
        session.UserName = "Zoe";
    }

    ~ReportWindowTest() override { static_cast<Application*>(qApp)->restorePrompts(); }

    template <typename Control>
    static Control& control(const QWidget& window, QAnyStringView name)
    {
        auto* found = window.findChild<Control*>(name.toString());
        if (found == nullptr) throw std::runtime_error("no control " + name.toString().toStdString());
        return *found;
    }

    static void showAndWait(QWidget& window)
    {
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window, kPatience));
    }

    static void click(QWidget& button) { QTest::mouseClick(&button, Qt::LeftButton); }

    /// The whole window closes at the release of Escape, not at the press.
    static void expectEscapeCloses(QWidget& window, QWidget& focused)
    {
        QTest::keyPress(&focused, Qt::Key_Escape);
        EXPECT_TRUE(window.isVisible());
        QTest::keyRelease(&focused, Qt::Key_Escape);
        EXPECT_FALSE(window.isVisible());
    }

    /// The colours of the user's file (background 100, labels 300) have reached the window.
    static void expectPainted(const QWidget& window, const QWidget& label)
    {
        EXPECT_EQ(window.palette().color(QPalette::Window), QColor(100, 0, 0));
        EXPECT_EQ(label.palette().color(QPalette::WindowText), QColor(300 - 256, 1, 0));
    }

    TemporaryFolder folder;
    ScriptedPrompts prompts;
    RecordingDesktop desktop;
    FixedClock clock;
    Session session = reportSession();
    Services services{session, prompts, desktop, clock};
};

}  // namespace kavo::test
