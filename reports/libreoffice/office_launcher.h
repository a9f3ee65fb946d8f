// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <chrono>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace kavo {

/// The office's start program as a process of its own: no terminal, no parent that it would end with.
/// With an office running already it only hands its arguments over and ends.
class OfficeLauncher final
{
public:
    /// Throws a std::exception when the program cannot be started, or the system has no thread for what waits
    /// for its end.
    OfficeLauncher(const std::filesystem::path& program, const std::vector<std::string>& arguments);

    [[nodiscard]] bool isRunning() const;

    /// Asks what was started to end, with everything that it has started itself. What has not ended by then is
    /// killed: the office's start program can hang in its end.
    void terminate(std::chrono::milliseconds atMost = std::chrono::seconds(5)) const;

private:
    struct Child;

    std::shared_ptr<Child> m_child;
};

}  // namespace kavo
