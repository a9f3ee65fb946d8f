#include "ui/main/results_model.h"

#include "forms/screen_text.h"
#include "forms/window_painting.h"

#include <QFont>

namespace kavo {

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
    const Cell& cell = m_session.table.cell(index.row() + 1, static_cast<Column>(index.column()));
    switch (role) {
    case Qt::DisplayRole: return toScreen(cell.text);
    case Qt::ForegroundRole: return toQColor(cell.colour.value_or(m_session.colours.ColText));
    case Qt::FontRole: {
        QFont font;
        font.setBold(cell.bold);
        return font;
    }
    default: return {};
    }
}

QVariant ResultsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal) return {};
    if (role == Qt::TextAlignmentRole) return QVariant::fromValue(Qt::AlignLeft | Qt::AlignVCenter);
    if (role != Qt::DisplayRole) return {};
    return toScreen(m_session.table.header(static_cast<Column>(section)));
}

void ResultsModel::textsChanged()
{
    if (rowCount() > 0) emit dataChanged(index(0, 0), index(rowCount() - 1, kColumns - 1));
    emit headerDataChanged(Qt::Horizontal, 0, kColumns - 1);
}

}  // namespace kavo
