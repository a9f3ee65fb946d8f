// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reports/spreadsheet_application.h"

#ifdef _WIN32
#include "reports/automation/calc_spreadsheet.h"
#include "reports/automation/excel_spreadsheet.h"
#else
#include "base/file_name.h"
#include "core/program_folder.h"
#include "reports/libreoffice/module_entry.h"
#include "reports/libreoffice/office_libraries.h"

#include <dlfcn.h>
#endif

#include <stdexcept>
#include <string>

namespace fs = std::filesystem;

namespace kavo {

#ifdef _WIN32

std::unique_ptr<Spreadsheet> openSpreadsheetApplication(const std::stop_token&)
{
    // The system starts it and cannot be told to stop; whoever asked for that looks next.
    if (!isRegistered(kExcel) && isRegistered(kCalc)) return std::make_unique<CalcSpreadsheet>();
    return std::make_unique<ExcelSpreadsheet>();
}

#else

std::vector<fs::path> modulePlaces(const fs::path& executableFolder)
{
    return {executableFolder / kLibreOfficeModule,
            executableFolder.parent_path() / KAVO_LIBRARY_FOLDER / "kavo-timing" / kLibreOfficeModule};
}

void* moduleEntry(const fs::path& module, const char* name)
{
    loadOfficeLibraries();
    // Never unloaded: the office's libraries leave threads behind that would go on in freed code.
    void* library = ::dlopen(module.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (library == nullptr) throw std::runtime_error(::dlerror());
    void* entry = ::dlsym(library, name);
    if (entry == nullptr) throw std::runtime_error(module.string() + " has no " + name);
    return entry;
}

std::unique_ptr<Spreadsheet> openSpreadsheetApplication(const std::stop_token& stop)
{
    for (const fs::path& module : modulePlaces(executableFolder())) {
        if (!fileExists(module)) continue;
        const auto create = reinterpret_cast<CreateEntry>(moduleEntry(module, kCreateEntry));
        std::unique_ptr<Spreadsheet> spreadsheet(create(stop));
        if (!spreadsheet) throw std::runtime_error("the office cannot be started");
        return spreadsheet;
    }
    throw std::runtime_error("there is no module for the office");
}

#endif

}  // namespace kavo
