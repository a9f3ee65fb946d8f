// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "tests/support/program_folder_fixture.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace kavo::test {

/// What a released version left of a program folder, in `tests/upgrades/VERSION`:
///
/// | in the folder      | holds                                                               |
/// |--------------------|---------------------------------------------------------------------|
/// | `folder`           | a program folder as players of that version have it                 |
/// | `tables`           | `NICK.json`: what `show --json` printed                             |
/// | `reports`          | `NICK.txt`, `NICK.html`: both reports                               |
/// | `targets`          | the targets after an update from `records_page.html`                |
/// | `session`          | every file after a session in its windows                           |
class ReleasedVersion final
{
public:
    explicit ReleasedVersion(std::filesystem::path place) : m_place(std::move(place)) {}

    [[nodiscard]] std::string name() const { return m_place.filename().string(); }
    [[nodiscard]] std::filesystem::path operator/(const std::filesystem::path& part) const { return m_place / part; }

    /// Fills an empty folder with the program folder.
    void copyTo(const TemporaryFolder& folder) const;

    /// Expects the bytes that the version left under this name. When the present version is being
    /// recorded (`tests/upgrades/record.sh`) its bytes are written instead.
    void expectAsLeft(const std::filesystem::path& part, const std::string& bytes) const;

    /// The same for all files below a folder.
    void expectAllAsLeft(const std::filesystem::path& part, const std::map<std::string, std::string>& files) const;

private:
    [[nodiscard]] bool isRecorded() const;

    std::filesystem::path m_place;
};

/// One per folder, so that a test can be run for each.
[[nodiscard]] std::vector<ReleasedVersion> releasedVersions();

/// The name for a test's parameter: letters and digits only.
[[nodiscard]] std::string testNameOf(const testing::TestParamInfo<ReleasedVersion>& info);

/// All files below a folder by their names there, with their bytes.
[[nodiscard]] std::map<std::string, std::string> filesOf(const std::filesystem::path& folder);

void PrintTo(const ReleasedVersion& version, std::ostream* out);

}  // namespace kavo::test
