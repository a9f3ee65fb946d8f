// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/main/results_header.h"

#include "forms/screen_text.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>

#include <algorithm>

namespace kavo {

ResultsHeader::ResultsHeader(QWidget* parent) : QHeaderView(Qt::Horizontal, parent)
{
    constexpr int kNarrowest = 10;  // pixels; by itself it grows with the font, and stored widths with it
    setMinimumSectionSize(kNarrowest);
    setSectionsMovable(false);
    setStretchLastSection(true);
    setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    setTextElideMode(Qt::ElideRight);
    setFocusPolicy(Qt::TabFocus);
}

bool ResultsHeader::viewportEvent(QEvent* event)
{
    if (event->type() != QEvent::ToolTip) return QHeaderView::viewportEvent(event);
    showToolTip(*static_cast<QHelpEvent*>(event));
    return true;
}

void ResultsHeader::showToolTip(const QHelpEvent& event)
{
    const int section = logicalIndexAt(event.pos());
    if (section < 0) return;
    const QString cut = isCut(section) ? text(section, Qt::DisplayRole) : QString();
    QToolTip::showText(event.globalPos(), toolTipOf({cut, text(section, Qt::ToolTipRole)}), this);
}

bool ResultsHeader::isCut(int section) const
{
    return sectionSizeFromContents(section).width() > sectionSize(section);
}

QString ResultsHeader::text(int section, int role) const
{
    return model()->headerData(section, orientation(), role).toString();
}

void ResultsHeader::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Left: choose(m_chosen - 1); break;
    case Qt::Key_Right: choose(m_chosen + 1); break;
    case Qt::Key_Home: choose(0); break;
    case Qt::Key_End: choose(count() - 1); break;
    case Qt::Key_Space:
        if (!event->isAutoRepeat()) emit sectionClicked(m_chosen);
        break;
    default: event->ignore();  // the table's keys work here, too
    }
}

void ResultsHeader::choose(int section)
{
    m_chosen = qBound(0, section, count() - 1);
    nameChosen();
    showChosen();
    viewport()->update();
}

/// Scrolls the table, and the header with it, where the chosen column is not in view.
void ResultsHeader::showChosen()
{
    auto* table = qobject_cast<QAbstractScrollArea*>(parentWidget());
    if (table == nullptr) return;
    const int left = sectionViewportPosition(m_chosen);
    const int missing = left + sectionSize(m_chosen) - viewport()->width();
    QScrollBar& bar = *table->horizontalScrollBar();
    bar.setValue(bar.value() + std::min(left, std::max(missing, 0)));
}

/// The chosen header is what a screen reader is told of.
void ResultsHeader::nameChosen()
{
    setAccessibleName(text(m_chosen, Qt::DisplayRole));
    setAccessibleDescription(text(m_chosen, Qt::ToolTipRole));
}

void ResultsHeader::focusInEvent(QFocusEvent* event)
{
    QHeaderView::focusInEvent(event);
    nameChosen();
    showChosen();
    viewport()->update();
}

void ResultsHeader::focusOutEvent(QFocusEvent* event)
{
    QHeaderView::focusOutEvent(event);
    viewport()->update();
}

/// Texts that are too long end in dots. By itself the toolkit measures them against the whole header.
void ResultsHeader::initStyleOptionForIndex(QStyleOptionHeader* option, int section) const
{
    QHeaderView::initStyleOptionForIndex(option, section);
    const int margin = style()->pixelMetric(QStyle::PM_HeaderMargin, option, this);
    const int icon = option->icon.isNull() ? 0 : style()->pixelMetric(QStyle::PM_SmallIconSize, option, this) + margin;
    const int room = sectionSize(section) - 2 * margin - icon;
    option->text = option->fontMetrics.elidedText(option->text, Qt::ElideRight, room);
}

void ResultsHeader::paintSection(QPainter* painter, const QRect& rect, int section) const
{
    painter->save();
    QHeaderView::paintSection(painter, rect, section);
    painter->restore();
    if (!hasFocus() || section != m_chosen) return;
    constexpr int kLine = 2;  // pixels
    painter->setPen(QPen(palette().color(QPalette::ButtonText), kLine));
    painter->drawRect(rect.adjusted(kLine / 2, kLine / 2, -kLine, -kLine));
}

}  // namespace kavo
