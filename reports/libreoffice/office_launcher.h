#pragma once

#include <filesystem>
#include <string>
#include <sys/types.h>
#include <vector>

namespace kavo {

/// The office's start program as a process of its own: no terminal, no parent that it would end with.
/// With an office running already it only hands its arguments over and ends.
class OfficeLauncher final
{
public:
    /// Throws std::runtime_error when the program cannot be started.
    OfficeLauncher(const std::filesystem::path& program, const std::vector<std::string>& arguments);
    ~OfficeLauncher();
    OfficeLauncher(const OfficeLauncher&) = delete;
    OfficeLauncher& operator=(const OfficeLauncher&) = delete;

    [[nodiscard]] bool isRunning();

private:
    pid_t m_process = 0;
    bool m_isRunning = true;
};

}  // namespace kavo
