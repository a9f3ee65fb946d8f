#pragma once

#include "cli/command.h"

#include <memory>

/// Each is defined in the file of its command.
namespace kavo {

[[nodiscard]] std::unique_ptr<Command> makeExportHtmlCommand();
[[nodiscard]] std::unique_ptr<Command> makeExportTextCommand();
[[nodiscard]] std::unique_ptr<Command> makeInstallSchemesCommand();
[[nodiscard]] std::unique_ptr<Command> makeShowCommand();
[[nodiscard]] std::unique_ptr<Command> makeUpdateTargetsCommand();
[[nodiscard]] std::unique_ptr<Command> makeUsersCommand();

}  // namespace kavo
