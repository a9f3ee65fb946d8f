// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/main/results_delegate.h"

#include "forms/screen_text.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

namespace kavo {

namespace {

/// The part of the row's frame that lies in one of its cells.
void paintFrame(QPainter& painter, const QRect& cell, const QModelIndex& index, const QColor& colour, int line)
{
    painter.fillRect(cell.x(), cell.y(), cell.width(), line, colour);
    painter.fillRect(cell.x(), cell.y() + cell.height() - line, cell.width(), line, colour);
    if (index.column() == 0) painter.fillRect(cell.x(), cell.y(), line, cell.height(), colour);
    if (index.column() == index.model()->columnCount() - 1)
        painter.fillRect(cell.x() + cell.width() - line, cell.y(), line, cell.height(), colour);
}

}  // namespace

void ResultsDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    QStyleOptionViewItem plain = option;
    plain.state &= ~(QStyle::State_Selected | QStyle::State_HasFocus | QStyle::State_MouseOver);
    QStyledItemDelegate::paint(painter, plain, index);
    if (!(option.state & QStyle::State_Selected)) return;
    const bool hasFocus = option.widget != nullptr && option.widget->hasFocus();
    paintFrame(*painter, option.rect, index, option.palette.color(QPalette::Text), hasFocus ? 2 : 1);
}

bool ResultsDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                                const QModelIndex& index)
{
    if (event->type() != QEvent::ToolTip) return QStyledItemDelegate::helpEvent(event, view, option, index);
    const bool isCut = sizeHint(option, index).width() > option.rect.width();
    const QString text = isCut ? index.data(Qt::DisplayRole).toString() : QString();
    const QStringList notes = index.data(Qt::ToolTipRole).toString().split('\n');
    QToolTip::showText(event->globalPos(), toolTipOf(QStringList(text) + notes), view);
    return true;
}

}  // namespace kavo
