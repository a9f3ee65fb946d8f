// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QIcon>

namespace kavo {

/// The program's logo, crisp in the sizes that windows, task bars and the splash ask for.
[[nodiscard]] QIcon logo();

}  // namespace kavo
