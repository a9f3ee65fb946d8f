// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "forms/clickable_label.h"

namespace kavo {

/// Shows one colour (the Window colour of its palette), and is clicked with the mouse or by key. To a screen reader
/// it is a button, with the name of the colour.
class Swatch final : public ClickableLabel
{
    Q_OBJECT

public:
    explicit Swatch(QWidget* parent = nullptr);

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

    /// Of the colours that have a name the one that looks most like it: "red".
    [[nodiscard]] QString colourName() const;

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
};

}  // namespace kavo
