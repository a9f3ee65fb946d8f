// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/waiting.h"

#include <system_error>

#ifdef _WIN32
#include <windows.h>
#else
#include <csignal>
#include <ctime>
#endif

namespace kavo {

namespace {

using std::chrono::milliseconds;

#ifdef _WIN32

/// The system calls the handler on a thread of its own and has nothing to give it, so the event is everybody's.
HANDLE endEvent()
{
    static const HANDLE event = ::CreateEventW(nullptr, TRUE, FALSE, nullptr);
    return event;
}

BOOL WINAPI askForEnd(DWORD)
{
    ::SetEvent(endEvent());
    return TRUE;
}

class SystemWaiting final : public Waiting
{
public:
    SystemWaiting() { ::SetConsoleCtrlHandler(askForEnd, TRUE); }
    ~SystemWaiting() override { ::SetConsoleCtrlHandler(askForEnd, FALSE); }
    SystemWaiting(const SystemWaiting&) = delete;
    SystemWaiting& operator=(const SystemWaiting&) = delete;

    bool waitFor(milliseconds time) override
    {
        return ::WaitForSingleObject(endEvent(), static_cast<DWORD>(time.count())) != WAIT_OBJECT_0;
    }

#else

class SystemWaiting final : public Waiting
{
public:
    SystemWaiting()
    {
        ::sigemptyset(&m_signals);
        for (const int signal : {SIGINT, SIGTERM, SIGHUP})
            if (!isIgnored(signal)) ::sigaddset(&m_signals, signal);
        // Blocked, they stay until they are asked for: nothing is cut off in the middle.
        const int error = ::pthread_sigmask(SIG_BLOCK, &m_signals, &m_before);
        if (error != 0) throw std::system_error(error, std::generic_category());
    }
    ~SystemWaiting() override { ::pthread_sigmask(SIG_SETMASK, &m_before, nullptr); }
    SystemWaiting(const SystemWaiting&) = delete;
    SystemWaiting& operator=(const SystemWaiting&) = delete;

    bool waitFor(milliseconds time) override
    {
        constexpr long kNanoseconds = 1'000'000;  // of a millisecond
        const timespec limit = {.tv_sec = static_cast<std::time_t>(time.count() / 1000),
                                .tv_nsec = static_cast<long>(time.count() % 1000) * kNanoseconds};
        return ::sigtimedwait(&m_signals, nullptr, &limit) < 0;
    }

#endif

    [[nodiscard]] milliseconds now() const override
    {
        return std::chrono::duration_cast<milliseconds>(std::chrono::steady_clock::now().time_since_epoch());
    }

#ifndef _WIN32
private:
    /// As nohup and scripts that run a program in the background wish it.
    static bool isIgnored(int signal)
    {
        struct sigaction action = {};
        return ::sigaction(signal, nullptr, &action) == 0 && action.sa_handler == SIG_IGN;
    }

    sigset_t m_signals{};
    sigset_t m_before{};
#endif
};

}  // namespace

std::unique_ptr<Waiting> startWaiting()
{
    return std::make_unique<SystemWaiting>();
}

}  // namespace kavo
