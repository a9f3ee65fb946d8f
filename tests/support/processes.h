// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <string>
#include <string_view>
#include <sys/types.h>
#include <thread>
#include <vector>

namespace kavo::test {

/// Processes of the system that have `text` in their command line; dead ones have none.
[[nodiscard]] inline std::vector<pid_t> processesWith(std::string_view text)
{
    std::vector<pid_t> processes;
    for (const auto& entry : std::filesystem::directory_iterator("/proc")) {
        const std::string name = entry.path().filename().string();
        if (name.find_first_not_of("0123456789") != std::string::npos) continue;
        // Reading fails when the process ends meanwhile.
        std::ostringstream commandLine;
        commandLine << std::ifstream(entry.path() / "cmdline").rdbuf();
        if (commandLine.str().find(text) != std::string::npos) processes.push_back(std::stoi(name));
    }
    return processes;
}

/// Sends a signal to all of them.
inline void signalProcesses(std::string_view text, int signal)
{
    for (const pid_t process : processesWith(text)) ::kill(process, signal);
}

/// Looks again and again until `hasCome`; false when it has not within 20 seconds.
inline bool lookUntil(const std::function<bool()>& hasCome)
{
    using Clock = std::chrono::steady_clock;
    const auto end = Clock::now() + std::chrono::seconds(20);
    while (!hasCome() && Clock::now() < end) std::this_thread::sleep_for(std::chrono::milliseconds(2));
    return hasCome();
}

}  // namespace kavo::test
