// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QDialog;
class QScreen;
class QSize;
class QWidget;

namespace kavo {

/// Size of the largest window that has room on the screen, frame not included.
[[nodiscard]] QSize roomOn(const QScreen& screen);

/// Keeps a window that is about to be shown inside the free area of its screen. Its boxes and lists give
/// way first; what is still too large for the screen scrolls.
void fitToScreen(QDialog& window);

/// Whether this is the surface that holds the controls of a window that scrolls.
[[nodiscard]] bool isScrolledSurface(const QWidget& control);

}  // namespace kavo
