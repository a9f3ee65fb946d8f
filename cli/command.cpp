#include "cli/command.h"

#include "core/program_folder.h"

namespace kavo {

std::filesystem::path CommandContext::programFolder() const
{
    return findProgramFolder(programFolderSources(programFolderOption));
}

}  // namespace kavo
