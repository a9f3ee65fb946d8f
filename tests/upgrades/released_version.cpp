// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/upgrades/released_version.h"

#include "base/file_name.h"
#include "base/text_file.h"
#include "tests/support/places.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>

namespace fs = std::filesystem;

namespace kavo::test {

namespace {

void write(const fs::path& path, const std::string& bytes)
{
    fs::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary) << bytes;
}

std::vector<std::string> namesOf(const std::map<std::string, std::string>& files)
{
    std::vector<std::string> names;
    for (const auto& [name, bytes] : files) names.push_back(name);
    return names;
}

}  // namespace

bool ReleasedVersion::isRecorded() const
{
    const char* version = std::getenv("KAVO_RECORD_VERSION");
    if (version == nullptr || name() != version) return false;
    // What an earlier version left is what the present one is measured by: it can never be written anew.
    EXPECT_EQ(name(), KAVO_VERSION) << "only the present version can be recorded";
    return name() == KAVO_VERSION;
}

void ReleasedVersion::copyTo(const TemporaryFolder& folder) const
{
    fs::copy(m_place / "folder", folder.path(), fs::copy_options::recursive);
}

void ReleasedVersion::expectAsLeft(const fs::path& part, const std::string& bytes) const
{
    if (isRecorded()) write(m_place / part, bytes);
    EXPECT_EQ(bytes, readFile(m_place / part)) << part;
}

void ReleasedVersion::expectAllAsLeft(const fs::path& part, const std::map<std::string, std::string>& files) const
{
    if (isRecorded()) {
        fs::remove_all(m_place / part);
        for (const auto& [name, bytes] : files) write(m_place / part / pathOf(name), bytes);
    }
    const auto left = filesOf(m_place / part);
    EXPECT_EQ(namesOf(files), namesOf(left));
    for (const auto& [name, bytes] : files) {
        const auto found = left.find(name);
        if (found == left.end()) continue;
        EXPECT_EQ(bytes, found->second) << name;
    }
}

std::vector<ReleasedVersion> releasedVersions()
{
    std::vector<fs::path> places;
    for (const auto& entry : fs::directory_iterator(sourceFolder() / "tests/upgrades"))
        if (entry.is_directory()) places.push_back(entry.path());
    std::sort(places.begin(), places.end());
    return {places.begin(), places.end()};
}

std::string testNameOf(const testing::TestParamInfo<ReleasedVersion>& info)
{
    std::string name = "Version" + info.param.name();
    std::replace(name.begin(), name.end(), '.', '_');
    return name;
}

std::map<std::string, std::string> filesOf(const fs::path& folder)
{
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (!entry.is_regular_file()) continue;
        const std::u8string name = fs::relative(entry.path(), folder).generic_u8string();
        files[std::string(name.begin(), name.end())] = readFile(entry.path());
    }
    return files;
}

void PrintTo(const ReleasedVersion& version, std::ostream* out)
{
    *out << version.name();
}

}  // namespace kavo::test
