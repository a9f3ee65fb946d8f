// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>

/// Where tests find what lies outside the test program. The build writes these functions (places.cpp.in).
namespace kavo::test {

/// The root of the project, with `data/` and `tests/data/`.
[[nodiscard]] std::filesystem::path sourceFolder();

/// The module of the spreadsheet export; empty when it is no part of the build.
[[nodiscard]] std::filesystem::path officeModule();

/// Where programs of this system have their libraries, below the folder of all of a program's files.
[[nodiscard]] std::filesystem::path libraryFolder();

/// The installation of LibreOffice that the module was built with; empty without the module.
[[nodiscard]] std::filesystem::path officeFolder();

}  // namespace kavo::test
