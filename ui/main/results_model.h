#pragma once

#include "core/session.h"

#include <QAbstractTableModel>

namespace kavo {

/// Shows the session's results table in the list; holds nothing of it.
class ResultsModel final : public QAbstractTableModel
{
    Q_OBJECT

public:
    explicit ResultsModel(const Session& session, QObject* parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// Brackets a change of the whole table. Between the two no event loop may run.
    void beginChange() { beginResetModel(); }
    void endChange() { endResetModel(); }

    /// Texts have changed in place.
    void textsChanged();

private:
    const Session& m_session;
};

}  // namespace kavo
