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

    /// Texts have changed in place.
    void textsChanged();

private:
    friend class TableChange;

    const Session& m_session;
};

/// Brackets a change of the whole table, which ends with this object. Meanwhile no event loop may run.
class TableChange final
{
public:
    explicit TableChange(ResultsModel& model) : m_model(model) { m_model.beginResetModel(); }
    ~TableChange() { m_model.endResetModel(); }
    TableChange(const TableChange&) = delete;
    TableChange& operator=(const TableChange&) = delete;

    /// Shows the table as it stands in between, for as long as this lives: event loops may run then.
    class Pause final
    {
    public:
        explicit Pause(ResultsModel& model) : m_model(model) { m_model.endResetModel(); }
        ~Pause() { m_model.beginResetModel(); }
        Pause(const Pause&) = delete;
        Pause& operator=(const Pause&) = delete;

    private:
        ResultsModel& m_model;
    };

private:
    ResultsModel& m_model;
};

}  // namespace kavo
