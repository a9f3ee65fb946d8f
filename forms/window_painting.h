// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/colour_set.h"

#include <QColor>

class QAbstractItemView;
class QWidget;

namespace kavo {

[[nodiscard]] QColor toQColor(Colour colour);
[[nodiscard]] Colour fromQColor(const QColor& colour);

/// Paints a window with the four window colours: labels and option buttons in the text colour, frames in
/// the frames' colour, all on the background colour. Every other control keeps the desktop's colours,
/// text and background together, so that it stays legible on any background.
void paintWindow(QWidget& window, const ColourSet& colours);

/// Paints a swatch: a label that shows one colour.
void paintSwatch(QWidget& swatch, Colour colour);

/// Paints the main window and its list: background and normal text.
void paintTable(QWidget& window, QAbstractItemView& list, const ColourSet& colours);

}  // namespace kavo
