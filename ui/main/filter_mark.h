// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QIcon>

namespace kavo {

/// A funnel in the colour of the text beside it: the mark of a filtered column.
[[nodiscard]] QIcon filterMark(const QColor& colour);

}  // namespace kavo
