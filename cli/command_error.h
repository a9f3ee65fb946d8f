// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <stdexcept>
#include <string_view>

namespace kavo {

/// Why a command cannot do what was asked for, in words for the user.
class CommandError final : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

/// What `errno` says about a file that is open already: "Disk full: standard output (No space left on device)".
[[nodiscard]] CommandError aboutStream(std::string_view name, int error);

}  // namespace kavo
