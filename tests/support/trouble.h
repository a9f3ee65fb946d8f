// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#ifndef _WIN32

#include "base/run_time_error.h"
#include "tests/support/error_of.h"

#include <cerrno>
#include <csignal>
#include <optional>
#include <string>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

/// Trouble with the system that a test makes for itself.
namespace kavo::test {

/// A limit of this process for as long as this lives.
class Limit
{
public:
    Limit(__rlimit_resource resource, rlim_t value) : m_resource(resource)
    {
        ::getrlimit(m_resource, &m_before);
        const rlimit limit{value, m_before.rlim_max};
        ::setrlimit(m_resource, &limit);
    }
    ~Limit() { ::setrlimit(m_resource, &m_before); }
    Limit(const Limit&) = delete;
    Limit& operator=(const Limit&) = delete;

private:
    __rlimit_resource m_resource;
    rlimit m_before{};
};

/// A disk on which no file can grow larger than so many bytes.
class SmallDisk
{
public:
    explicit SmallDisk(rlim_t bytes) : m_signal(std::signal(SIGXFSZ, SIG_IGN)), m_limit(RLIMIT_FSIZE, bytes) {}
    ~SmallDisk() { std::signal(SIGXFSZ, m_signal); }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

private:
    void (*m_signal)(int);
    Limit m_limit;
};

/// A process that may not open another file.
class NoMoreFiles
{
public:
    NoMoreFiles()
    {
        // The sanitizer of undefined behaviour looks at the type of an object once, through a pipe: before there is
        // no file to be had for that.
        for (const auto* category : {&std::generic_category(), &std::system_category()})
            static_cast<void>(
                errorOf([category] { throw RunTimeError(std::error_code(EMFILE, *category), "tried before"); }));
        m_limit.emplace(RLIMIT_NOFILE, rlim_t{0});
    }

private:
    std::optional<Limit> m_limit;
};

/// Runs an action in a process of its own, which ends at once behind it as if it had been killed there.
template <typename Action>
void inKilledProcess(Action action)
{
    const pid_t child = ::fork();
    if (child == 0) {
        action();
        ::_exit(0);
    }
    ::waitpid(child, nullptr, 0);
}

/// Runs an action that gives a text as a user whom the files of the test do not belong to.
template <typename Action>
std::string asStranger(Action action)
{
    constexpr uid_t kStranger = 65534;
    int ends[2] = {-1, -1};
    if (::pipe(ends) != 0) return "no pipe";
    const pid_t child = ::fork();
    if (child == 0) {
        const bool isRoot = ::geteuid() == 0;
        const std::string text = isRoot && ::setuid(kStranger) != 0 ? "still root" : action();
        ::_exit(::write(ends[1], text.data(), text.size()) < 0 ? 1 : 0);
    }
    ::close(ends[1]);
    std::string text(4096, '\0');
    const auto length = ::read(ends[0], text.data(), text.size());
    ::close(ends[0]);
    ::waitpid(child, nullptr, 0);
    return text.substr(0, length < 0 ? 0 : static_cast<std::size_t>(length));
}

inline void makePipe(const std::string& path)
{
    ::mkfifo(path.c_str(), 0600);
}

}  // namespace kavo::test

#endif
