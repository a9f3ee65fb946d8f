// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>

namespace kavo {

/// Opens a file in the program that the user has for its kind, and does not wait for that program's end. Throws
/// CommandError where there is none.
void openDocument(const std::filesystem::path& file);

}  // namespace kavo
