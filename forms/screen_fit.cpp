// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/screen_fit.h"

#include <QApplication>
#include <QDialog>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <QVBoxLayout>

namespace kavo {

namespace {

/// What a title bar and borders take at most. The real ones are not known before the window is shown.
constexpr QSize kWindowFrame(16, 40);

constexpr QLatin1StringView kSurface("scrolledSurface");

bool fits(const QSize& size, const QSize& room)
{
    return size.width() <= room.width() && size.height() <= room.height();
}

/// The designed size. Where there is none, the one that its contents ask for, of which the toolkit has cut off what is
/// more than two thirds of the screen.
QSize wantedSize(const QDialog& window)
{
    return window.testAttribute(Qt::WA_Resized) ? window.size() : window.size().expandedTo(window.sizeHint());
}

/// Moves everything in the window onto a surface that scrolls.
void makeScrollable(QDialog& window)
{
    auto* area = new QScrollArea(&window);
    area->setFrameShape(QFrame::NoFrame);
    area->setFocusPolicy(Qt::NoFocus);
    area->setWidgetResizable(true);
    auto* surface = new QWidget(area);
    surface->setObjectName(kSurface);
    surface->setPalette(window.palette());
    surface->setLayout(window.layout());
    area->setWidget(surface);
    auto* layout = new QVBoxLayout(&window);
    layout->setContentsMargins({});
    layout->addWidget(area);
    area->show();  // the layout of a shown window would do so only later, and let it be seen empty before
    QObject::connect(qApp, &QApplication::focusChanged, area, [area, surface](QWidget*, QWidget* now) {
        if (now != nullptr && surface->isAncestorOf(now)) area->ensureWidgetVisible(now);
    });
    const int bar = window.style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    window.resize(window.size() + QSize(bar, bar));
}

}  // namespace

QSize roomOn(const QScreen& screen)
{
    return screen.availableGeometry().size() - kWindowFrame;
}

void fitToScreen(QDialog& window)
{
    const QSize room = roomOn(*window.screen());
    if (!fits(window.minimumSizeHint(), room)) makeScrollable(window);
    window.resize(wantedSize(window).boundedTo(room));
}

bool isScrolledSurface(const QWidget& control)
{
    return control.objectName() == kSurface;
}

}  // namespace kavo
