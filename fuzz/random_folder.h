// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "core/loading.h"
#include "fuzz_input.h"

#include <array>
#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>
#include <unistd.h>

namespace kavo::fuzz {

/// A program folder of this process, removed at its end. What it holds comes from the input: the files stand there
/// one after the other, with a line "==" between them, in the order of kFiles.
class RandomFolder final
{
public:
    RandomFolder() : m_path(std::filesystem::temp_directory_path() / ("kavo-fuzz-" + std::to_string(::getpid())))
    {
        std::filesystem::create_directories(m_path / kUser / "colors");
    }

    ~RandomFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }

    RandomFolder(const RandomFolder&) = delete;
    RandomFolder& operator=(const RandomFolder&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return m_path; }

    /// The parts of the input as files; a part that is missing or empty is a file that is missing.
    void fill(std::string_view input) const
    {
        for (const char* name : kFiles) {
            const std::size_t end = std::min(input.find(kSeparator), input.size());
            write(m_path / name, input.substr(0, end));
            input.remove_prefix(std::min(end + kSeparator.size(), input.size()));
        }
    }

    static constexpr const char* kUser = "Zoe";

private:
    static constexpr std::string_view kSeparator = "\n==\n";
    static constexpr std::array<const char*, 8> kFiles = {
        "Zoe/data.ini", "Zoe/names.dat", "Zoe/bugs.dat", "Zoe/colors/colors.ini",
        "Zoe/view.dat", "targets.txt",   "stats.txt",    "Zoe/1res.old"};

    /// Without the care for a power cut that the program takes: it would be most of the time here.
    static void write(const std::filesystem::path& path, std::string_view content)
    {
        std::filesystem::remove(path);
        if (content.empty()) return;
        std::FILE* file = std::fopen(path.c_str(), "wb");
        require(file != nullptr && std::fwrite(content.data(), 1, content.size(), file) == content.size());
        std::fclose(file);
    }

    std::filesystem::path m_path;
};

}  // namespace kavo::fuzz
