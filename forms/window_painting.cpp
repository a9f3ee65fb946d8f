// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "forms/window_painting.h"

#include "forms/screen_fit.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QRadioButton>
#include <QScrollBar>

#include <array>

namespace kavo {

namespace {

constexpr std::array kGroups = {QPalette::Active, QPalette::Inactive, QPalette::Disabled};

/// The desktop's palette for a control, with every role set, so that none comes from the window below.
QPalette ownPalette(const QWidget& control)
{
    const QPalette desktop = QApplication::palette(&control);
    QPalette palette = desktop;
    for (const auto group : kGroups)
        for (int role = 0; role < QPalette::NColorRoles; ++role)
            palette.setBrush(group, static_cast<QPalette::ColorRole>(role),
                             desktop.brush(group, static_cast<QPalette::ColorRole>(role)));
    return palette;
}

QPalette paletteOf(const QWidget& control, Colour text, Colour background)
{
    QPalette palette = ownPalette(control);
    palette.setColor(QPalette::WindowText, toQColor(text));
    palette.setColor(QPalette::Window, toQColor(background));
    return palette;
}

void paintControl(QWidget& control, Colour text, Colour background)
{
    control.setBackgroundRole(QPalette::Window);  // option buttons take their background from another role
    control.setAutoFillBackground(true);
    control.setPalette(paletteOf(control, text, background));
}

}  // namespace

QColor toQColor(Colour colour)
{
    const auto packed = static_cast<quint32>(colour);
    return {static_cast<int>(packed & 0xFFU), static_cast<int>((packed >> 8U) & 0xFFU),
            static_cast<int>((packed >> 16U) & 0xFFU)};
}

Colour fromQColor(const QColor& colour)
{
    return rgb(colour.red(), colour.green(), colour.blue());
}

void paintWindow(QWidget& window, const ColourSet& colours)
{
    paintControl(window, colours.ColLabels, colours.ColBack);
    for (QWidget* control : window.findChildren<QWidget*>()) {
        if (qobject_cast<QLabel*>(control) != nullptr || qobject_cast<QRadioButton*>(control) != nullptr ||
            isScrolledSurface(*control))
            paintControl(*control, colours.ColLabels, colours.ColBack);
        else if (qobject_cast<QGroupBox*>(control) != nullptr)
            paintControl(*control, colours.ColFrames, colours.ColBack);
        else
            control->setPalette(ownPalette(*control));
    }
}

void paintSwatch(QWidget& swatch, Colour colour)
{
    swatch.setAutoFillBackground(true);
    QPalette palette = ownPalette(swatch);
    palette.setColor(QPalette::Window, toQColor(colour));
    swatch.setPalette(palette);
}

void paintTable(QWidget& window, QAbstractItemView& list, const ColourSet& colours)
{
    paintControl(window, colours.ColText, colours.ColBack);
    QPalette palette = paletteOf(list, colours.ColText, colours.ColBack);
    palette.setColor(QPalette::Text, toQColor(colours.ColText));
    palette.setColor(QPalette::Base, toQColor(colours.ColBack));
    // The selected row keeps its colours; its delegate frames it.
    palette.setColor(QPalette::Highlight, toQColor(colours.ColBack));
    palette.setColor(QPalette::HighlightedText, toQColor(colours.ColText));
    list.setPalette(palette);
    for (QWidget* part : list.findChildren<QWidget*>())
        if (qobject_cast<QHeaderView*>(part) != nullptr || qobject_cast<QScrollBar*>(part) != nullptr)
            part->setPalette(ownPalette(*part));
}

}  // namespace kavo
