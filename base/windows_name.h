// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string_view>

/// What Windows takes for the name of a file. Known everywhere, so that it can be tested everywhere.
namespace kavo {

/// Whether a text names one file or folder and nothing else there: not a device ("CON", "nul.txt"), not a stream of a
/// file ("a:b"), no name that would become another one ("a." is "a"), and no character that names cannot have.
[[nodiscard]] bool isWindowsName(std::string_view text);

/// Whether a path says by itself, or together with a folder that it counts from, which file it means: all its names
/// are such names, and it does not depend on where a drive happens to stand ("C:a") or lead to a device ("\\.\COM1").
[[nodiscard]] bool isWindowsPath(std::string_view text);

}  // namespace kavo
