// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QLabel>

namespace kavo {

/// A label that can be clicked: with the left button of the mouse, or with Space and Enter where it has the focus.
class ClickableLabel : public QLabel
{
    Q_OBJECT

public:
    using QLabel::QLabel;

signals:
    /// The button was let go on the label.
    void clicked();
    void doubleClicked();
    void chosenByKey();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
};

}  // namespace kavo
