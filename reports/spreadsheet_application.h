// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "reports/spreadsheet.h"

#include <filesystem>
#include <memory>
#include <vector>

namespace kavo {

/// The spreadsheet application of this platform: on Windows Excel, or LibreOffice Calc where Excel is not installed;
/// elsewhere LibreOffice Calc. Nothing of it is loaded before this is called. Throws a std::exception when there is
/// none, and when `stop` is asked for.
[[nodiscard]] std::unique_ptr<Spreadsheet> openSpreadsheetApplication(const std::stop_token& stop);

/// Where LibreOffice's module is looked for, in this order, given the folder of the executable.
[[nodiscard]] std::vector<std::filesystem::path> modulePlaces(const std::filesystem::path& executableFolder);

/// The entry point of that name in a module, which stays loaded until the program ends. Throws
/// std::runtime_error when the module cannot be loaded or has no such entry.
[[nodiscard]] void* moduleEntry(const std::filesystem::path& module, const char* name);

}  // namespace kavo
