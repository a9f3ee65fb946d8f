#include "cli/command_line.h"

#include <cstdio>
#include <cstdlib>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#include <windows.h>
#else
#include <sys/ioctl.h>
#include <unistd.h>
#endif

namespace {

std::string environmentValue(const char* name)
{
    const char* value = std::getenv(name);
    return value != nullptr ? value : "";
}

#ifdef _WIN32

bool isTerminal()
{
    return ::_isatty(::_fileno(stdout)) != 0;
}

std::optional<std::size_t> columnsOfTerminal()
{
    CONSOLE_SCREEN_BUFFER_INFO info{};
    if (::GetConsoleScreenBufferInfo(::GetStdHandle(STD_OUTPUT_HANDLE), &info) == 0) return std::nullopt;
    return static_cast<std::size_t>(info.srWindow.Right - info.srWindow.Left + 1);
}

/// A console of Windows says nothing in the environment. It shows all colours and UTF-8, once it is asked to.
void askConsole(kavo::OutputFacts& facts)
{
    const HANDLE console = ::GetStdHandle(STD_OUTPUT_HANDLE);
    DWORD mode = 0;
    if (::GetConsoleMode(console, &mode) == 0) return;
    ::SetConsoleOutputCP(CP_UTF8);
    if (::SetConsoleMode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0) facts.term = "console-direct";
}

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
    facts.term = environmentValue("TERM");
    facts.colorTerm = environmentValue("COLORTERM");
    facts.noColor = environmentValue("NO_COLOR");
    facts.columnsWished = environmentValue("COLUMNS");
#ifdef _WIN32
    askConsole(facts);
#endif
    return facts;
}

}  // namespace

int main(int argc, char** argv)
{
#ifdef _WIN32
    ::_setmode(::_fileno(stdout), _O_BINARY);  // a report has its line ends already
#endif
    return kavo::runCommandLine(argc, argv, {stdin, stdout, stderr, factsOfOutput()});
}
