// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

// What holds for every window that the main window opens.

#include "core/colour_set.h"
#include "forms/window_painting.h"
#include "tests/support/patience.h"
#include "tests/support/window_fixture.h"

#include <QAbstractButton>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>

#include <set>

namespace {

using kavo::test::allWindows;
using kavo::test::kPatience;
using kavo::test::WindowRow;

/// A part of a control, such as the edit line of a spin box.
bool isPart(const QWidget& control)
{
    return control.objectName().startsWith("qt_") || control.objectName().isEmpty();
}

/// Controls that a person can move to, in no order. Inner parts of controls are left out.
QList<QWidget*> controlsToReach(const QWidget& window)
{
    QList<QWidget*> controls;
    for (QWidget* control : window.findChildren<QWidget*>()) {
        const bool takesTab = (control->focusPolicy() & Qt::TabFocus) != 0;
        if (!isPart(*control) && takesTab && control->isEnabled() && control->isVisible()) controls << control;
    }
    return controls;
}

/// The width that a control's text needs, in its own font.
int widthOfText(const QWidget& control, const QString& text)
{
    return control.fontMetrics().size(Qt::TextShowMnemonic, text).width();
}

bool isClipped(const QWidget& control)
{
    if (const auto* label = qobject_cast<const QLabel*>(&control)) {
        if (label->text().isEmpty()) return false;
        if (label->wordWrap()) return label->heightForWidth(label->width()) > label->height();
        return widthOfText(*label, label->text()) > label->contentsRect().width() ||
               label->fontMetrics().height() > label->contentsRect().height();
    }
    if (const auto* button = qobject_cast<const QAbstractButton*>(&control))
        return button->sizeHint().width() > button->width() || button->sizeHint().height() > button->height();
    if (const auto* frame = qobject_cast<const QGroupBox*>(&control))
        return widthOfText(*frame, frame->title()) > frame->width();
    if (qobject_cast<const QLineEdit*>(&control) != nullptr ||
        qobject_cast<const QAbstractSpinBox*>(&control) != nullptr ||
        qobject_cast<const QComboBox*>(&control) != nullptr)
        return control.minimumSizeHint().height() > control.height();
    return false;
}

QStringList clippedControls(const QWidget& window)
{
    QStringList clipped;
    for (const QWidget* control : window.findChildren<QWidget*>())
        if (control->isVisible() && !isPart(*control) && isClipped(*control))
            clipped << control->objectName() + " (" + QLatin1StringView(control->metaObject()->className()) + ")";
    return clipped;
}

class EveryWindow : public kavo::test::ProgramTest, public testing::WithParamInterface<WindowRow>
{
protected:
    void look(const std::function<void(QWidget&)>& script)
    {
        if (!program) startLoggedIn();
        EXPECT_TRUE(kavo::test::withWindow(mainWindow(), GetParam(), script)) << GetParam().entry << " opened nothing";
    }
};

TEST_P(EveryWindow, HasItsNamesItsCaptionAndAllItsControls)
{
    look([](const QWidget& window) {
        const WindowRow& row = GetParam();
        EXPECT_STREQ(window.metaObject()->className(), row.className);
        EXPECT_EQ(window.objectName(), QLatin1StringView(row.className));
        EXPECT_EQ(window.windowTitle(), QLatin1StringView(row.caption));
        for (const char* name : row.controls)
            EXPECT_NE(window.findChild<QWidget*>(QLatin1StringView(name)), nullptr) << "no control " << name;
    });
}

TEST_P(EveryWindow, OpensForAUserWhoHasNothingYet)
{
    std::filesystem::remove_all(folder / "Marek");
    std::filesystem::create_directory(folder / "Marek");
    // Without settings each loading asks for them; nothing is chosen there.
    const auto refusingSettings = [this](const std::function<void()>& loading) {
        EXPECT_TRUE(kavo::test::withWindow("Form2", loading, [](QWidget& options) { options.close(); }));
        EXPECT_FALSE(folder.has("Marek/data.ini"));
    };
    refusingSettings([this] { startLoggedIn(); });
    const auto lookAtIt = [this] { look([](const QWidget& window) { EXPECT_TRUE(window.isVisible()); }); };
    // What the updater has brought is loaded.
    if (std::string_view(GetParam().className) == "Form7")
        refusingSettings(lookAtIt);
    else
        lookAtIt();
}

TEST_P(EveryWindow, OpensInsideTheFreeAreaOfTheScreen)
{
    look([](const QWidget& window) {
        const QRect area = window.screen()->availableGeometry();
        EXPECT_TRUE(area.contains(window.frameGeometry()))
            << window.frameGeometry().width() << " x " << window.frameGeometry().height() << " at "
            << window.frameGeometry().x() << ", " << window.frameGeometry().y();
    });
}

TEST_P(EveryWindow, BringsWhateverHasTheFocusIntoView)
{
    look([](QWidget& window) {
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitFor([&window] { return window.isActiveWindow(); }));
        for (QWidget* control : controlsToReach(window)) {
            control->setFocus();
            EXPECT_FALSE(control->visibleRegion().isEmpty()) << qPrintable(control->objectName());
        }
    });
}

