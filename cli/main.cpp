// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/environment.h"
#include "cli/command_line.h"

#include <cstdio>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#include <windows.h>
#else
#include <sys/ioctl.h>
#include <unistd.h>
#endif

namespace {

#ifdef _WIN32

bool isTerminal()
{
    DWORD mode = 0;  // the C library takes every device for a terminal
    return ::GetConsoleMode(::GetStdHandle(STD_OUTPUT_HANDLE), &mode) != 0;
}

std::optional<std::size_t> columnsOfTerminal()
{
    CONSOLE_SCREEN_BUFFER_INFO info{};
    if (::GetConsoleScreenBufferInfo(::GetStdHandle(STD_OUTPUT_HANDLE), &info) == 0) return std::nullopt;
    return static_cast<std::size_t>(info.srWindow.Right - info.srWindow.Left + 1);
}

/// A console of Windows, which says nothing in the environment. It shows UTF-8, and all colours where it knows of
/// them, once it is asked to, and is left as it was found: it belongs to the user's shell.
class Console final
{
public:
    explicit Console(DWORD stream) : m_handle(::GetStdHandle(stream))
    {
        m_isConsole = ::GetConsoleMode(m_handle, &m_mode) != 0;
        if (!m_isConsole) return;
        m_codePage = ::GetConsoleOutputCP();
        ::SetConsoleOutputCP(CP_UTF8);
        m_hasColours = ::SetConsoleMode(m_handle, m_mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
    }
    ~Console()
    {
        if (!m_isConsole) return;
        ::SetConsoleMode(m_handle, m_mode);
        ::SetConsoleOutputCP(m_codePage);
    }
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;

    [[nodiscard]] bool hasColours() const { return m_hasColours; }

private:
    HANDLE m_handle;
    DWORD m_mode = 0;
    UINT m_codePage = 0;
    bool m_isConsole = false;
    bool m_hasColours = false;
};

#else

bool isTerminal()
{
    return ::isatty(STDOUT_FILENO) != 0;
}

/// Before a pipe into a pager, standard error is still the terminal.
std::optional<std::size_t> columnsOfTerminal()
{
    for (const int descriptor : {STDOUT_FILENO, STDERR_FILENO}) {
        winsize size{};
        if (::ioctl(descriptor, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) return size.ws_col;
    }
    return std::nullopt;
}

#endif

kavo::OutputFacts factsOfOutput()
{
    kavo::OutputFacts facts;
    facts.isTerminal = isTerminal();
    facts.columns = columnsOfTerminal();
    facts.term = kavo::environmentValue("TERM").value_or("");
    facts.colorTerm = kavo::environmentValue("COLORTERM").value_or("");
    facts.noColor = kavo::environmentValue("NO_COLOR").value_or("");
    facts.columnsWished = kavo::environmentValue("COLUMNS").value_or("");
    return facts;
}

}  // namespace

int main(int argc, char** argv)
{
    kavo::OutputFacts facts = factsOfOutput();
#ifdef _WIN32
    // What is read and written has its line ends already.
    for (std::FILE* stream : {stdin, stdout, stderr}) ::_setmode(::_fileno(stream), _O_BINARY);
    const Console errors(STD_ERROR_HANDLE);
    const Console output(STD_OUTPUT_HANDLE);
    if (output.hasColours()) facts.term = "console-direct";
#endif
    return kavo::runCommandLine(argc, argv, {stdin, stdout, stderr, facts});
}
