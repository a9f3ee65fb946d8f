// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>
#include <system_error>

namespace kavo {

/// Gives `file` the name `target` in the same folder; what had that name is gone then, or on an error untouched.
/// On Windows, where a file that another program holds open keeps its name, this asks again for a short while; what is
/// replaced may have the name `spare` meanwhile.
[[nodiscard]] std::error_code renameOver(const std::filesystem::path& file, const std::filesystem::path& target,
                                         const std::filesystem::path& spare);

}  // namespace kavo
