// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "cli/command_line.h"
#include "tests/support/program_folder_fixture.h"
#include "tests/support/report_session.h"

#include <array>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

namespace kavo::test {

/// A file without a name, in place of a standard stream.
class StreamFile final
{
public:
    explicit StreamFile(std::string_view content = "") : m_file(std::tmpfile())
    {
        std::fwrite(content.data(), 1, content.size(), m_file);
        std::rewind(m_file);
    }
    ~StreamFile() { std::fclose(m_file); }
    StreamFile(const StreamFile&) = delete;
    StreamFile& operator=(const StreamFile&) = delete;

    [[nodiscard]] std::FILE* file() const { return m_file; }

    /// All that was written.
    [[nodiscard]] std::string content() const
    {
        std::rewind(m_file);
        std::string text;
        std::array<char, 4096> buffer{};
        while (const std::size_t got = std::fread(buffer.data(), 1, buffer.size(), m_file))
            text.append(buffer.data(), got);
        return text;
    }

private:
    std::FILE* m_file;
};

/// What a command printed, and its exit status.
struct Outcome
{
    int status = 0;
    std::string out;
    std::string error;
};

/// Runs kavo-timing-cli with exactly these arguments.
inline Outcome runArguments(const std::vector<std::string>& arguments, const std::string& input = "",
                            const OutputFacts& output = {})
{
    std::vector<const char*> argv = {"kavo-timing-cli"};
    for (const std::string& argument : arguments) argv.push_back(argument.c_str());
    const StreamFile in(input);
    const StreamFile out;
    const StreamFile error;
    const int status =
        runCommandLine(static_cast<int>(argv.size()), argv.data(),
                       {.in = in.file(), .out = out.file(), .error = error.file(), .output = output, .now = [] {
                            return reportMoment();
                        }});
    return {status, out.content(), error.content()};
}

/// Runs kavo-timing-cli on a program folder.
inline Outcome runCommand(const TemporaryFolder& folder, std::vector<std::string> arguments,
                          const std::string& input = "", const OutputFacts& output = {})
{
    arguments.insert(arguments.begin(), {"--program-folder", folder.path().string()});
    return runArguments(arguments, input, output);
}

}  // namespace kavo::test
