#include "ui/settings/swatch.h"

#include <QKeyEvent>
#include <QPainter>

namespace kavo {

Swatch::Swatch(QWidget* parent) : QLabel(parent)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

QSize Swatch::sizeHint() const
{
    constexpr int kMargin = 8;  // pixels
    const int height = fontMetrics().height() + kMargin;
    return {2 * height, height};
}

void Swatch::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter: emit clicked(); break;
    default: QLabel::keyPressEvent(event);
    }
}

void Swatch::mousePressEvent(QMouseEvent* event)
{
    event->accept();
}

void Swatch::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) emit clicked();
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
