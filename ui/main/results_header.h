// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QHeaderView>

namespace kavo {

/// The header of the results table. It can be walked through and pressed without a mouse: Tab comes to it,
/// Left, Right, Home and End choose a column, and Space presses its header as a click does.
class ResultsHeader final : public QHeaderView
{
    Q_OBJECT

public:
    explicit ResultsHeader(QWidget* parent);

protected:
    bool viewportEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintSection(QPainter* painter, const QRect& rect, int section) const override;
    void initStyleOptionForIndex(QStyleOptionHeader* option, int section) const override;

private:
    void choose(int section);
    void nameChosen();
    void showChosen();
    void showToolTip(const QHelpEvent& event);
    [[nodiscard]] bool isCut(int section) const;
    [[nodiscard]] QString text(int section, int role) const;

    int m_chosen = 0;  ///< the column that Space presses
};

}  // namespace kavo
