// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/about/link_label.h"

namespace kavo {

void LinkLabel::showAsLink()
{
    const QColor onLight(0, 84, 180);
    const QColor onDark(125, 185, 255);
    QPalette changed = palette();
    const bool isDark = changed.color(QPalette::Window).lightness() < 128;
    changed.setColor(QPalette::WindowText, isDark ? onDark : onLight);
    setPalette(changed);
}

void LinkLabel::focusInEvent(QFocusEvent* event)
{
    setFrameShape(QFrame::Box);
    ClickableLabel::focusInEvent(event);
}

void LinkLabel::focusOutEvent(QFocusEvent* event)
{
    setFrameShape(QFrame::NoFrame);
    ClickableLabel::focusOutEvent(event);
}

}  // namespace kavo
