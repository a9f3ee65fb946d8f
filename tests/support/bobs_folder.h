// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "tests/support/program_folder_fixture.h"

#include <string_view>

namespace kavo::test {

/// Makes a folder the program folder of bob, who is logged in and compares his statistics with the Good targets, of 40
/// s.
inline void compareBobWithTargets(const TemporaryFolder& folder, std::string_view statistics)
{
    folder.write("curUser.dat", "bob\r\n");
    folder.write("bob/data.ini", "stats.txt\r\n 3 \r\n\r\nGood\r\n 8 \r\n");
    folder.write("stats.txt", statistics);
    folder.write("targets.txt", targetsText());
}

/// The same of a bob who compares them with another statistics file.
inline void compareBobWithFile(const TemporaryFolder& folder, std::string_view statistics, std::string_view others)
{
    compareBobWithTargets(folder, statistics);
    folder.write("bob/data.ini", "stats.txt\r\n 2 \r\nother.txt\r\n\r\n 8 \r\n");
    folder.write("other.txt", others);
}

}  // namespace kavo::test
