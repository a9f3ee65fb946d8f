// Place, size and column widths of the main window, and the file that keeps them.

#include "base/file_name.h"
#include "base/run_time_error.h"
#include "base/text_file.h"
#include "core/window_layout.h"
#include "forms/prompts.h"
#include "forms/twips.h"
#include "ui/main/main_window.h"
#include "ui_main_window.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QScreen>
#include <QScrollBar>

#include <algorithm>
#include <array>
#include <utility>

using kavo::toPixels;
using kavo::toTwips;

namespace {

constexpr double kFinalTop = 10;            // twips
constexpr double kHeightBelowScreen = 550;  // twips

/// What each column has room for in the designed layout, in bold.
constexpr std::array<const char*, kavo::kColumns> kDesignedTexts = {
    "54, Apple Harvest of", "Player name",  "Professional", "Player name", "Professional",
    "Difference",           "Team of both", "Professional", "Player name"};
constexpr int kCellMargin = 20;  // pixels

bool hasOrdinaryPlace(const QWidget& window)
{
    return !(window.windowState() & (Qt::WindowMaximized | Qt::WindowFullScreen | Qt::WindowMinimized));
}

/// Corner with the frame, size without. Behind a maximized window lies the place that it goes back to.
QRect ordinaryPlace(const QWidget& window)
{
    if (hasOrdinaryPlace(window)) return {window.pos(), window.size()};
    const QRect behind = window.normalGeometry();
    return behind.translated(window.pos() - window.geometry().topLeft());
}

}  // namespace

void Form1::applyDesignedLayout()
{
    QFont font = ui->lv->font();
    font.setBold(true);
    const QFontMetrics metrics(font);
    int width = ui->lv->verticalScrollBar()->sizeHint().width();
    for (int column = 0; column < kavo::kColumns; ++column) {
        const int columnWidth = metrics.horizontalAdvance(kDesignedTexts.at(static_cast<std::size_t>(column)));
        ui->lv->setColumnWidth(column, columnWidth + kCellMargin);
        width += columnWidth + kCellMargin;
    }
    const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
    resize(std::min(width, area.width()), area.height());
    move(area.left() + std::max(0, (area.width() - width) / 2), area.top());
}

void Form1::applyLayout(const std::vector<double>& values)
{
    const kavo::WindowLayout layout = kavo::withValues(currentLayout(), values);
    if (hasOrdinaryPlace(*this)) {
        move(toPixels(layout.left), toPixels(layout.top));
        resize(toPixels(layout.width), toPixels(layout.height));
    }
    for (int column = 0; column < kavo::kStoredColumns; ++column)
        ui->lv->setColumnWidth(column, toPixels(layout.columnWidths.at(static_cast<std::size_t>(column))));
}

void Form1::layoutLoaded()
{
    LayoutLoaded = true;
}

void Form1::keepOnScreen()
{
    if (!hasOrdinaryPlace(*this)) return;
    // A stored place may lie on a screen that has been unplugged since.
    constexpr int kVisible = 100;  // pixels of the window's top edge that must be within reach
    const QRect top(pos(), QSize(width(), kVisible));
    for (const QScreen* screen : QGuiApplication::screens())
        if (screen->geometry().intersected(top).width() >= std::min(kVisible, width())) return;
    move(QGuiApplication::primaryScreen()->availableGeometry().topLeft());
}

void Form1::applyFinalPlace()
{
    if (!hasOrdinaryPlace(*this)) return;
    // Whatever the file said: only the left edge, the widths and the columns carry over.
    move(pos().x(), toPixels(kFinalTop));
    resize(width(), toPixels(toTwips(screen()->geometry().height()) - kHeightBelowScreen));
}

kavo::WindowLayout Form1::currentLayout() const
{
    kavo::WindowLayout layout;
    const QRect place = ordinaryPlace(*this);
    layout.left = toTwips(place.x());
    layout.top = toTwips(place.y());
    layout.height = toTwips(place.height());
    layout.width = toTwips(place.width());
    for (int column = 0; column < kavo::kStoredColumns; ++column)
        layout.columnWidths.at(static_cast<std::size_t>(column)) = toTwips(ui->lv->columnWidth(column));
    return layout;
}

void Form1::saveLayout()
{
    const auto& folder = m_services.session.userFolder;
    if (folder.empty() || !kavo::folderExists(folder)) return;
    try {
        const auto path = kavo::layoutFile(folder);
        const std::string text = kavo::formatLayout(currentLayout());
        if (kavo::readFileIfThere(path) != text) kavo::replaceFile(path, text);
        m_layoutFailed = false;
    } catch (const kavo::RunTimeError& error) {
        // Every step of a resize comes here: the user is told once.
        if (std::exchange(m_layoutFailed, true)) return;
        m_services.prompts.tell(boxParent(), {.text = error.what(), .icon = kavo::MessageIcon::Critical});
    }
}

void Form1::Form_Resize()
{
    if (LayoutLoaded) saveLayout();
}

void Form1::Form_MouseUp()
{
    saveLayout();
}

void Form1::Form_QueryUnload()
{
    saveLayout();
}

void Form1::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    Form_Resize();
}

void Form1::mouseReleaseEvent(QMouseEvent* event)
{
    QWidget::mouseReleaseEvent(event);
    Form_MouseUp();
}

void Form1::closeEvent(QCloseEvent* event)
{
    Form_QueryUnload();
    event->accept();
    emit closed();
}
