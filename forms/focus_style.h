// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QProxyStyle>

namespace kavo {

/// The desktop's style, with what it leaves to chance on windows in colours of their own: buttons, boxes of several
/// lines and lists show that they have the focus, dark boxes keep an edge on a dark window, and the marks of option
/// buttons and check boxes are drawn in the colours of the text beside them.
class FocusStyle final : public QProxyStyle
{
    Q_OBJECT

public:
    void polish(QWidget* widget) override;
    void unpolish(QWidget* widget) override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget = nullptr) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget = nullptr) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget = nullptr) const override;
    [[nodiscard]] int pixelMetric(PixelMetric metric, const QStyleOption* option = nullptr,
                                  const QWidget* widget = nullptr) const override;

    using QProxyStyle::polish;
    using QProxyStyle::unpolish;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace kavo
