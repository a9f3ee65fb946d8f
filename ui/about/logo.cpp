// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/about/logo.h"

#include <QIconEngine>
#include <QPainter>
#include <QPixmap>

#include <algorithm>
#include <array>

namespace kavo {

namespace {

constexpr std::array kDrawnSizes = {16, 22, 24, 32, 48, 64, 128, 256, 512};

/// The smallest picture that need not be made larger, if there is one.
QPixmap pictureFor(int size)
{
    const auto* drawn = std::lower_bound(kDrawnSizes.begin(), kDrawnSizes.end() - 1, size);
    return QPixmap(QStringLiteral(":/kavo-timing-%1.png").arg(*drawn));
}

/// Tells no sizes of its own, so that windows hand the four usual ones to the desktop, not half a million pixels.
class LogoEngine final : public QIconEngine
{
public:
    QPixmap pixmap(const QSize& size, QIcon::Mode, QIcon::State) override
    {
        const QPixmap picture = pictureFor(std::min(size.width(), size.height()));
        return picture.size() == size ? picture : picture.scaled(size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override
    {
        const QPixmap picture =
            pixmap((QSizeF(rect.size()) * painter->device()->devicePixelRatioF()).toSize(), mode, state);
        painter->drawPixmap(rect, picture);
    }

    [[nodiscard]] QIconEngine* clone() const override { return new LogoEngine; }
};

}  // namespace

QIcon logo()
{
    return QIcon(new LogoEngine);
}

}  // namespace kavo
