// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "reports/spreadsheet.h"

/// The module that drives LibreOffice is loaded only when somebody exports; these are the names by which
/// it is found. Whoever creates a Spreadsheet deletes it, and never unloads the module.
namespace kavo {

inline constexpr const char* kLibreOfficeModule = "spreadsheet_libreoffice.so";

/// Starts the office, or opens one more window in the one that runs. Null when there is none, and soon after
/// `stop` has been asked for.
inline constexpr const char* kCreateEntry = "kavoCreateSpreadsheet";
using CreateEntry = Spreadsheet* (*)(const std::stop_token& stop);

/// For tests: an office without windows on the user profile at a file URL, not the user's own. With a
/// second URL it stores its workbook there as flat XML when it is deleted, and ends that office.
inline constexpr const char* kCreateHeadlessEntry = "kavoCreateHeadlessSpreadsheet";
using CreateHeadlessEntry = Spreadsheet* (*)(const char* profileUrl, const char* storeUrl, const std::stop_token& stop);

}  // namespace kavo
