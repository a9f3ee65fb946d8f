// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>
#include <system_error>

namespace kavo {

/// Why the file system does not let this user write the file, or make files in the folder; no error where it does.
[[nodiscard]] std::error_code writeProtection(const std::filesystem::path& path);

}  // namespace kavo
