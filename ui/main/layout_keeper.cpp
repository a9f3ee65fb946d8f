#include "ui/main/layout_keeper.h"

#include "base/file_name.h"
#include "base/text_file.h"
#include "core/results_table.h"
#include "core/session.h"
#include "forms/twips.h"

#include <QGuiApplication>
#include <QScreen>
#include <QScrollBar>
#include <QTreeView>

#include <algorithm>
#include <array>

namespace kavo {

namespace {

constexpr double kFinalTop = 10;            // twips
constexpr double kHeightBelowScreen = 550;  // twips

/// What each column has room for in the designed layout, in bold.
constexpr std::array<const char*, kColumns> kDesignedTexts = {"54, Apple Harvest of", "Player name",  "Professional",
                                                              "Player name",          "Professional", "Difference",
                                                              "Team of both",         "Professional", "Player name"};
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

LayoutKeeper::LayoutKeeper(QWidget& window, QTreeView& list, const Session& session)
    : m_window(window), m_list(list), m_session(session)
{
}

void LayoutKeeper::applyDesigned()
{
    QFont font = m_list.font();
    font.setBold(true);
    const QFontMetrics metrics(font);
    int width = m_list.verticalScrollBar()->sizeHint().width();
    for (int column = 0; column < kColumns; ++column) {
        const int columnWidth = metrics.horizontalAdvance(kDesignedTexts.at(static_cast<std::size_t>(column)));
        m_list.setColumnWidth(column, columnWidth + kCellMargin);
        width += columnWidth + kCellMargin;
    }
    const QRect area = QGuiApplication::primaryScreen()->availableGeometry();
    m_window.resize(std::min(width, area.width()), area.height());
    m_window.move(area.left() + std::max(0, (area.width() - width) / 2), area.top());
}

void LayoutKeeper::apply(const std::vector<double>& values)
{
    const WindowLayout layout = withValues(current(), values);
    if (hasOrdinaryPlace(m_window)) {
        m_window.move(toPixels(layout.left), toPixels(layout.top));
        m_window.resize(toPixels(layout.width), toPixels(layout.height));
    }
    for (int column = 0; column < kStoredColumns; ++column)
        m_list.setColumnWidth(column, toPixels(layout.columnWidths.at(static_cast<std::size_t>(column))));
}

void LayoutKeeper::applyFinalPlace()
{
    if (!hasOrdinaryPlace(m_window)) return;
    m_window.move(m_window.pos().x(), toPixels(kFinalTop));
    m_window.resize(m_window.width(), toPixels(toTwips(m_window.screen()->geometry().height()) - kHeightBelowScreen));
}

void LayoutKeeper::keepOnScreen()
{
    if (!hasOrdinaryPlace(m_window)) return;
    constexpr int kVisible = 100;  // pixels of the window's top edge that must be within reach
    const QRect top(m_window.pos(), QSize(m_window.width(), kVisible));
    for (const QScreen* screen : QGuiApplication::screens())
        if (screen->geometry().intersected(top).width() >= std::min(kVisible, m_window.width())) return;
    m_window.move(QGuiApplication::primaryScreen()->availableGeometry().topLeft());
}

WindowLayout LayoutKeeper::current() const
{
    WindowLayout layout;
    const QRect place = ordinaryPlace(m_window);
    layout.left = toTwips(place.x());
    layout.top = toTwips(place.y());
    layout.height = toTwips(place.height());
    layout.width = toTwips(place.width());
    for (int column = 0; column < kStoredColumns; ++column)
        layout.columnWidths.at(static_cast<std::size_t>(column)) = toTwips(m_list.columnWidth(column));
    return layout;
}

void LayoutKeeper::save(Flush flush)
{
    const auto& folder = m_session.userFolder;
    if (folder.empty() || !folderExists(folder)) return;
    const auto path = layoutFile(folder);
    const std::string text = formatLayout(current());
    const bool mustFlush = flush == Flush::ToDisk && !m_isFlushed;
    if (!mustFlush && readFileIfThere(path) == text) return;
    m_isFlushed = false;
    replaceFile(path, text, flush);
    m_isFlushed = flush == Flush::ToDisk;
}

}  // namespace kavo