TEST_P(EveryWindow, ClosesAtTheReleaseOfEscapeWhateverHasTheFocus)
{
    QStringList names;
    look([&names](const QWidget& window) {
        for (const QWidget* control : controlsToReach(window)) names << control->objectName();
    });
    EXPECT_FALSE(names.isEmpty());
    for (const QString& name : names) {
        look([&name](QWidget& window) {
            auto* control = window.findChild<QWidget*>(name);
            control->setFocus();
            QTest::keyPress(control, Qt::Key_Escape);
            EXPECT_TRUE(window.isVisible()) << "closed at the press in " << qPrintable(name);
            QTest::keyRelease(control, Qt::Key_Escape);
            EXPECT_EQ(window.isVisible(), !GetParam().closesOnEscape) << qPrintable(name);
        });
    }
    EXPECT_TRUE(mainWindow().isVisible());
}

TEST_P(EveryWindow, EscapeOfAnotherWindowDoesNotCloseIt)
{
    look([](QWidget& window) {
        QTest::keyRelease(&window, Qt::Key_A);
        QWidget box;
        box.show();
        QTest::keyPress(&box, Qt::Key_Escape);
        QTest::keyRelease(&window, Qt::Key_Escape);
        EXPECT_TRUE(window.isVisible());
    });
}

TEST_P(EveryWindow, NamesEveryControlToAScreenReader)
{
    look([](const QWidget& window) {
        for (QWidget* control : controlsToReach(window)) {
            const QAccessibleInterface* face = QAccessible::queryAccessibleInterface(control);
            ASSERT_NE(face, nullptr);
            EXPECT_FALSE(face->text(QAccessible::Name).trimmed().isEmpty()) << qPrintable(control->objectName());
        }
    });
}

TEST_P(EveryWindow, CutsNoTextAtTheUsualSize)
{
    look([](const QWidget& window) { EXPECT_EQ(clippedControls(window).join(", ").toStdString(), ""); });
}

TEST_P(EveryWindow, CutsNoTextAtOneAndAHalfTimesTheSize)
{
    const QFont usual = QApplication::font();
    QFont large = usual;
    large.setPointSizeF(usual.pointSizeF() * 1.5);
    QApplication::setFont(large);
    look([](const QWidget& window) { EXPECT_EQ(clippedControls(window).join(", ").toStdString(), ""); });
    QApplication::setFont(usual);
}

TEST_P(EveryWindow, IsPaintedWithTheFourWindowColours)
{
    const QColor back(10, 20, 30);
    const QColor frames(200, 0, 0);
    const QColor text(0, 250, 0);
    std::string file;
    for (const QColor& colour : {back, frames, text, QColor(1, 2, 3)})
        file += std::to_string(kavo::fromQColor(colour)) + "\r\n";
    folder.write("Marek/colors/colors.ini", file);
    look([&](const QWidget& window) {
        EXPECT_EQ(window.palette().color(QPalette::Window), back);
        for (const QWidget* control : window.findChildren<QWidget*>()) {
            const QPalette palette = control->palette();
            // Swatches show the colours themselves; links have a colour of their own.
            const bool hasOwnColour =
                control->inherits("kavo::Swatch") || control->cursor().shape() == Qt::PointingHandCursor;
            const bool isText = qobject_cast<const QLabel*>(control) != nullptr && !hasOwnColour;
            const bool isOption = qobject_cast<const QRadioButton*>(control) != nullptr;
            const bool isFrame = qobject_cast<const QGroupBox*>(control) != nullptr;
            const std::string name = control->objectName().toStdString();
            if (isText || isOption || isFrame) {
                EXPECT_EQ(palette.color(control->backgroundRole()), back) << name;
                EXPECT_EQ(palette.color(QPalette::WindowText), isFrame ? frames : text) << name;
            }
            if (qobject_cast<const QPushButton*>(control) != nullptr) {
                EXPECT_EQ(palette.color(QPalette::Active, QPalette::Button),
                          QApplication::palette().color(QPalette::Active, QPalette::Button))
                    << name;
                EXPECT_EQ(palette.color(QPalette::Active, QPalette::ButtonText),
                          QApplication::palette().color(QPalette::Active, QPalette::ButtonText))
                    << name;
            }
        }
    });
}

TEST_P(EveryWindow, IsWalkedThroughByKeyboardAlone)
{
    look([](QWidget& window) {
        window.activateWindow();
        // The system's word for it comes before Qt's, which brings the focus.
        ASSERT_TRUE(QTest::qWaitFor([&window] { return QApplication::activeWindow() == &window; }, kPatience));
        std::set<QString> missing;
        const auto controls = controlsToReach(window);
        for (const QWidget* control : controls) missing.insert(control->objectName());
        ASSERT_NE(window.focusWidget(), nullptr) << "nothing has the focus at first";
        for (qsizetype step = 0; step < 2 * controls.size() && window.focusWidget() != nullptr; ++step) {
            missing.erase(window.focusWidget()->objectName());
            // A group of option buttons is one stop: the arrow keys move within it.
            if (qobject_cast<const QRadioButton*>(window.focusWidget()) != nullptr)
                for (const auto* option : window.findChildren<QRadioButton*>()) missing.erase(option->objectName());
            QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
        }
        for (const QString& name : missing) ADD_FAILURE() << "Tab does not reach " << qPrintable(name);
    });
}

INSTANTIATE_TEST_SUITE_P(Windows, EveryWindow, testing::ValuesIn(allWindows()),
                         [](const auto& row) { return std::string(row.param.className); });

}  // namespace
