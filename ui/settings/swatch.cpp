// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/settings/swatch.h"

#include <QAccessibleWidget>
#include <QPainter>

#include <algorithm>

namespace kavo {

namespace {

int distance(const QColor& first, const QColor& second)
{
    const auto square = [](int number) { return number * number; };
    return square(first.red() - second.red()) + square(first.green() - second.green()) +
           square(first.blue() - second.blue());
}

/// What a screen reader is told of a swatch.
class SwatchFace final : public QAccessibleWidget
{
public:
    explicit SwatchFace(Swatch& swatch) : QAccessibleWidget(&swatch, QAccessible::Button), m_swatch(swatch) {}

    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        const QString plain = QAccessibleWidget::text(kind);
        return kind == QAccessible::Name ? plain + ": " + m_swatch.colourName() : plain;
    }

    [[nodiscard]] QStringList actionNames() const override
    {
        return QStringList(pressAction()) << QAccessibleWidget::actionNames();
    }

    void doAction(const QString& name) override
    {
        if (name == pressAction())
            QMetaObject::invokeMethod(&m_swatch, &Swatch::clicked, Qt::QueuedConnection);
        else
            QAccessibleWidget::doAction(name);
    }

private:
    Swatch& m_swatch;
};

QAccessibleInterface* swatchFace(const QString&, QObject* object)
{
    auto* swatch = qobject_cast<Swatch*>(object);
    return swatch == nullptr ? nullptr : new SwatchFace(*swatch);
}

}  // namespace

Swatch::Swatch(QWidget* parent) : ClickableLabel(parent)
{
    QAccessible::installFactory(swatchFace);
    connect(this, &Swatch::chosenByKey, this, &Swatch::clicked);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize Swatch::sizeHint() const
{
    constexpr int kMargin = 8;  // pixels
    const int height = fontMetrics().height() + kMargin;
    return {2 * height, height};
}

QString Swatch::colourName() const
{
    const QColor colour = palette().color(QPalette::Window);
    const QStringList names = QColor::colorNames();
    return *std::min_element(names.begin(), names.end(), [&colour](const QString& a, const QString& b) {
        return distance(QColor(a), colour) < distance(QColor(b), colour);
    });
}

void Swatch::changeEvent(QEvent* event)
{
    ClickableLabel::changeEvent(event);
    if (event->type() != QEvent::PaletteChange) return;
    QAccessibleEvent renamed(this, QAccessible::NameChanged);
    QAccessible::updateAccessibility(&renamed);
}

void Swatch::paintEvent(QPaintEvent*)
{
    // A dark line and a light one: whatever the swatch and the window show, one of them is seen.
    const int line = hasFocus() ? 3 : 1;
    QPainter painter(this);
    painter.fillRect(rect(), Qt::black);
    painter.fillRect(rect().adjusted(line, line, -line, -line), Qt::white);
    painter.fillRect(rect().adjusted(2 * line, 2 * line, -2 * line, -2 * line), palette().color(QPalette::Window));
}

}  // namespace kavo
