// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "cli/command.h"

#include "base/file_name.h"
#include "base/run_time_error.h"
#include "core/program_folder.h"

namespace fs = std::filesystem;

namespace kavo {

fs::path CommandContext::programFolder() const
{
    try {
        return findProgramFolder(programFolderSources(programFolderOption));
    } catch (const RunTimeError& error) {
        throw CommandError(error.inFull() + "; --program-folder DIR or KAVO_PROGRAM_FOLDER name the program folder");
    }
}

fs::path fileNamed(std::string_view argument)
{
    const fs::path typed = pathOf(argument);
    std::error_code error;  // the working folder may have been deleted
    const fs::path whole = fs::absolute(typed, error);
    return locate(error ? typed : whole);
}

}  // namespace kavo
