// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/filters.h"
#include "core/session.h"

#include <QAbstractTableModel>

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace kavo {

/// The filter in force: whose levels are kept, and by what ("World Class", "Victories").
struct Filter
{
    FilterSide side = FilterSide::Player1;
    std::string name;
};

/// What else there is to tell of a player's time on a level; empty where there is nothing.
using TimeNote = std::function<std::string(int level, std::string_view time)>;

/// Shows the session's results table in the list; holds nothing of it but while the table changes.
class ResultsModel final : public QAbstractTableModel
{
    Q_OBJECT

public:
    explicit ResultsModel(const Session& session, QObject* parent = nullptr);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

    /// Marks the column of the player whose levels a filter keeps; nothing takes the mark away.
    void markFilter(const std::optional<Filter>& filter);

    /// Asked for each tool tip of a time of player 1 and its grade. A second player's history is not known: whose
    /// file that is may change at any time.
    void tellOfTimes(TimeNote note) { m_note = std::move(note); }

    /// Texts have changed in place.
    void textsChanged();

private:
    friend class TableChange;

    [[nodiscard]] QStringList cellNotes(int row, Column column) const;
    [[nodiscard]] QString cellDescription(int row, Column column) const;
    [[nodiscard]] QString headerToolTip(Column column) const;
    [[nodiscard]] bool isFiltered(Column column) const;

    /// What the list shows until the change has ended.
    void beginChange() { m_before = m_session.table; }
    void endChange();

    const Session& m_session;
    std::optional<Filter> m_filter;
    ResultsTable m_before;
    TimeNote m_note;
};

/// Brackets a change of the whole table, which ends with this object: what is other than before is shown anew, and
/// the list keeps the rest. Meanwhile no event loop may run.
class TableChange final
{
public:
    explicit TableChange(ResultsModel& model) : m_model(model) { m_model.beginChange(); }
    ~TableChange() { m_model.endChange(); }
    TableChange(const TableChange&) = delete;
    TableChange& operator=(const TableChange&) = delete;

    /// Shows the table as it stands in between, for as long as this lives: event loops may run then.
    class Pause final
    {
    public:
        explicit Pause(ResultsModel& model) : m_model(model) { m_model.endChange(); }
        ~Pause() { m_model.beginChange(); }
        Pause(const Pause&) = delete;
        Pause& operator=(const Pause&) = delete;

    private:
        ResultsModel& m_model;
    };

private:
    ResultsModel& m_model;
};

}  // namespace kavo
