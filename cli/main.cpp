#include "cli/command_line.h"

#include <cstdio>
#include <cstdlib>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#else
#include <unistd.h>
#endif

namespace {

bool isTerminal()
{
#ifdef _WIN32
    return ::_isatty(::_fileno(stdout)) != 0;
#else
    return ::isatty(STDOUT_FILENO) != 0;
#endif
}

bool isColourUnwanted()
{
    const char* value = std::getenv("NO_COLOR");
    return value != nullptr && *value != '\0';
}

kavo::Terminal terminalOfOutput()
{
    kavo::Terminal terminal;
    terminal.isTerminal = isTerminal();
    if (terminal.isTerminal && !isColourUnwanted()) terminal.colours = kavo::Colours::True;
    return terminal;
}

}  // namespace

int main(int argc, char** argv)
{
#ifdef _WIN32
    ::_setmode(::_fileno(stdout), _O_BINARY);  // a report has its line ends already
#endif
    return kavo::runCommandLine(argc, argv, {stdin, stdout, stderr, terminalOfOutput()});
}
