// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "insight/finding.h"

#include <filesystem>

namespace kavo {

/// Looks at every file that the program reads, for every user, and changes nothing. Findings come in the order
/// of the loading: what all users share, then one user after the other, each finding once.
[[nodiscard]] Findings examine(const std::filesystem::path& programFolder);

}  // namespace kavo
