// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/clickable_label.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace kavo {

void ClickableLabel::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Space:
    case Qt::Key_Return:
    case Qt::Key_Enter: emit chosenByKey(); break;
    default: QLabel::keyPressEvent(event);
    }
}

void ClickableLabel::mousePressEvent(QMouseEvent* event)
{
    event->accept();  // or the release would go elsewhere
}

void ClickableLabel::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton && rect().contains(event->position().toPoint())) emit clicked();
}

void ClickableLabel::mouseDoubleClickEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton) emit doubleClicked();
}

}  // namespace kavo
