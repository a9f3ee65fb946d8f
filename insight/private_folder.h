// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>

namespace kavo {

/// Makes a folder with those on the way to it. It is for the user alone. Throws RunTimeError: PathFileAccess,
/// DiskFull.
void makePrivateFolder(const std::filesystem::path& folder);

}  // namespace kavo
