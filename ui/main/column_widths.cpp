// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/main/column_widths.h"

#include <QHeaderView>
#include <QScrollBar>
#include <QSet>
#include <QStyle>
#include <QTreeView>

#include <algorithm>
#include <cmath>

namespace kavo {

namespace {

/// What each column has room for in the designed layout, in bold.
constexpr std::array<const char*, kColumns> kDesignedTexts = {"54, Apple Harvest of", "Player name",  "Professional",
                                                              "Player name",          "Professional", "Difference",
                                                              "Team of both",         "Professional", "Player name"};
constexpr int kCellMargin = 20;  // pixels
constexpr int kLastColumn = kColumns - 1;

}  // namespace

ColumnWidths::ColumnWidths(QTreeView& list) : m_list(list) {}

void ColumnWidths::design()
{
    for (int column = 0; column < kColumns; ++column) {
        const int width = designed(column);
        m_list.setColumnWidth(column, width);
        m_given.at(static_cast<std::size_t>(column)) = width;
    }
}

void ColumnWidths::set(int column, int width)
{
    m_list.setColumnWidth(column, width);
    m_given.at(static_cast<std::size_t>(column)) = 0;
}

void ColumnWidths::follow()
{
    for (int column = 0; column < kColumns; ++column) {
        if (!isAsDesigned(column)) continue;
        const int width = std::max(designed(column), needed(column));
        m_list.setColumnWidth(column, width);
        m_given.at(static_cast<std::size_t>(column)) = width;
    }
}

void ColumnWidths::fit()
{
    follow();
    for (int column = 0; column < kColumns; ++column)
        if (const int width = needed(column); m_list.columnWidth(column) < width) m_list.setColumnWidth(column, width);
}

int ColumnWidths::total() const
{
    int total = m_list.verticalScrollBar()->sizeHint().width();
    for (int column = 0; column < kColumns; ++column) total += m_list.columnWidth(column);
    return total;
}

int ColumnWidths::designed(int column) const
{
    QFont font = m_list.font();
    font.setBold(true);
    const QLatin1StringView text(kDesignedTexts.at(static_cast<std::size_t>(column)));
    return QFontMetrics(font).horizontalAdvance(text) + kCellMargin;
}

/// What sizeHintForColumn tells of a list that shows all its rows. Each text is measured once and laid out never, which
/// is a twelfth of the whole start.
int ColumnWidths::widestCell(int column) const
{
    const QAbstractItemModel& model = *m_list.model();
    std::array<QSet<QString>, 2> measured;  // plain, bold
    double widest = 0;
    for (int row = 0; row < model.rowCount(); ++row) {
        const QModelIndex cell = model.index(row, column);
        const QString text = cell.data().toString();
        const QFont font = cell.data(Qt::FontRole).value<QFont>().resolve(m_list.font());
        QSet<QString>& known = measured.at(font.bold() ? 1 : 0);
        if (known.contains(text)) continue;
        known.insert(text);
        widest = std::max(widest, QFontMetricsF(font).horizontalAdvance(text));
    }
    const int edge = m_list.style()->pixelMetric(QStyle::PM_FocusFrameHMargin, nullptr, &m_list) + 1;
    return static_cast<int>(std::ceil(widest)) + 2 * edge;
}

/// For all texts of a column, its header included; an endless name must not push the others out of the window.
int ColumnWidths::needed(int column) const
{
    constexpr int kLargest = 3;  // times the designed width
    const int texts = std::max(widestCell(column), m_list.header()->sectionSizeHint(column));
    return std::min(texts, kLargest * designed(column));
}

/// The last column fills what is left of the list, so its present width tells nothing.
bool ColumnWidths::isAsDesigned(int column) const
{
    const int given = m_given.at(static_cast<std::size_t>(column));
    return given > 0 && (column == kLastColumn || m_list.columnWidth(column) == given);
}

}  // namespace kavo
