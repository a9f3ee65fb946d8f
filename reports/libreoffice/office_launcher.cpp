// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/libreoffice/office_launcher.h"

#include <cerrno>
#include <condition_variable>
#include <csignal>
#include <fcntl.h>
#include <future>
#include <mutex>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <system_error>
#include <thread>
#include <unistd.h>

namespace kavo {

namespace {

/// What a detached program starts with: a session of its own and no streams of ours.
class SpawnSettings final
{
public:
    SpawnSettings()
    {
        posix_spawnattr_init(&attributes);
        posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSID);
        posix_spawn_file_actions_init(&actions);
        for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
            posix_spawn_file_actions_addopen(&actions, stream, "/dev/null", O_RDWR, 0);
    }
    ~SpawnSettings()
    {
        posix_spawn_file_actions_destroy(&actions);
        posix_spawnattr_destroy(&attributes);
    }
    SpawnSettings(const SpawnSettings&) = delete;
    SpawnSettings& operator=(const SpawnSettings&) = delete;

    posix_spawnattr_t attributes{};
    posix_spawn_file_actions_t actions{};
};

/// A program's words as the system takes them.
class ArgumentList final
{
public:
    ArgumentList(const std::filesystem::path& program, const std::vector<std::string>& arguments)
        : m_words{program.string()}
    {
        m_words.insert(m_words.end(), arguments.begin(), arguments.end());
        for (std::string& word : m_words) m_pointers.push_back(word.data());
        m_pointers.push_back(nullptr);
    }
    ~ArgumentList() = default;
    ArgumentList(const ArgumentList&) = delete;
    ArgumentList& operator=(const ArgumentList&) = delete;

    [[nodiscard]] char* const* data() const { return m_pointers.data(); }

private:
    std::vector<std::string> m_words;
    std::vector<char*> m_pointers;
};

constexpr pid_t kNoProcess = 0;

}  // namespace

/// The start program, which the user may end long after this program has forgotten it.
struct OfficeLauncher::Child
{
    std::mutex mutex;
    std::condition_variable ended;
    pid_t process = kNoProcess;  ///< as long as it runs: afterwards the number may be another's

    /// Waits for the end: the process would stay a dead entry in the process list otherwise.
    void waitForEnd(pid_t started)
    {
        siginfo_t end{};
        while (::waitid(P_PID, static_cast<id_t>(started), &end, WEXITED | WNOWAIT) != 0 && errno == EINTR) {
        }
        const std::lock_guard lock(mutex);
        ::waitpid(started, nullptr, 0);
        process = kNoProcess;
        ended.notify_all();
    }

    /// What was started leads a group of its own.
    void signalGroup(int signal) const
    {
        if (process != kNoProcess) ::kill(-process, signal);
    }

    void killUnlessEnded(std::chrono::milliseconds atMost)
    {
        std::unique_lock lock(mutex);
        ended.wait_for(lock, atMost, [this] { return process == kNoProcess; });
        signalGroup(SIGKILL);
    }
};

OfficeLauncher::OfficeLauncher(const std::filesystem::path& program, const std::vector<std::string>& arguments)
    : m_child(std::make_shared<Child>())
{
    const ArgumentList words(program, arguments);
    const SpawnSettings settings;
    // First who waits for the end: without a thread for that there must be no process.
    std::promise<pid_t> started;
    std::thread([child = m_child, future = started.get_future()]() mutable {
        if (const pid_t process = future.get(); process != kNoProcess) child->waitForEnd(process);
    }).detach();
    const std::lock_guard lock(m_child->mutex);
    pid_t process = kNoProcess;
    const int error =
        ::posix_spawn(&process, program.c_str(), &settings.actions, &settings.attributes, words.data(), ::environ);
    m_child->process = error == 0 ? process : kNoProcess;
    started.set_value(m_child->process);
    if (error != 0) throw std::runtime_error("the office cannot be started");
}

bool OfficeLauncher::isRunning() const
{
    const std::lock_guard lock(m_child->mutex);
    return m_child->process != kNoProcess;
}

void OfficeLauncher::terminate(std::chrono::milliseconds atMost) const
{
    const std::lock_guard lock(m_child->mutex);
    if (m_child->process == kNoProcess) return;
    m_child->signalGroup(SIGTERM);
    try {
        std::thread([child = m_child, atMost] { child->killUnlessEnded(atMost); }).detach();
    } catch (const std::system_error&) {
        // Without a thread it has at least been asked.
    }
}

}  // namespace kavo
