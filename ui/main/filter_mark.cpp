// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/main/filter_mark.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPixmap>
#include <QPolygonF>

namespace kavo {

QIcon filterMark(const QColor& colour)
{
    constexpr int kSize = 16;  // pixels
    const QPolygonF funnel({{2, 3}, {14, 3}, {9.5, 8.5}, {9.5, 14}, {6.5, 12}, {6.5, 8.5}});
    const qreal ratio = qGuiApp->devicePixelRatio();
    QPixmap pixmap(QSize(kSize, kSize) * ratio);
    pixmap.setDevicePixelRatio(ratio);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawPolygon(funnel);
    return pixmap;
}

}  // namespace kavo
