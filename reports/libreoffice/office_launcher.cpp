#include "reports/libreoffice/office_launcher.h"

#include <fcntl.h>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
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

}  // namespace

OfficeLauncher::OfficeLauncher(const std::filesystem::path& program, const std::vector<std::string>& arguments)
{
    std::vector<std::string> words = {program.string()};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> pointers;
    pointers.reserve(words.size() + 1);
    for (std::string& word : words) pointers.push_back(word.data());
    pointers.push_back(nullptr);
    const SpawnSettings settings;
    if (::posix_spawn(&m_process, program.c_str(), &settings.actions, &settings.attributes, pointers.data(),
                      ::environ) != 0)
        throw std::runtime_error("the office cannot be started");
}

OfficeLauncher::~OfficeLauncher()
{
    // The user may close the office long before this program: somebody has to wait for its start
    // program, which would stay a dead entry in the process list otherwise.
    if (isRunning()) std::thread([process = m_process] { ::waitpid(process, nullptr, 0); }).detach();
}

bool OfficeLauncher::isRunning()
{
    if (m_isRunning) m_isRunning = ::waitpid(m_process, nullptr, WNOHANG) == 0;
    return m_isRunning;
}

}  // namespace kavo
