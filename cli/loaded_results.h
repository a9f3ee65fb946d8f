// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cli/command.h"
#include "core/loading.h"

namespace kavo {

/// A loading run for a command, with what it left.
struct LoadedResults
{
    Session session;
    std::vector<std::string> messages;  ///< texts of the boxes that a window would have shown
    LoadingResult result;

    [[nodiscard]] ExitStatus status() const;

    /// Whether there is something to print as a table: not when the loading ended before its first row.
    [[nodiscard]] bool hasTable() const;
};

/// Runs the loading for the user that the call names. It writes nothing into the program folder.
[[nodiscard]] LoadedResults loadResults(const CommandContext& context);

/// Tells what the loading had to say.
void tellMessages(const LoadedResults& loaded, Messages& messages);

}  // namespace kavo
