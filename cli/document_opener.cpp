// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/document_opener.h"

#include "base/file_name.h"
#include "cli/command_error.h"

#ifdef _WIN32
#include <windows.h>
// It needs what the one above declares.
#include <shellapi.h>
#else
#include <chrono>
#include <fcntl.h>
#include <spawn.h>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#endif

namespace kavo {

namespace {

[[noreturn]] void failToOpen(const std::filesystem::path& file)
{
    throw CommandError("No program was found that opens " + textOf(file) + "; open it with a browser of yours");
}

#ifndef _WIN32
/// A session of its own, so that Ctrl+C here does not end the browser, and no streams of ours.
class DetachedStart final
{
public:
    DetachedStart()
    {
        posix_spawnattr_init(&m_attributes);
        posix_spawnattr_setflags(&m_attributes, POSIX_SPAWN_SETSID);
        posix_spawn_file_actions_init(&m_actions);
        for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
            posix_spawn_file_actions_addopen(&m_actions, stream, "/dev/null", O_RDWR, 0);
    }
    ~DetachedStart()
    {
        posix_spawn_file_actions_destroy(&m_actions);
        posix_spawnattr_destroy(&m_attributes);
    }
    DetachedStart(const DetachedStart&) = delete;
    DetachedStart& operator=(const DetachedStart&) = delete;

    /// The process started, or -1.
    [[nodiscard]] pid_t start(std::string program, std::string argument)
    {
        char* const words[] = {program.data(), argument.data(), nullptr};
        pid_t process = -1;
        return posix_spawnp(&process, program.c_str(), &m_actions, &m_attributes, words, environ) == 0 ? process : -1;
    }

private:
    posix_spawnattr_t m_attributes{};
    posix_spawn_file_actions_t m_actions{};
};

/// The opener ends at once where it hands the file to a browser that is running, or where there is none; else
/// it may be the browser itself.
bool hasFailedSoon(pid_t process)
{
    constexpr std::chrono::milliseconds kPatience{3000};
    constexpr std::chrono::milliseconds kPause{20};
    const auto end = std::chrono::steady_clock::now() + kPatience;
    while (std::chrono::steady_clock::now() < end) {
        int status = 0;
        if (::waitpid(process, &status, WNOHANG) == process) return !WIFEXITED(status) || WEXITSTATUS(status) != 0;
        std::this_thread::sleep_for(kPause);
    }
    return false;
}
#endif

}  // namespace

void openDocument(const std::filesystem::path& file)
{
#ifdef _WIN32
    constexpr INT_PTR kLastError = 32;
    const auto result = ::ShellExecuteW(nullptr, L"open", file.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
    if (reinterpret_cast<INT_PTR>(result) <= kLastError) failToOpen(file);
#else
    const pid_t process = DetachedStart().start("xdg-open", textOf(file));
    if (process < 0 || hasFailedSoon(process)) failToOpen(file);
#endif
}

}  // namespace kavo
