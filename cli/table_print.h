#pragma once

#include "cli/terminal.h"
#include "core/results_table.h"

#include <string>

namespace kavo {

/// The table with its headers in aligned columns, in UTF-8.
[[nodiscard]] std::string formatTable(const ResultsTable& table, Colours colours);

}  // namespace kavo
