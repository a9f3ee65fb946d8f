// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/main/results_model.h"

#include "core/grade_tip.h"
#include "core/player_names.h"
#include "forms/screen_text.h"
#include "forms/window_painting.h"
#include "ui/main/filter_mark.h"

#include <QFont>
#include <QGuiApplication>
#include <QPalette>

#include <algorithm>
#include <array>
#include <utility>

namespace kavo {

namespace {

struct GradedColumns
{
    Column time;
    Column grade;
};

constexpr std::array kGradedColumns = {GradedColumns{Column::Time1, Column::Target1},
                                       GradedColumns{Column::Time2, Column::Target2},
                                       GradedColumns{Column::Team, Column::Target}};

bool isSame(const Cell& a, const Cell& b)
{
    return a.text == b.text && a.colour == b.colour && a.bold == b.bold;
}

}  // namespace

ResultsModel::ResultsModel(const Session& session, QObject* parent) : QAbstractTableModel(parent), m_session(session) {}

int ResultsModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : m_session.table.rowCount();
}

int ResultsModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : kColumns;
}

QVariant ResultsModel::data(const QModelIndex& index, int role) const
{
    const int row = index.row() + 1;
    const auto column = static_cast<Column>(index.column());
    const Cell& cell = m_session.table.cell(row, column);
    switch (role) {
    case Qt::DisplayRole: return toScreen(cell.text);
    case Qt::ForegroundRole: return toQColor(cell.colour.value_or(m_session.colours.ColText));
    case Qt::FontRole: {
        QFont font;
        font.setBold(cell.bold);
        return font;
    }
    case Qt::ToolTipRole: return cellNotes(row, column).join('\n');
    case Qt::AccessibleDescriptionRole: return cellDescription(row, column);
    default: return {};
    }
}

/// Of a time or its grade: what is missing to the next one, and of player 1's what was better once.
QStringList ResultsModel::cellNotes(int row, Column column) const
{
    const auto* const graded =
        std::find_if(kGradedColumns.begin(), kGradedColumns.end(),
                     [column](const auto& columns) { return columns.time == column || columns.grade == column; });
    if (graded == kGradedColumns.end()) return {};
    const std::string& time = m_session.table.text(row, graded->time);
    QStringList notes(toScreen(gradeTip(m_session.state, row, time, m_session.table.text(row, graded->grade))));
    if (graded->time == Column::Time1 && row <= kLevels && m_note) notes << toScreen(m_note(row, time));
    notes.removeAll({});
    return notes;
}

/// What bold letters or a colour tell those who see them.
QString ResultsModel::cellDescription(int row, Column column) const
{
    const Cell& cell = m_session.table.cell(row, column);
    const bool isPlayer = column == Column::Time1 || column == Column::Time2;
    const bool isMarked = row == kTotalsRow ? cell.colour.has_value() : cell.bold;
    QStringList parts;
    if (isPlayer && isMarked && !cell.text.empty()) parts << "faster";
    parts << cellNotes(row, column);
    return parts.join(", ");
}

QVariant ResultsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal) return {};
    const auto column = static_cast<Column>(section);
    switch (role) {
    case Qt::DisplayRole: return toScreen(m_session.table.header(column));
    case Qt::TextAlignmentRole: return QVariant::fromValue(Qt::AlignLeft | Qt::AlignVCenter);
    case Qt::ToolTipRole:
    case Qt::AccessibleDescriptionRole: return headerToolTip(column);
    case Qt::DecorationRole:
        return isFiltered(column) ? filterMark(QGuiApplication::palette().color(QPalette::ButtonText)) : QVariant();
    default: return {};
    }
}

QString ResultsModel::headerToolTip(Column column) const
{
    QStringList parts;
    if (isFiltered(column))
        parts << QString(m_filter->side == FilterSide::Player1 ? "Filter #1" : "Filter #2") + ": " +
                     toScreen(m_filter->name) + ". F5 shows all levels.";
    if (isNameHeader(column)) parts << "Click to rename";
    return parts.join(" ");
}

bool ResultsModel::isFiltered(Column column) const
{
    return m_filter && column == (m_filter->side == FilterSide::Player1 ? Column::Time1 : Column::Time2);
}

void ResultsModel::markFilter(const std::optional<Filter>& filter)
{
    if (!filter && !m_filter) return;
    m_filter = filter;
    emit headerDataChanged(Qt::Horizontal, 0, kColumns - 1);
}

void ResultsModel::endChange()
{
    const ResultsTable before = std::exchange(m_before, {});
    if (before.rowCount() != rowCount()) {
        beginResetModel();
        endResetModel();
        return;
    }
    // Cell by cell: of a loading that changes little, little is painted. Painting all is most of what a loading takes.
    const ResultsTable& table = m_session.table;
    for (int row = 1; row <= rowCount(); ++row)
        for (int i = 0; i < kColumns; ++i) {
            const auto column = static_cast<Column>(i);
            if (isSame(before.cell(row, column), table.cell(row, column))) continue;
            emit dataChanged(index(row - 1, i), index(row - 1, i));
        }
    for (int i = 0; i < kColumns; ++i)
        if (before.header(static_cast<Column>(i)) != table.header(static_cast<Column>(i)))
            emit headerDataChanged(Qt::Horizontal, i, i);
}

void ResultsModel::textsChanged()
{
    if (rowCount() > 0) emit dataChanged(index(0, 0), index(rowCount() - 1, kColumns - 1));
    emit headerDataChanged(Qt::Horizontal, 0, kColumns - 1);
}

}  // namespace kavo
