// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QLabel;

namespace kavo {

/// Lets a title, whose size in points is designed for the usual desktop, stand out where the desktop's font is larger.
void followDesktopFont(QLabel& title);

}  // namespace kavo
