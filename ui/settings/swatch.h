// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QLabel>

namespace kavo {

/// A label that shows one colour (the Window colour of its palette) and can be clicked, with the mouse or
/// with Space and Enter. To a screen reader it is a button, with the name of the colour.
class Swatch final : public QLabel
{
    Q_OBJECT

public:
    explicit Swatch(QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

    /// Of the colours that have a name the one that looks most like it: "red".
    [[nodiscard]] QString colourName() const;

signals:
    void clicked();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
};

}  // namespace kavo
