#pragma once

#include <QStyledItemDelegate>

namespace kavo {

/// Draws the table's cells: in the selected row, too, each in its own colour.
class ResultsDelegate final : public QStyledItemDelegate
{
    Q_OBJECT

public:
    using QStyledItemDelegate::QStyledItemDelegate;

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;
};

}  // namespace kavo
