// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/pictures.h"

#include "app/application.h"
#include "app/program.h"
#include "base/text_file.h"
#include "core/colour_set.h"
#include "forms/screen_text.h"
#include "reports/template_file.h"
#include "tests/support/all_windows.h"
#include "tests/support/places.h"
#include "tests/support/program_folder_fixture.h"

#include <QAbstractButton>
#include <QAction>
#include <QComboBox>
#include <QFontDatabase>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QScreen>
#include <QSpinBox>
#include <QTreeView>

#include <algorithm>

namespace kavo::test {

namespace {

using Look = std::function<void(const QString& name, QWidget& window)>;

constexpr int kMainWindowHeight = 600;
constexpr int kSchemeHeight = 240;
constexpr int kLevel = 8;  ///< that the levels' statistics show

std::filesystem::path dataFolder()
{
    return kavo::test::sourceFolder() / "data";
}

void settle()
{
    QApplication::processEvents();
    QApplication::processEvents();  // what the first round has asked for
}

/// One run over all pictures.
class Stage final
{
public:
    explicit Stage(Look look) : m_look(std::move(look)), m_program(m_demo.path(), application().prompts())
    {
        copyDemo(m_demo);
        m_demo.write("autolog.dat", " 1 \r\n");
        m_program.start();
    }

    bool showAll()
    {
        showMainWindow();
        showSchemes();
        const auto& windows = allWindows();
        const bool haveAllCome = std::all_of(windows.begin(), windows.end(), [this](const WindowRow& row) {
            prepare(row);
            return withWindow(m_program.mainWindow(), row, [&](QWidget& window) {
                fill(window);
                settle();
                m_look(QLatin1StringView(row.image), window);
            });
        });
        showLogin();
        return haveAllCome;
    }

private:
    static Application& application() { return *static_cast<Application*>(qApp); }

    void showMainWindow()
    {
        Form1& window = m_program.mainWindow();
        window.resize(window.width(), kMainWindowHeight);
        settle();
        m_look("main-window", window);
        auto& menu = *window.findChild<QMenu*>("popup");
        menu.popup(window.pos());
        settle();
        m_look("menu", menu);
        menu.close();
    }

    void showSchemes()
    {
        std::vector<std::filesystem::path> schemes;
        for (const auto& file : std::filesystem::directory_iterator(dataFolder() / "schemes")) schemes.push_back(file);
        std::sort(schemes.begin(), schemes.end());
        Form1& window = m_program.mainWindow();
        for (const auto& scheme : schemes) {
            m_demo.write("Marek/colors/colors.ini", readFile(scheme));
            window.reload();
            window.resize(window.width(), kSchemeHeight);
            settle();
            m_look("scheme-" + pathToScreen(scheme.stem()).toLower(), window);
        }
        std::filesystem::remove(m_demo / "Marek/colors/colors.ini");
        window.reload();
    }

    void prepare(const WindowRow& row)
    {
        auto& list = *m_program.mainWindow().findChild<QTreeView*>("lv");
        if (std::string_view(row.image) == "level-statistics") list.setCurrentIndex(list.model()->index(kLevel - 1, 0));
    }

    /// Puts a supplied template into the editor's boxes.
    static void fill(const QWidget& window)
    {
        if (window.objectName() != "Form11") return;
        const TemplateSections sections = loadTemplateFile({}, dataFolder() / "templates/plain-table.ett");
        for (const auto& [box, text] : {std::pair{"Text2", &sections.beginning}, std::pair{"Text3", &sections.loop},
                                        std::pair{"Text4", &sections.total}, std::pair{"Text5", &sections.ending}})
            window.findChild<QPlainTextEdit*>(QLatin1StringView(box))
                ->setPlainText(QString::fromStdString(*text).remove('\r'));
    }

    void showLogin()
    {
        m_program.mainWindow().hide();
        m_demo.write("autolog.dat", "0");
        m_program.showLogin("Marek", false);
        settle();
        m_look("login", m_program.loginWindow());
    }

    Look m_look;
    TemporaryFolder m_demo;
    Program m_program;
};

QString describeMenu(const QMenu& menu)
{
    QStringList entries;
    for (const QAction* entry : menu.actions())
        entries << (entry->isSeparator() ? "-" : (entry->text() + ' ' + entry->shortcut().toString()).trimmed());
    return entries.join(" | ");
}

QString describeTable(const QTreeView& table)
{
    const QAbstractItemModel& model = *table.model();
    QStringList texts;
    for (int column = 0; column < model.columnCount(); ++column)
        texts << model.headerData(column, Qt::Horizontal).toString();
    for (int row = 0; row < model.rowCount(); ++row)
        for (int column = 0; column < model.columnCount(); ++column)
            texts << model.index(row, column).data().toString();
    return texts.join(" | ");
}

QString describeList(const QListWidget& list)
{
    QStringList texts;
    for (int row = 0; row < list.count(); ++row) texts << list.item(row)->text();
    return texts.join(" | ");
}

/// The text that a control shows; nothing for one without.
QString textOf(const QWidget& control)
{
    if (const auto* label = qobject_cast<const QLabel*>(&control)) return label->text();
    if (const auto* button = qobject_cast<const QAbstractButton*>(&control))
        return button->text() + (button->isChecked() ? QString(" (chosen)") : QString());
    if (const auto* frame = qobject_cast<const QGroupBox*>(&control)) return frame->title();
    if (const auto* combo = qobject_cast<const QComboBox*>(&control)) return combo->currentText();
    if (const auto* number = qobject_cast<const QSpinBox*>(&control)) return number->text();
    if (const auto* line = qobject_cast<const QLineEdit*>(&control))
        return line->text().isEmpty() ? line->placeholderText() : line->text();
    if (const auto* box = qobject_cast<const QPlainTextEdit*>(&control)) return box->toPlainText();
    if (const auto* list = qobject_cast<const QListWidget*>(&control)) return describeList(*list);
    if (const auto* table = qobject_cast<const QTreeView*>(&control)) return describeTable(*table);
    if (const auto* bar = qobject_cast<const QProgressBar*>(&control))
        return QString("%1 of %2").arg(bar->value()).arg(bar->maximum());
    return {};
}

}  // namespace

bool showPictures(const Look& look)
{
    return Stage(look).showAll();
}

QString describe(QWidget& window)
{
    QStringList lines = {QString("size %1 x %2").arg(window.width()).arg(window.height())};
    if (const auto* menu = qobject_cast<const QMenu*>(&window)) return (lines << describeMenu(*menu)).join('\n') + '\n';
    lines << "caption: " + window.windowTitle();
    for (const QWidget* control : window.findChildren<QWidget*>()) {
        const bool isOwn = !control->objectName().isEmpty() && !control->objectName().startsWith("qt_");
        const QString text = textOf(*control);
        if (isOwn && control->isVisibleTo(&window) && !text.isEmpty())
            lines << control->objectName() + ": " + QString(text).replace('\n', " / ");
    }
    return lines.join('\n') + '\n';
}

QString surroundings()
{
    QStringList fonts;
    for (const QFont& font : {QApplication::font(), QFontDatabase::systemFont(QFontDatabase::FixedFont)}) {
        const QFontMetrics metrics(font);
        fonts
            << QString("%1 x %2").arg(metrics.horizontalAdvance("The quick brown fox: 00:16:32")).arg(metrics.height());
    }
    const QSize screen = QGuiApplication::primaryScreen()->size() * qApp->devicePixelRatio();
    return QString("fonts %1; screen %2 x %3").arg(fonts.join(", ")).arg(screen.width()).arg(screen.height());
}

}  // namespace kavo::test
