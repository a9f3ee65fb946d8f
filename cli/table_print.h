// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cli/terminal.h"
#include "core/results_table.h"

#include <cstddef>
#include <optional>
#include <string>

namespace kavo {

/// The table with its headers in aligned columns, in UTF-8. With a width, names and grades are shortened to make
/// it fit.
[[nodiscard]] std::string formatTable(const ResultsTable& table, Colours colours,
                                      std::optional<std::size_t> width = {});

}  // namespace kavo
