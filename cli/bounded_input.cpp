// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/bounded_input.h"

#include "base/file_name.h"
#include "base/run_time_error.h"
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

std::unique_ptr<std::FILE, CloseFile> openToRead(const std::filesystem::path& path)
{
#ifdef _WIN32
    std::unique_ptr<std::FILE, CloseFile> file(::_wfopen(path.c_str(), L"rb"));
#else
    std::unique_ptr<std::FILE, CloseFile> file(std::fopen(path.c_str(), "rb"));
#endif
    const int error = errno;
    const std::error_code reason(error, std::generic_category());
    if (!file && error == ENOENT) throw RunTimeError(Failure::FileNotFound, path, reason);
    if (!file) throw RunTimeError(reason, path);
    return file;
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
    const auto opened = openToRead(path);
    const std::string name = textOf(path);
    return {name, readAll(opened.get(), name, largest)};
}

}  // namespace kavo
