// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/main/layout_keeper.h"

#include "base/file_name.h"
#include "base/text_file.h"
#include "core/session.h"
#include "forms/screen_fit.h"
#include "forms/twips.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTreeView>

#include <algorithm>
#include <utility>

namespace kavo {

namespace {

constexpr double kFinalTop = 10;            // twips
constexpr double kHeightBelowScreen = 550;  // twips

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
    : m_window(window), m_list(list), m_session(session), m_columns(list)
{
}

void LayoutKeeper::applyDesigned()
{
    m_columns.design();
    m_isDesigned = true;
    showAllColumns();
}

/// As wide as the columns, and as high as the screen.
void LayoutKeeper::showAllColumns()
{
    const QScreen& screen = *QGuiApplication::primaryScreen();
    const QRect area = screen.availableGeometry();
    const QSize room = roomOn(screen);
    const int width = std::min(m_columns.total(), room.width());
    m_window.resize(width, room.height());
    m_window.move(area.left() + (area.width() - width) / 2, area.top());
}

void LayoutKeeper::apply(const std::vector<double>& values)
{
    m_isDesigned = false;
    const WindowLayout layout = withValues(current(), values);
    if (hasOrdinaryPlace(m_window)) {
        m_window.move(toPixels(layout.left), toPixels(layout.top));
        m_window.resize(toPixels(layout.width), toPixels(layout.height));
    }
    for (std::size_t column = 0; column < layout.columnWidths.size(); ++column)
        if (kPlaceValues + column < values.size())
            m_columns.set(static_cast<int>(column), toPixels(layout.columnWidths.at(column)));
}

void LayoutKeeper::followFontAndTexts()
{
    m_columns.follow();
    if (std::exchange(m_isDesigned, false)) showAllColumns();
}

void LayoutKeeper::fitChosenFont()
{
    m_columns.fit();
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
