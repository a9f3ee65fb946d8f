// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/bounded_input.h"

#include "base/file_name.h"
#include "base/run_time_error.h"
#include "base/text_file.h"
#include "cli/command.h"

#include <cerrno>
#include <memory>

namespace kavo {

namespace {

constexpr std::string_view kStandardInput = "-";

struct CloseFile
{
    void operator()(std::FILE* file) const { std::fclose(file); }
};

/// Whether a name stands for what this process was given open, as a shell does with <(COMMAND). Like standard input
/// that may be a pipe; one that only has a name in a folder may never get a writer.
bool isGivenOpen(const std::filesystem::path& path)
{
    return path.parent_path() == "/dev/fd";
}

CommandError tooLarge(const std::string& name, std::size_t largest)
{
    std::string text(standardText(Failure::FileTooLarge));
    return CommandError(text.append(": ").append(name).append(" (more than ") + std::to_string(largest >> 20U) +
                        " MiB)");
}

std::string readAll(std::FILE* in, const std::string& name, std::size_t largest)
{
    constexpr std::size_t kReadSize = 1U << 16U;
    std::string text;
    for (std::size_t got = kReadSize; got == kReadSize;) {
        const std::size_t before = text.size();
        text.resize(before + kReadSize);
        got = std::fread(text.data() + before, 1, kReadSize, in);
        const int error = errno;
        text.resize(before + got);
        if (std::ferror(in) != 0) throw aboutStream(name, error);
        if (text.size() > largest) throw tooLarge(name, largest);
    }
    return text;
}

}  // namespace

NamedInput readInput(std::string_view file, std::FILE* in, std::size_t largest)
{
    if (file == kStandardInput) {
        const std::string name = "standard input";
        return {name, readAll(in, name, largest)};
    }
    const std::filesystem::path path = fileNamed(file);
    const std::string name = textOf(path);
    if (isGivenOpen(path)) {
        const std::unique_ptr<std::FILE, CloseFile> given(std::fopen(path.string().c_str(), "rb"));
        if (!given) throw RunTimeError(std::error_code(errno, std::generic_category()), path);
        return {name, readAll(given.get(), name, largest)};
    }
    try {
        return {name, std::string(readContent(path, largest).view())};
    } catch (const RunTimeError& error) {
        if (error.failure() == Failure::FileTooLarge) throw tooLarge(name, largest);
        throw;
    }
}

}  // namespace kavo
