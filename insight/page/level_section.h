// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "insight/dashboard.h"
#include "insight/page/markup.h"

namespace kavo {

/// The sortable table of all levels.
void writeLevels(Markup& page, const Dashboard& dashboard);

}  // namespace kavo
