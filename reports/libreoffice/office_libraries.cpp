// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/libreoffice/office_libraries.h"

#include <algorithm>
#include <cstdlib>
#include <dlfcn.h>
#include <stdexcept>

namespace fs = std::filesystem;

namespace kavo {

namespace {

/// Brings the office's other libraries with it, from its own folder.
constexpr const char* kLibrary = "libuno_cppuhelpergcc3.so.3";

/// The office's folders "program" below a folder in which installations lie side by side, the newest first.
std::vector<fs::path> officesSideBySide(const fs::path& folder)
{
    std::vector<fs::path> offices;
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
        if (entry->path().filename().string().rfind("libreoffice", 0) == 0)
            offices.push_back(entry->path() / "program");
    std::sort(offices.rbegin(), offices.rend());
    return offices;
}

/// Where an office may lie, the user's own choice first.
std::vector<fs::path> officeFolders()
{
    const char* searchPath = std::getenv("PATH");
    std::vector<fs::path> folders = officeFoldersOn(searchPath != nullptr ? searchPath : "");
#ifdef KAVO_OFFICE_FOLDER
    folders.push_back(fs::path(KAVO_OFFICE_FOLDER) / "program");
#endif
    for (const char* installations : {"/usr/lib", "/usr/lib64", "/usr/local/lib", "/opt"})
        for (fs::path& office : officesSideBySide(installations)) folders.push_back(std::move(office));
    return folders;
}

}  // namespace

std::vector<fs::path> officeFoldersOn(std::string_view searchPath)
{
    std::vector<fs::path> offices;
    while (!searchPath.empty()) {
        const fs::path folder(searchPath.substr(0, searchPath.find(':')));
        searchPath.remove_prefix(std::min(searchPath.size(), folder.native().size() + 1));
        if (!folder.is_absolute()) continue;
        for (const char* name : {"soffice", "libreoffice"}) {
            // Usually a link to the program in the office's own folder.
            std::error_code error;
            const fs::path program = fs::canonical(folder / name, error);
            if (!error) offices.push_back(program.parent_path());
        }
    }
    return offices;
}

void loadOfficeLibraries()
{
    for (const fs::path& folder : officeFolders())
        if (::dlopen((folder / kLibrary).c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE) != nullptr) return;
    throw std::runtime_error("there is no office");
}

}  // namespace kavo
