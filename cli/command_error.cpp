// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/command_error.h"

#include "base/run_time_error.h"

#include <string>

namespace kavo {

CommandError aboutStream(std::string_view name, int error)
{
    const std::error_code reason(error, std::generic_category());
    std::string text(standardText(failureOf(reason)));
    return CommandError(text.append(": ").append(name).append(" (").append(reason.message()).append(")"));
}

}  // namespace kavo
