#pragma once

#include "cli/commands.h"
#include "tests/support/program_folder_fixture.h"
#include "tests/support/report_session.h"

#include <sstream>
#include <string>
#include <vector>

namespace kavo::test {

/// What a command printed, and its exit status.
struct Outcome
{
    int status = 0;
    std::string out;
    std::string error;
};

/// Runs kavo-timing-cli on a program folder.
inline Outcome runCommand(const TemporaryFolder& folder, const std::vector<std::string>& arguments,
                          const std::string& input = "")
{
    const std::string folderText = folder.path().string();
    std::vector<const char*> argv = {"kavo-timing-cli", "--program-folder", folderText.c_str()};
    for (const std::string& argument : arguments) argv.push_back(argument.c_str());
    std::istringstream in(input);
    std::ostringstream out;
    std::ostringstream error;
    const int status = runCommandLine(static_cast<int>(argv.size()), argv.data(),
                                      {in, out, error, false, [] { return reportMoment(); }});
    return {status, out.str(), error.str()};
}

}  // namespace kavo::test
