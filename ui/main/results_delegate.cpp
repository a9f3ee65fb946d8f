#include "ui/main/results_delegate.h"

namespace kavo {

void ResultsDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const
{
    QStyledItemDelegate::initStyleOption(option, index);
    option->palette.setBrush(QPalette::HighlightedText, option->palette.brush(QPalette::Text));
}

}  // namespace kavo
