// SPDX-FileCopyrightText: 2026 Kavo Timing contributors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "insight/xlsx_library.h"

#include <dlfcn.h>
#include <stdexcept>
#include <string>

namespace kavo {

namespace {

template <typename Function>
void find(void* library, const char* name, Function& function)
{
    void* found = ::dlsym(library, name);
    if (found == nullptr) throw std::runtime_error(std::string("libxlsxwriter has no ") + name);
    function = reinterpret_cast<Function>(found);
}

}  // namespace

XlsxLibrary loadXlsxLibrary(const char* name)
{
    void* library = ::dlopen(name, RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr)
        throw std::runtime_error(std::string("No .xlsx file without libxlsxwriter: ") + ::dlerror());
    XlsxLibrary functions{};
    find(library, "workbook_new_opt", functions.workbook_new_opt);
    find(library, "workbook_add_worksheet", functions.workbook_add_worksheet);
    find(library, "workbook_add_format", functions.workbook_add_format);
    find(library, "workbook_set_properties", functions.workbook_set_properties);
    find(library, "workbook_close", functions.workbook_close);
    find(library, "lxw_workbook_free", functions.lxw_workbook_free);
    find(library, "worksheet_write_number", functions.worksheet_write_number);
    find(library, "worksheet_write_string", functions.worksheet_write_string);
    find(library, "worksheet_write_blank", functions.worksheet_write_blank);
    find(library, "worksheet_set_column", functions.worksheet_set_column);
    find(library, "format_set_font_color", functions.format_set_font_color);
    find(library, "format_set_bold", functions.format_set_bold);
    find(library, "format_set_num_format", functions.format_set_num_format);
    return functions;
}

const XlsxLibrary& xlsxLibrary()
{
    static const XlsxLibrary library = loadXlsxLibrary(KAVO_XLSX_SONAME);
    return library;
}

}  // namespace kavo
