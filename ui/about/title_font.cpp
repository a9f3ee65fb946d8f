// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/about/title_font.h"

#include <QApplication>
#include <QFontInfo>
#include <QLabel>

#include <algorithm>

namespace kavo {

void followDesktopFont(QLabel& title)
{
    constexpr double kUsual = 10;  // points
    QFont font = title.font();
    font.setPointSizeF(font.pointSizeF() * std::max(1.0, QFontInfo(QApplication::font()).pointSizeF() / kUsual));
    title.setFont(font);
}

}  // namespace kavo
