// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>
#include <string_view>
#include <vector>

namespace kavo {

/// Loads the libraries of the office that is installed here. The module that needs them names no folder of
/// its own, so one build of it works with an office in any place. They stay loaded. Throws std::runtime_error
/// when there is no office.
void loadOfficeLibraries();

/// The program folders of the offices whose start program lies on a search path such as PATH has, in its
/// order. Only absolute folders count.
[[nodiscard]] std::vector<std::filesystem::path> officeFoldersOn(std::string_view searchPath);

}  // namespace kavo
