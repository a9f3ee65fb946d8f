// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QWidget>

#include <functional>

namespace kavo::test {

/// Shows every window that the user guide has a picture of, as it is in that picture, on a copy of the
/// demo folder: `look` gets the picture's file name (without ".png") and the window. Returns whether all
/// windows came.
bool showPictures(const std::function<void(const QString& name, QWidget& window)>& look);

/// What a picture shows, in words: the size of the window, its caption and every text in it, a line each.
/// Stands beside the picture as NAME.txt, so that a window that has changed since is found.
[[nodiscard]] QString describe(QWidget& window);

/// The fonts and the screen, as far as sizes of windows depend on them.
[[nodiscard]] QString surroundings();

}  // namespace kavo::test
