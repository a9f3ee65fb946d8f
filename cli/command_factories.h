// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cli/command.h"

#include <memory>

/// Each is defined in the file of its command.
namespace kavo {

[[nodiscard]] std::unique_ptr<Command> makeBestEverCommand();
[[nodiscard]] std::unique_ptr<Command> makeClubCommand();
[[nodiscard]] std::unique_ptr<Command> makeDashboardCommand();
[[nodiscard]] std::unique_ptr<Command> makeDiffCommand();
[[nodiscard]] std::unique_ptr<Command> makeDoctorCommand();
[[nodiscard]] std::unique_ptr<Command> makeExportHtmlCommand();
[[nodiscard]] std::unique_ptr<Command> makeExportSheetCommand();
[[nodiscard]] std::unique_ptr<Command> makeExportTextCommand();
[[nodiscard]] std::unique_ptr<Command> makeHistoryCommand();
[[nodiscard]] std::unique_ptr<Command> makeHistoryExportCommand();
[[nodiscard]] std::unique_ptr<Command> makeHistorySaveCommand();
[[nodiscard]] std::unique_ptr<Command> makeInstallSchemesCommand();
[[nodiscard]] std::unique_ptr<Command> makeNextCommand();
[[nodiscard]] std::unique_ptr<Command> makeShowCommand();
[[nodiscard]] std::unique_ptr<Command> makeUpdateTargetsCommand();
[[nodiscard]] std::unique_ptr<Command> makeUsersCommand();
[[nodiscard]] std::unique_ptr<Command> makeWatchCommand();

}  // namespace kavo
